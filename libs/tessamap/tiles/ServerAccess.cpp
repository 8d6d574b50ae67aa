#include "libs/tessamap/tiles/ServerAccess.h"

#include <algorithm>

namespace Tessa {

namespace {

constexpr qint64 second = 1000;
constexpr qint64 probeInterval = 30 * second;
constexpr int mostTimeouts = 6;
/// Older timeouts do not count. Longer than the longest delay of a tile that keeps timing out.
constexpr qint64 timeoutMemory = 600 * second;

} // namespace

qint64 ServerAccess::notBefore() const
{
    return m_isOffline ? std::max(m_pausedUntil, m_nextProbe) : m_pausedUntil;
}

void ServerAccess::pause(qint64 until)
{
    m_pausedUntil = std::max(m_pausedUntil, until);
}

void ServerAccess::noteRequest(qint64 now)
{
    if (m_isOffline)
        m_nextProbe = now + probeInterval;
}

void ServerAccess::noteReply(const ReplyFacts& facts, qint64 now)
{
    if (facts.status != 0) {
        m_timeoutsInARow = 0;
        m_isOffline = false;
    } else if (outcomeOf(facts) == ReplyOutcome::Unreachable ||
               (facts.wasTimeout && isTimeoutTooMany(now))) {
        // A server whose replies all time out counts as unreachable.
        m_nextProbe = now + probeInterval;
        m_isOffline = true;
    }
}

bool ServerAccess::isTimeoutTooMany(qint64 now)
{
    if (now - m_lastTimeout > timeoutMemory)
        m_timeoutsInARow = 0;
    m_lastTimeout = now;
    return ++m_timeoutsInARow >= mostTimeouts;
}

} // namespace Tessa
