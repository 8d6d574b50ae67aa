#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

namespace KOLT {

/// Keeps the windows responsive during a long job: processes events, including the user's clicks
/// and keys, whenever some time has passed since the last time.
class EventPump
{
public:
    EventPump() { m_sinceEvents.start(); }

    void restart() { m_sinceEvents.start(); }

    /// Cheap, to be called often.
    void tick()
    {
        tick([] {});
    }

    /// Calls the function before events are processed, such as to show the progress: drawing that
    /// on each call would take long.
    template <typename Function>
    void tick(Function&& beforeEvents)
    {
        if (m_sinceEvents.elapsed() < pauseMilliseconds)
            return;
        beforeEvents();
        QCoreApplication::processEvents();
        restart();
    }

private:
    static constexpr qint64 pauseMilliseconds = 30;

    QElapsedTimer m_sinceEvents;
};

} // namespace KOLT
