#include "graph/GraphTexts.h"
#include "graph/SceneBuilder.h"

#include <QCoreApplication>

#include <span>

namespace KOLT {

namespace {

constexpr double legendIndent = 18.0;
constexpr double panelPadding = 8.0;
constexpr double handleX = 10.0;
constexpr QColor markerColor(255, 255, 0, 77);
constexpr QColor eventColor(0, 153, 153);
constexpr double eventDepth = 15.0; ///< depth of an event's number below the plot's top
constexpr QColor dragColor(0, 255, 255);
constexpr QColor hoverColor(255, 128, 0);
constexpr QColor cursorColor(128, 128, 128);
constexpr QColor panelColor(255, 255, 255, 235);

} // namespace

void SceneBuilder::markers()
{
    const double left = std::clamp(m_graph.xOf(std::min(m_graph.markerLeft, m_graph.markerRight)),
                                   m_plot.left(), m_plot.right());
    const double right = std::clamp(m_graph.xOf(std::max(m_graph.markerLeft, m_graph.markerRight)),
                                    m_plot.left(), m_plot.right());
    if (right > left) {
        const QRectF area(left, m_plot.top(), right - left, m_plot.height());
        m_pen.quad(area, markerColor);
        // Texts keep their plate.
        for (const QRectF& plate : m_plates) {
            if (plate.intersects(area))
                m_pen.quad(plate.intersected(area), plateColor());
        }
    }
    if (m_input.isMeasuring()) {
        const int index = m_graph.selectedTrace;
        text(m_graph.xOf(m_graph.cursorTime) + 5.0,
             m_graph.yOf(index, m_graph.cursorValue) + 5.0 + m_row / 2.0, Qt::AlignLeft,
             QStringLiteral("dt = %1 s").arg(m_graph.markerRight - m_graph.markerLeft),
             legible(Qt::black));
    }
}

void SceneBuilder::layOutEvents()
{
    if (!m_graph.settings.hasEvents || m_graph.eventLines().empty())
        return;
    m_events = m_graph.eventsInSight();
    m_strip = std::max(eventDepth, m_row / 2.0) +
              m_row / 2.0; // kept even when no event is visible, so that texts do not jump
}

double SceneBuilder::topOfTexts(const QRectF& area) const
{
    const bool isTop = area.bottom() > m_plot.bottom() - 1.0;
    return isTop && hasStrip(area.height()) ? area.bottom() - m_strip : area.bottom();
}

void SceneBuilder::eventNumbers()
{
    // Beside the legend if bands are too low for a strip.
    const bool isStrip = hasStrip(hasLegendInBands() ? m_graph.rowHeight() : m_plot.height());
    const double y = m_plot.bottom() + m_row / 2.0 - (isStrip ? m_strip : m_row);
    double taken = m_plot.left(); // right end of the number before
    for (const EventLine& event : m_events) {
        const double left = m_graph.xOf(event.seconds) + 5.0;
        if (left < taken)
            continue;
        const QString number = QString::number(event.number);
        const QRectF box(left, y - m_row / 2.0, widthOf(number), m_row);
        const bool isFree = std::ranges::none_of(
            m_plates, [&](const QRectF& plate) { return plate.intersects(box); });
        if (box.right() > m_plot.right() || !isFree)
            continue;
        m_pen.quad(m_plates.emplace_back(box), plateColor());
        text(left, y, Qt::AlignLeft, number, eventColor);
        taken = box.right() + m_graph.metrics().characterWidth;
    }
}

void SceneBuilder::events()
{
    m_pen.begin(GraphScene::Kind::Lines, withAlpha(eventColor, 102));
    for (const EventLine& event : m_events) {
        const double x = m_graph.xOf(event.seconds);
        m_pen.vertex(x, m_plot.top());
        m_pen.vertex(x, m_plot.bottom());
    }
    m_pen.end();
}

void SceneBuilder::layOutCursor()
{
    constexpr double around = 15.0;
    if (m_graph.settings.hasCursor) // even when out of sight, so that texts do not jump
        m_cursorWidth = widthOf(cursorText(m_graph.cursorTime, m_graph.cursorValue)) + around;
}

double SceneBuilder::beginOfCursorText(double x, double width) const
{
    const double right = x + 5.0;
    const double left = x - 5.0 - width;
    const auto fits = [&](double begin) {
        return begin >= m_plot.left() + 2.0 && begin + width + 5.0 <= m_plot.right();
    };
    const auto isFree = [&](double begin) {
        const QRectF box(begin, m_plot.top(), width, m_row);
        return std::ranges::none_of(m_plates,
                                    [&](const QRectF& plate) { return plate.intersects(box); });
    };
    double beyond = m_plot.left(); // right end of the lowest band's legend
    for (const QRectF& plate : m_plates) {
        if (plate.top() < m_plot.top() + m_row && plate.left() < m_plot.center().x())
            beyond = std::max(beyond, plate.right() + 2.0);
    }
    for (const double begin : {right, left, beyond}) {
        if (fits(begin) && isFree(begin))
            return begin;
    }
    // If neither side has room, the text starts at the plot's edge.
    return fits(right) ? right : std::max(left, m_plot.left() + 2.0);
}

void SceneBuilder::cursor()
{
    const double x = m_graph.xOf(m_graph.cursorTime);
    if (x < m_plot.left() || x > m_plot.right())
        return;
    const QColor color = legible(cursorColor);
    m_pen.line(x, m_plot.top(), x, m_plot.bottom(), color);
    const double y = m_graph.yOf(m_graph.selectedTrace, m_graph.cursorValue);
    const QRectF area =
        m_graph.hasTrace(m_graph.selectedTrace) ? bandRect(m_graph.selectedTrace) : m_plot;
    if (y >= area.top() && y <= area.bottom())
        m_pen.line(m_plot.left(), y, m_plot.right(), y, withAlpha(color, 120));
    const QString label = cursorText(m_graph.cursorTime, m_graph.cursorValue);
    text(beginOfCursorText(x, widthOf(label)), m_plot.top() + m_row / 2.0, Qt::AlignLeft, label,
         color);
}

std::size_t SceneBuilder::fitting(std::size_t rows, double height) const
{
    const auto lines = static_cast<std::size_t>(std::max(height / m_row, 1.0));
    return rows <= lines ? rows : lines - 1;
}

QString SceneBuilder::moreText(std::size_t count)
{
    const int n = static_cast<int>(count);
    return QCoreApplication::translate("KOLT::GraphScene", "... and %n more", nullptr, n);
}

void SceneBuilder::legend(const std::vector<int>& visible)
{
    const bool isInBands = hasLegendInBands();
    // The lowest line of the plot is left to the cursor's text.
    const double top = topOfTexts(m_plot);
    const double height = top - m_plot.top() - (m_cursorWidth > 0.0 ? m_row : 0.0);
    const std::size_t shown = isInBands ? visible.size() : fitting(visible.size(), height);
    const double left = m_plot.left() + legendIndent;
    double y = top - m_row / 2.0;
    for (const int index : std::span(visible).first(shown)) {
        const GraphTrace& trace = m_graph.trace(index);
        if (isInBands)
            y = topOfTexts(bandRect(index)) - m_row / 2.0;
        m_swatches.push_back({{m_plot.left() + 6.0, y - 4.0, 8.0, 8.0}, trace.color});
        plotText(
            left, y, Qt::AlignLeft,
            legendText(m_graph, index, m_graph.cursorTime, charactersIn(rightOfTexts(y) - left)),
            trace.color);
        y -= m_row;
    }
    if (shown < visible.size())
        plotText(left, y, Qt::AlignLeft, moreText(visible.size() - shown),
                 m_graph.settings.labelColor);
}

void SceneBuilder::layOutStatistic(const std::vector<int>& visible)
{
    const double from = std::min(m_graph.markerLeft, m_graph.markerRight);
    const double to = std::max(m_graph.markerLeft, m_graph.markerRight);
    if (!(to > from) || visible.empty())
        return;
    QString heading =
        QCoreApplication::translate("KOLT::GraphScene", "Between the markers: min, max, mean");
    if (widthOf(heading) > m_plot.width() - 4.0 * panelPadding)
        heading = heading.section(QStringLiteral(": "), -1);
    QStringList& lines = m_panelLines;
    lines = {heading};
    // The panel lies above the line of the cursor's text.
    const double height = m_plot.height() - 2.0 * m_row - 3.0 * panelPadding;
    const std::size_t shown = fitting(visible.size(), height);
    const int longest = std::max(charactersIn(m_plot.width() / 2.0 - 3.0 * panelPadding),
                                 static_cast<int>(heading.size()));
    for (const int index : std::span(visible).first(shown))
        lines << statisticText(m_graph, index, from, to, longest);
    if (shown < visible.size())
        lines << moreText(visible.size() - shown);
    double width = 0.0;
    for (const QString& content : lines)
        width = std::max(width, widthOf(content) + 2.0 * panelPadding);
    m_panel = {m_plot.right() - width - panelPadding, m_plot.top() + m_row + panelPadding, width,
               m_row * static_cast<double>(lines.size()) + panelPadding};
}

double SceneBuilder::rightOfTexts(double y) const
{
    const bool isBeside = y + m_row / 2.0 > m_panel.top() && y - m_row / 2.0 < m_panel.bottom();
    return (isBeside ? m_panel.left() - panelPadding : m_plot.right()) -
           (isCursorRow(y) ? m_cursorWidth : 0.0);
}

void SceneBuilder::statistic()
{
    if (m_panelLines.isEmpty())
        return;
    // Texts are drawn over all figures: those below the panel would show through.
    std::erase_if(m_scene.texts, [this](const GraphScene::Text& other) {
        const double width = widthOf(other.text);
        const bool isRight = other.alignment.testFlag(Qt::AlignRight);
        return m_panel.intersects(
            {isRight ? other.x - width : other.x, other.y - m_row / 2.0, width, m_row});
    });
    m_pen.quad(m_panel, panelColor);
    double y = m_panel.bottom() - panelPadding / 2.0 - m_row / 2.0;
    for (const QString& content : m_panelLines) {
        text(m_panel.left() + panelPadding, y, Qt::AlignLeft, content, Qt::black);
        y -= m_row;
    }
}

void SceneBuilder::handles(const std::vector<int>& visible)
{
    const double height = m_graph.rowHeight();
    double middle = m_graph.height() - height * 0.5;
    for (const int index : visible) {
        const bool isHovered = m_input.hoveredTrace() == index;
        const QColor color = isHovered ? hoverColor : QColor(Qt::black);
        for (const double dy : {-4.0, 0.0, 4.0})
            m_pen.line(handleX - 5.0, middle + dy, handleX + 5.0, middle + dy, color, 2.0F);
        if (m_input.draggedTrace() == index)
            text(handleX + 10.0, middle + m_input.dragOffset(), Qt::AlignLeft,
                 m_graph.trace(index).name, m_graph.settings.labelColor);
        middle -= height;
    }
    if (m_input.draggedTrace()) {
        const double y = m_graph.height() - height * m_input.targetRow();
        m_pen.line(m_plot.left(), y, m_plot.right(), y, dragColor, 5.0F);
    }
}

} // namespace KOLT
