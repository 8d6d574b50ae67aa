#include "graph/ui/WindowControl.h"

#include "graph/WindowPlacing.h"
#include "graph/ui/WidgetGraphBase.h"

#include <algorithm>

namespace KOLT {

void WindowControl::beginRecording(const TimeRange& recording)
{
    m_recording = recording;
    m_mustPlace = true;
    m_graph.editGraph().setMarkers(recording.start, recording.start);
}

void WindowControl::showTime(double seconds)
{
    if (m_recording && m_mustPlace) {
        place(seconds);
        return;
    }
    // After the user placed the cursor, the page's time comes back: nothing may move then.
    const double cursor = m_graph.graph().cursor().time;
    if (static_cast<float>(seconds) != static_cast<float>(cursor))
        m_graph.setCursorTime(seconds);
}

void WindowControl::place(double seconds)
{
    const double inside = std::clamp(seconds, m_recording->start, m_recording->end);
    const TimeRange window = firstWindow(m_graph.graph().settings(), *m_recording, inside);
    m_graph.editGraph().moveCursor(inside);
    m_graph.setWindow(window.start, window.end);
    m_mustPlace = inside != seconds; // still a time of the recording before
}

void WindowControl::showAll()
{
    const auto whole = m_recording ? wholeWindow(*m_recording) : std::nullopt;
    if (!whole)
        return;
    GraphSettings& settings = m_graph.editGraph().editSettings();
    settings.timeSpan = m_recording->length();
    settings.isWhole = true;
    m_graph.setWindow(whole->start, whole->end);
}

void WindowControl::showMarkers()
{
    const TimeRange markers = m_graph.graph().markers().ordered();
    if (!(markers.length() > 0.0))
        return;
    m_graph.editGraph().showMarkers();
    m_graph.update();
    GraphSettings& settings = m_graph.editGraph().editSettings();
    settings.timeSpan = m_graph.graph().window().length();
    settings.isWhole = false;
}

void WindowControl::zoom(Zoom direction)
{
    constexpr double factor = 0.97;
    constexpr double longest = 5000.0;
    constexpr double shortest = 1.0;
    const double span = m_graph.graph().window().length();
    m_graph.editGraph().editSettings().isWhole = false;
    // The limits are on these sides on purpose: they bring back a span that is beyond one.
    m_graph.setTimeSpan(direction == Zoom::In ? std::min(span * factor, longest)
                                              : std::max(span / factor, shortest));
    m_graph.followCursor(); // the step kept one end of the window rather than the cursor's place
}

void WindowControl::showSpan(const TimeRange& window, const TimeRange& markers)
{
    m_graph.editGraph().setMarkers(markers.start, markers.end);
    m_graph.setWindow(window.start, window.end);
    m_graph.refresh();
    m_mustPlace = false;
}

} // namespace KOLT
