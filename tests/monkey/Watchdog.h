#pragma once

#include <QString>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

namespace KOLT::Test {

/// Notes how long the event loop serves no timers, without the time in which its thread could run
/// but other processes had the processors. A second thread looks, so that a loop that never
/// returns is told, too: after `hang` it names the step and ends the process.
class Watchdog
{
public:
    using Clock = std::chrono::steady_clock;

    struct Pause
    {
        QString step;
        qint64 milliseconds = 0;
    };

    Watchdog(std::chrono::milliseconds limit, std::chrono::milliseconds hang);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// What is under way, for the report.
    void setStep(const QString& step);

    /// From now on: what was until then is not judged, as the start is not.
    void restart();

    /// Longer than the limit.
    const std::vector<Pause>& pauses() const { return m_pauses; }

    qint64 longest() const { return m_longest; }

private:
    void beat();
    void watch();

    const std::chrono::milliseconds m_limit;
    const std::chrono::milliseconds m_hang;
    std::atomic<Clock::rep> m_lastBeat;
    std::atomic<bool> m_isDone = false;
    std::mutex m_mutex; ///< for m_step
    QString m_step;
    std::vector<Pause> m_pauses;
    qint64 m_longest = 0;
    std::chrono::nanoseconds m_lastDelay;
    QTimer m_timer;
    std::thread m_thread;
};

} // namespace KOLT::Test
