#pragma once

#include "app/OverviewRunner.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

class QStackedWidget;
class QWidget;

namespace KOLT {

class CardSession;
class DialogCard;
class DialogData;
class OverviewPage;
class WelcomePanel;
struct RecordingTrust;

/// What stands in front of the pages until something is chosen: the overview of the open folder, or
/// what to open if there is none. Joins the open card, the card lists and the data window for it.
///
/// The arguments must outlive the session. The data window takes ownership of front().
class OverviewSession : public QObject
{
    Q_OBJECT

public:
    OverviewSession(const Profile& profile, CardSession& card, JobQueue& jobs, DialogCard& lists,
                    DialogData& data);

    /// No folder is known: offers to open one, or the sample card.
    void showFirstStart();
    /// The folder of the last time was not found.
    void showMissing(const QString& folder);

    /// To be called before the profile is loaded again, and afterwards.
    void beginReload();
    void endReload();

    void refreshUnits();

    /// Loads a cycle or a flight of it, unless it is loaded, and shows the pages.
    void open(int cycle, int flight);

signals:
    void signalChooseFolder();
    /// The open card is to be imported into the library.
    void signalImport();
    /// It is known how far a cycle can be believed.
    void signalTrust(int cycle, const RecordingTrust& trust);

private:
    void showListed();
    void showProgress();
    void showWelcome();
    void showFront();
    void openSample();
    void offerVolumes();

    CardSession& m_card;
    JobQueue& m_jobs;
    DialogCard& m_lists;
    DialogData& m_data;
    OverviewRunner m_runner;
    std::size_t m_marked = 0; ///< rows whose marks the lists have
    std::size_t m_told = 0;   ///< rows whose trust was sent
    QTimer m_volumeTimer;
    QByteArray m_mounts; ///< when volumes were looked for last
    QStackedWidget* m_front;
    WelcomePanel* m_welcome;
    OverviewPage* m_page;
};

} // namespace KOLT
