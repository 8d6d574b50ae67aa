#pragma once

#include "libs/tessamap/tiles/TileReply.h"

namespace Tessa {

/// When the server may be asked: not during a pause, and only now and then while it cannot be
/// reached. Times in milliseconds since 1970.
class ServerAccess
{
public:
    /// The time of the next request that is allowed.
    qint64 notBefore() const;

    bool isOffline() const { return m_isOffline; }

    void pause(qint64 until);
    void noteRequest(qint64 now);
    /// Learns from a reply whether the server can be reached.
    void noteReply(const ReplyFacts& facts, qint64 now);

private:
    bool isTimeoutTooMany(qint64 now);

    qint64 m_pausedUntil = 0;
    qint64 m_nextProbe = 0;
    qint64 m_lastTimeout = 0;
    int m_timeoutsInARow = 0;
    bool m_isOffline = false;
};

} // namespace Tessa
