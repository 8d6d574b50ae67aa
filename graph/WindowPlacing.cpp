#include "graph/WindowPlacing.h"

namespace KOLT {

std::optional<TimeRange> wholeWindow(const TimeRange& recording)
{
    constexpr double margin = 0.1; // on each side, as a part of the length
    const double length = recording.length();
    if (!(length > 0.0))
        return std::nullopt;
    return TimeRange{recording.start - length * margin, recording.end + length * margin};
}

TimeRange firstWindow(const GraphSettings& settings, const TimeRange& recording, double seconds)
{
    const double span = settings.timeSpan;
    const auto whole = wholeWindow(recording);
    if (whole && (settings.isWhole || span >= recording.length()))
        return *whole;
    const double before = settings.cursorMode == CursorMode::Center ? 0.5
                          : settings.cursorMode == CursorMode::End  ? 1.0 - Graph::pagingEdge
                                                                    : Graph::pagingEdge;
    const double start = seconds - span * before;
    return {start, start + span};
}

} // namespace KOLT
