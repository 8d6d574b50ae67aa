#pragma once

#include "analysis/CardOverview.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace KOLT {

class CardContainer;
class JobQueue;
class Profile;

/// Works out the overview of the open folder in the background: slices of some milliseconds, each a
/// job of the main window's queue, so that a load comes before the next slice and the window
/// answers. Card, profile and queue must outlive it.
class OverviewRunner : public QObject
{
    Q_OBJECT

public:
    OverviewRunner(const Profile& profile, const CardContainer& card, JobQueue& jobs,
                   QObject* parent = nullptr);

    /// Begins anew: another folder was listed, or the profile was loaded.
    void start();
    /// Drops the overview, before card or profile change.
    void clear();
    /// Stops the work; what is complete stays.
    void cancel();
    /// Goes on after cancel().
    void resume();

    /// Null before start(). Replaced with signalStarted(), gone with signalCleared().
    const CardOverview* overview() const { return m_overview.get(); }

    bool isRunning() const { return m_timer.isActive(); }

signals:
    void signalStarted();
    void signalCleared();
    /// The work went on, was cancelled or taken up again, or is done.
    void signalProgress();

private:
    void work();

    const Profile& m_profile;
    const CardContainer& m_card;
    JobQueue& m_jobs;
    std::unique_ptr<CardOverview> m_overview;
    QTimer m_timer;
};

} // namespace KOLT
