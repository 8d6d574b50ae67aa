#include "tests/monkey/Watchdog.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

namespace KOLT::Test {

using std::chrono::milliseconds;

namespace {

/// How long this thread has waited for a processor so far; 0 where the kernel does not tell.
std::chrono::nanoseconds processorDelay()
{
    std::ifstream file("/proc/thread-self/schedstat");
    long long used = 0;
    long long delay = 0;
    file >> used >> delay;
    return std::chrono::nanoseconds(file ? delay : 0);
}

} // namespace

Watchdog::Watchdog(milliseconds limit, milliseconds hang)
    : m_limit(limit)
    , m_hang(hang)
    , m_lastBeat(Clock::now().time_since_epoch().count())
    , m_lastDelay(processorDelay())
{
    constexpr int interval = 10;
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { beat(); });
    m_timer.start(interval);
    m_thread = std::thread([this] { watch(); });
}

Watchdog::~Watchdog()
{
    m_isDone = true;
    m_thread.join();
}

void Watchdog::setStep(const QString& step)
{
    const std::scoped_lock lock(m_mutex);
    m_step = step;
}

void Watchdog::restart()
{
    m_lastBeat = Clock::now().time_since_epoch().count();
    m_lastDelay = processorDelay();
}

void Watchdog::beat()
{
    const auto now = Clock::now();
    const auto delay = processorDelay();
    const auto pause = std::chrono::duration_cast<milliseconds>(
        now.time_since_epoch() - Clock::duration(m_lastBeat.load()) - (delay - m_lastDelay));
    m_lastDelay = delay;
    m_lastBeat = now.time_since_epoch().count();
    m_longest = std::max<qint64>(m_longest, pause.count());
    if (pause > m_limit)
        m_pauses.push_back({m_step, pause.count()});
}

/// Counts its own steps, not the clock, which goes on while the process is stopped.
void Watchdog::watch()
{
    constexpr milliseconds step(50);
    Clock::rep seen = 0;
    for (milliseconds waited{}; !m_isDone; waited += step) {
        std::this_thread::sleep_for(step);
        const Clock::rep beat = m_lastBeat;
        if (std::exchange(seen, beat) != beat)
            waited = {};
        if (waited < m_hang)
            continue;
        const std::scoped_lock lock(m_mutex);
        std::fprintf(stderr, "The event loop hangs since: %s\n", qPrintable(m_step));
        std::abort(); // leaves a stack for a debugger
    }
}

} // namespace KOLT::Test
