#pragma once

#include "graph/Graph.h"

#include <optional>

namespace KOLT {

class WidgetGraphBase;

/// Moves the graph's time window: for a recording just loaded, with the time, and by the commands.
class WindowControl
{
public:
    enum class Zoom { In, Out };

    explicit WindowControl(WidgetGraphBase& graph)
        : m_graph(graph)
    {
    }

    /// The next time places the window anew, without regard to the one before.
    void beginRecording(const TimeRange& recording);

    void endRecording() { m_recording.reset(); }

    /// Moves the cursor, and the window as the cursor mode says. A recording's first time moves no
    /// window: the map begins to follow with the second one, too.
    void showTime(double seconds);

    void showAll();
    void showMarkers();
    /// One step of a held zoom button.
    void zoom(Zoom direction);

    /// Unlike the commands this leaves the user's span alone.
    void showSpan(const TimeRange& window, const TimeRange& markers);

private:
    void place(double seconds);

    WidgetGraphBase& m_graph;
    std::optional<TimeRange> m_recording;
    bool m_mustPlace = false; ///< no time of the recording was shown yet
};

} // namespace KOLT
