#include "tools/soak/User.h"

#include "tools/soak/Hand.h"

#include <QApplication>
#include <QMainWindow>
#include <QPixmapCache>
#include <QScreen>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace KOLT::Soak {

namespace {

constexpr int tickMilliseconds = 60;
constexpr int mostTries =
    120'000 / tickMilliseconds; ///< of a step: two minutes, as the disk may be busy
constexpr double burst = 3.0;   ///< seconds of processor time that may be used ahead

double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

std::size_t heapBytes()
{
#ifdef __GLIBC__
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#else
    return 0;
#endif
}

qsizetype objectCount()
{
    qsizetype count = qApp->findChildren<QObject*>().size();
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->parent() == nullptr)
            count += window->findChildren<QObject*>().size();
    }
    return count;
}

} // namespace

User::User()
    : m_places{qEnvironmentVariable("KOLT_SOAK_CARDS"), qEnvironmentVariable("KOLT_SOAK_OUT")}
    , m_milliseconds(qEnvironmentVariable("KOLT_SOAK_SECONDS").toLongLong() * 1000)
    , m_share(qEnvironmentVariable("KOLT_SOAK_PERCENT").toDouble() / 100.0)
{
    // Queued: a timer is silent while its own slot runs, also in the dialogs that a step opens.
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!std::exchange(m_isStepDue, true))
            QMetaObject::invokeMethod(this, &User::tick, Qt::QueuedConnection);
    });
    m_timer.start(tickMilliseconds);
    m_clock.start();
    m_used = processorSeconds();
}

void User::tick()
{
    m_isStepDue = false;
    if (m_isClosing || Hand::mainWindow() == nullptr)
        return;
    if (m_steps.empty()) {
        if (m_round > 0)
            endRound();
        beginRound();
        return;
    }
    const bool mustWait = isBeyondShare();
    if (!mustWait || m_steps.front().isUrgent)
        step();
}

/// What was not used for long, as when the program was stopped, is not used up later.
bool User::isBeyondShare()
{
    const double now = static_cast<double>(m_clock.elapsed()) / 1000.0;
    const double used = processorSeconds();
    m_credit = std::min(burst, m_credit + m_share * (now - m_looked)) - (used - m_used);
    m_looked = now;
    m_used = used;
    return m_credit < 0.0;
}

void User::step()
{
    const Step& step = m_steps.front();
    if (step.act()) {
        m_steps.pop_front();
        m_tries = 0;
    } else if (++m_tries > mostTries) {
        const QWidget* const front = Hand::front();
        std::fprintf(stderr,
                     "soak: round %d: not possible: %s (in front: \"%s\", screen in "
                     "stuck.png)\n",
                     m_round, qPrintable(step.name),
                     front != nullptr ? qPrintable(front->windowTitle()) : "none");
        const QString picture = m_places.out + QStringLiteral("/stuck.png");
        Hand::mainWindow()->screen()->grabWindow(0).save(picture);
        std::_Exit(3);
    }
}

void User::beginRound()
{
    if (m_clock.elapsed() >= m_milliseconds && m_round > 0) {
        m_isClosing = true;
        std::printf("soak: end\n");
        std::fflush(stdout);
        Hand::mainWindow()->close();
        return;
    }
    ++m_round;
    for (Step& step : scriptOfRound(m_places, m_round))
        m_steps.push_back(std::move(step));
}

void User::endRound()
{
    // Holds up to 10 MB of what was drawn, which takes hours to fill and would hide what grows.
    QPixmapCache::clear();
    std::printf("soak: round %d seconds %.1f processor %.1f heap %zu objects %lld widgets %lld "
                "windows %lld pid %lld display %s\n",
                m_round, static_cast<double>(m_clock.elapsed()) / 1000.0, processorSeconds(),
                heapBytes(), static_cast<long long>(objectCount()),
                static_cast<long long>(QApplication::allWidgets().size()),
                static_cast<long long>(QApplication::topLevelWidgets().size()),
                static_cast<long long>(QCoreApplication::applicationPid()),
                qPrintable(qEnvironmentVariable("DISPLAY")));
    std::fflush(stdout);
}

} // namespace KOLT::Soak
