#include "record/TrustDraft.h"

#include <algorithm>
#include <utility>

namespace KOLT {

Figures figuresTouched(const Flight& flight, const TouchedSpan& span)
{
    // Where times jump a flight may end before it starts.
    const auto [first, last] = std::minmax(flight.startSeconds, flight.endSeconds);
    if (span.to < first || span.from > last)
        return 0;
    if (span.effect == TouchedSpan::Effect::Listed)
        return span.figures;
    // A take-off or a landing that a hole holds is found right behind it, some samples later. A
    // hole between both may hold a landing and another take-off, unless it is too short for that.
    // One without any length stands for a place where what follows does not belong together.
    constexpr double laterSeconds = 15.0;
    constexpr double shortSeconds = 2.0;
    const double length = span.to - span.from;
    const bool isShort = length > 0.0 && length <= shortSeconds;
    Figures figures = Figure::All & ~Figure::Times;
    if (span.from <= flight.takeOffSeconds && span.to >= flight.takeOffSeconds - laterSeconds)
        figures |= Figure::DateTime | Figure::Start | Figure::TakeOff;
    if (span.to > (isShort ? flight.landingSeconds - laterSeconds : flight.takeOffSeconds) &&
        span.from <= flight.landingSeconds)
        figures |= Figure::Landing | Figure::End;
    return figures & span.figures;
}

double unexplainedSeconds(double from, double to, const TrustDrafts& drafts,
                          const std::vector<std::uint32_t>& ids)
{
    std::vector<std::pair<double, double>> known;
    for (const TrustDraft& draft : drafts) {
        const bool isSilence = std::ranges::find_first_of(draft.ids, ids) != draft.ids.end();
        for (const TouchedSpan& span : draft.touched) {
            if ((isSilence || draft.explains(span)) && span.to > from && span.from < to)
                known.emplace_back(std::max(from, span.from), std::min(to, span.to));
        }
    }
    std::ranges::sort(known);
    double left = to - from;
    double done = from;
    for (const auto& [start, end] : known) {
        if (end <= done)
            continue;
        left -= end - std::max(start, done);
        done = end;
    }
    return left;
}

} // namespace KOLT
