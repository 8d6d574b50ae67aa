#pragma once

#include "record/Flight.h"
#include "record/TrustFinding.h"

#include <limits>
#include <span>
#include <vector>

/// How findings are put together; only the parts of trust need this.
namespace KOLT {

constexpr double endOfTime = std::numeric_limits<double>::infinity();

/// A stretch of time, in seconds on the counter, that a finding makes doubtful.
struct TouchedSpan
{
    enum class Effect {
        Hole,   ///< something is lacking: what counts are its ends
        Listed, ///< these figures are off, wherever it meets the flight
    };

    double from = 0.0;
    double to = 0.0;
    Effect effect = Effect::Hole;
    Figures figures = Figure::All;
};

/// A finding with what it touches, from which marks and explanations follow.
struct TrustDraft
{
    TrustFinding finding;
    std::vector<TouchedSpan> touched;
    std::vector<std::uint32_t> ids; ///< the messages that fell silent

    /// Whether a span says that time lacks there, counts twice or is not what it seems.
    bool explains(const TouchedSpan& span) const
    {
        const bool isOfTime =
            finding.kind <= TrustKind::Hole || finding.kind == TrustKind::BeforeFirstCycle;
        return isOfTime && span.figures != Figure::DateTime;
    }

    void touch(double from, double to, TouchedSpan::Effect effect = TouchedSpan::Effect::Hole,
               Figures figures = Figure::All)
    {
        touched.push_back({from, to, effect, figures});
    }
};

using TrustDrafts = std::vector<TrustDraft>;

/// The figures of a flight that a span touches.
Figures figuresTouched(const Flight& flight, const TouchedSpan& span);

/// How many seconds of [from, to] no finding accounts for. Silence of one of these messages counts
/// as well.
double unexplainedSeconds(double from, double to, const TrustDrafts& drafts,
                          const std::vector<std::uint32_t>& ids = {});

} // namespace KOLT
