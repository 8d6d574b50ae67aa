#include "app/OverviewRunner.h"

#include "app/JobQueue.h"

#include <QElapsedTimer>

namespace KOLT {

namespace {

constexpr qint64 sliceMilliseconds = 12;
constexpr int waitMilliseconds = 40; ///< while something else is done

} // namespace

OverviewRunner::OverviewRunner(const Profile& profile, const CardContainer& card, JobQueue& jobs,
                               QObject* parent)
    : QObject(parent)
    , m_profile(profile)
    , m_card(card)
    , m_jobs(jobs)
{
    connect(&m_timer, &QTimer::timeout, this, &OverviewRunner::work);
}

void OverviewRunner::start()
{
    clear();
    m_overview = std::make_unique<CardOverview>(m_profile, m_card, CardOverview::Trust::Wanted);
    emit signalStarted();
    resume();
}

void OverviewRunner::clear()
{
    m_timer.stop();
    if (m_overview == nullptr)
        return;
    emit signalCleared();
    m_overview.reset();
}

void OverviewRunner::cancel()
{
    m_timer.stop();
    emit signalProgress();
}

void OverviewRunner::resume()
{
    if (m_overview != nullptr && !m_overview->isDone())
        m_timer.start(0);
    emit signalProgress();
}

void OverviewRunner::work()
{
    if (m_jobs.isBusy()) {
        m_timer.setInterval(waitMilliseconds);
        return;
    }
    m_timer.setInterval(0);
    m_jobs.run([this] {
        QElapsedTimer slice;
        slice.start();
        while (slice.elapsed() < sliceMilliseconds) {
            if (!m_overview->step()) {
                m_timer.stop();
                break;
            }
        }
    });
    emit signalProgress();
}

} // namespace KOLT
