// Event lines and notes of the graph.
#include "graph/Graph.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

void Graph::setEventLines(std::vector<EventLine> lines)
{
    std::erase_if(lines, [](const EventLine& line) { return !std::isfinite(line.seconds); });
    std::ranges::stable_sort(lines, {}, &EventLine::seconds);
    m_eventLines = std::move(lines);
}

void Graph::addEventLine(const EventLine& line)
{
    if (std::isfinite(line.seconds))
        m_eventLines.insert(
            std::ranges::upper_bound(m_eventLines, line.seconds, {}, &EventLine::seconds), line);
}

void Graph::setNotes(std::vector<NoteMark> notes)
{
    std::erase_if(notes, [](const NoteMark& note) { return !std::isfinite(note.seconds); });
    std::ranges::stable_sort(notes, {}, &NoteMark::seconds);
    m_notes = std::move(notes);
}

std::vector<const NoteMark*> Graph::notesInSight() const
{
    std::vector<const NoteMark*> found;
    if (!m_settings.hasNotes)
        return found;
    const auto columnOf = [this](const NoteMark& note) { return std::floor(xOf(note.seconds)); };
    auto note = std::ranges::lower_bound(m_notes, m_window.start, {}, &NoteMark::seconds);
    while (note != m_notes.end() && note->seconds <= m_window.end) {
        found.push_back(&*note);
        note = std::ranges::upper_bound(note, m_notes.end(), columnOf(*note), {}, columnOf);
    }
    return found;
}

QRectF Graph::flagOf(const NoteMark& note) const
{
    constexpr double ofLine = 0.6;
    const double size = std::round(m_metrics.lineHeight * ofLine);
    return {xOf(note.seconds) - size, plot().bottom() - size, size, size};
}

const NoteMark* Graph::noteAt(const QPointF& point) const
{
    constexpr double reach = 2.0; // pixels
    if (!plot().contains(point))
        return nullptr;
    const NoteMark* found = nullptr; // the last one, which is drawn on top
    for (const NoteMark* const note : notesInSight()) {
        if (flagOf(*note).adjusted(-reach, -reach, reach, reach).contains(point))
            found = note;
    }
    return found;
}

std::vector<EventLine> Graph::eventsInSight() const
{
    const auto columnOf = [this](const EventLine& line) { return std::floor(xOf(line.seconds)); };
    std::vector<EventLine> found;
    auto line = std::ranges::lower_bound(m_eventLines, m_window.start, {}, &EventLine::seconds);
    while (line != m_eventLines.end() && line->seconds <= m_window.end) {
        found.push_back(*line);
        line = std::ranges::upper_bound(line, m_eventLines.end(), columnOf(*line), {}, columnOf);
    }
    return found;
}

} // namespace KOLT
