#pragma once

#include "tools/soak/Script.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>

namespace KOLT::Soak {

/// Does round after round of the script, and prints a line of figures after each:
///
///     soak: round N seconds S processor S heap BYTES objects N widgets N windows N pid N display D
///
/// `heap` is what the program has allocated and not freed; 0 where the C library does not tell.
/// Steps wait so that the program uses no more than a share of one processor on average. A step
/// that is not possible for two minutes ends the program with code 3. After the time that is given,
/// the main window is closed as a user does.
///
/// Environment: KOLT_SOAK_CARDS and KOLT_SOAK_OUT (folders), KOLT_SOAK_SECONDS, KOLT_SOAK_PERCENT
/// (share of a processor).
class User : public QObject
{
public:
    User();

private:
    void tick();
    void step();
    void beginRound();
    void endRound();
    bool isBeyondShare();

    const Places m_places;
    const qint64 m_milliseconds;
    const double m_share;
    QTimer m_timer;
    QElapsedTimer m_clock;
    int m_tries = 0;       ///< of the current step
    double m_used = 0.0;   ///< seconds of the processor, at the last look
    double m_looked = 0.0; ///< seconds of m_clock, then
    double m_credit = 0.0; ///< seconds of the processor that may still be used
    std::deque<Step> m_steps;
    int m_round = 0;
    bool m_isStepDue = false;
    bool m_isClosing = false;
};

} // namespace KOLT::Soak
