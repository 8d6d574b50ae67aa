#include "graph/EpisodePicture.h"

#include "graph/AxisDrawing.h"
#include "graph/PlotLayout.h"
#include "graph/TraceDrawing.h"
#include "graph/TraceFeeder.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr QColor background(0xff, 0xff, 0xff);
constexpr QColor axisColor(0xf4, 0xf5, 0xf6);
constexpr QColor gridColor(0xc4, 0xca, 0xd0);
constexpr QColor textColor(0x1b, 0x22, 0x29);
constexpr QColor edgeColor(0x5d, 0x68, 0x73);
constexpr QColor groupColor(0x8a, 0x92, 0x9b);
constexpr QColor ownColors[] = {{0x1f, 0x4e, 0x79}, {0x7a, 0x1f, 0x6b}, {0x00, 0x5f, 0x56}};
constexpr int bandAlpha = 60;
constexpr float thin = 0.8F;
constexpr double nameMargin = 4.0; ///< beside the names, and around them
constexpr float thick = 2.0F;

/// What the traces are of: measured values, if there are any, as lamps have another scale. That of
/// the peak comes first.
std::vector<const ProfileParameter*> ownParameters(const Episode& episode)
{
    std::vector<const ProfileParameter*> own;
    for (const ProfileParameter* parameter : episode.parameters) {
        if (episode.isLampOnly || parameter->role != Role::WarningLamp)
            own.push_back(parameter);
    }
    if (episode.peak)
        std::stable_partition(own.begin(), own.end(), [&](const ProfileParameter* parameter) {
            return parameter == episode.peak->parameter;
        });
    return own;
}

/// Draws a trace with lines of this width.
void drawWithWidth(ScenePen& pen, const Graph& graph, int index, float width, double pixelRatio)
{
    const std::size_t before = pen.scene().figures.size();
    drawTrace(pen, graph, index, graph.plot(), pixelRatio);
    for (std::size_t i = before; i < pen.scene().figures.size(); ++i)
        pen.scene().figures[i].width = width;
}

} // namespace

void EpisodePicture::show(const Profile& profile, const DataSet& dataSet, const Episode& episode)
{
    std::vector<const ProfileParameter*> parameters = ownParameters(episode);
    m_ownTraces = static_cast<int>(parameters.size());
    for (const MomentValue& value : episode.group) {
        if (std::ranges::find(parameters, value.parameter) == parameters.end())
            parameters.push_back(value.parameter);
    }
    parameters.resize(std::min(parameters.size(), static_cast<std::size_t>(Graph::maxTraces)));
    m_episode = {episode.begin, episode.end};
    m_peak = episode.peak;
    m_graph = Graph();
    GraphSettings& settings = m_graph.editSettings();
    settings.isSplit = false;
    settings.background = background;
    settings.gridColor = gridColor;
    settings.labelColor = textColor;
    settings.labelBackground = axisColor;
    const TimeRange window{episode.begin - secondsAround, episode.end + secondsAround};
    m_graph.setTraceCount(static_cast<int>(parameters.size()));
    for (int i = 0; i < m_graph.traceCount(); ++i) {
        feedTraceWithin(m_graph, i, profile, *parameters[static_cast<std::size_t>(i)], dataSet,
                        window);
        m_graph.trace(i).setStyle(0); // no dashes
        m_graph.trace(i).color = i < m_ownTraces
                                     ? ownColors[static_cast<std::size_t>(i) % std::size(ownColors)]
                                     : groupColor;
    }
    m_reference = m_graph.source(0);
    m_graph.setWindow(window.start, window.end);
}

GraphScene EpisodePicture::scene(const QSizeF& size, const GraphMetrics& metrics, double pixelRatio)
{
    m_graph.setMetrics(metrics);
    m_graph.setSize(size.width(), size.height());
    m_graph.rebuild();
    GraphScene scene;
    scene.clearColor = background;
    ScenePen pen(scene, m_graph);
    drawBands(pen);
    drawMargins(pen, m_graph);
    const int decimals = m_graph.shownDecimals(0);
    drawValueAxis(pen, m_graph, m_graph.commonScale(), decimals);
    drawTimeAxis(pen, m_graph, PlotLayout(m_graph));
    for (int i = m_ownTraces; i < m_graph.traceCount(); ++i)
        drawWithWidth(pen, m_graph, i, thin, pixelRatio);
    for (int i = std::min(m_ownTraces, m_graph.traceCount()) - 1; i >= 0; --i)
        drawWithWidth(pen, m_graph, i, thick, pixelRatio);
    const QRectF plot = m_graph.plot();
    for (const double seconds : {m_episode.start, m_episode.end}) {
        const double x = m_graph.xOf(seconds);
        pen.line(x, plot.top(), x, plot.bottom(), edgeColor);
    }
    if (m_peak) {
        constexpr double half = 3.5;
        const double y =
            m_graph.commonScale().yOf(m_peak->number * m_reference.factor + m_reference.offset);
        pen.quad({m_graph.xOf(m_peak->seconds) - half, y - half, 2.0 * half, 2.0 * half},
                 textColor);
    }
    drawNames(pen);
    return scene;
}

void EpisodePicture::drawBands(ScenePen& pen) const
{
    if (m_reference.parameter == nullptr || m_reference.parameter->threshold == nullptr)
        return;
    const QRectF plot = m_graph.plot();
    const std::vector<ThresholdStep>& steps = m_reference.parameter->threshold->steps;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto yOf = [&](const ThresholdStep& step) {
            const double shown = step.value * m_reference.factor + m_reference.offset;
            return std::clamp(m_graph.commonScale().yOf(shown), plot.top(), plot.bottom());
        };
        const double low = yOf(steps[i]);
        const double high = i + 1 < steps.size() ? yOf(steps[i + 1]) : plot.bottom();
        if (steps[i].grade.state != ThresholdState::Ok && high > low)
            pen.quad({plot.left(), low, plot.width(), high - low},
                     withAlpha(QColor(steps[i].grade.color), bandAlpha));
    }
}

/// Whether a trace runs through the area.
bool EpisodePicture::isCrossed(const QRectF& area) const
{
    const GraphScale scale = m_graph.commonScale();
    for (int i = 0; i < m_graph.traceCount(); ++i) {
        const std::vector<GraphColumn>& columns = m_graph.trace(i).columns();
        for (std::size_t j = 0; j < columns.size(); ++j) {
            const GraphColumn& from = columns[j];
            const GraphColumn& to = columns[std::min(j + 1, columns.size() - 1)];
            if (m_graph.xOf(to.time) >= area.left() && m_graph.xOf(from.time) <= area.right() &&
                scale.yOf(std::max(from.highest, to.highest)) >= area.top() &&
                scale.yOf(std::min(from.lowest, to.lowest)) <= area.bottom())
                return true;
        }
    }
    return false;
}

/// The upper left corner of the names' area: that of the plot, or of the first corner where no
/// trace runs.
QPointF EpisodePicture::namesPlace(const QSizeF& names) const
{
    const QRectF plot = m_graph.plot();
    const double right = std::max(plot.left(), plot.right() - names.width());
    const double low = std::min(plot.bottom(), plot.top() + names.height());
    const QPointF corners[] = {
        {plot.left(), plot.bottom()}, {right, plot.bottom()}, {plot.left(), low}, {right, low}};
    const auto* const free = std::ranges::find_if(corners, [&](const QPointF& corner) {
        return !isCrossed({corner.x(), corner.y() - names.height(), names.width(), names.height()});
    });
    return free != std::end(corners) ? *free : corners[0];
}

/// The names of what crossed in their colours, and those of the group, as far as there is room.
void EpisodePicture::drawNames(ScenePen& pen) const
{
    const QRectF plot = m_graph.plot();
    const double line = pen.metrics().lineHeight;
    const int characters = pen.metrics().charactersIn(plot.width() - 2.0 * nameMargin);
    const int rows = std::min(m_graph.traceCount(), static_cast<int>(plot.height() / line));
    qsizetype longest = 0;
    for (int i = 0; i < rows; ++i)
        longest = std::max<qsizetype>(longest, m_graph.trace(i).name.left(characters).size());
    const QPointF place =
        namesPlace({static_cast<double>(longest) * pen.metrics().characterWidth + 2.0 * nameMargin,
                    rows * line + nameMargin});
    double y = place.y() - line / 2.0 - nameMargin / 2.0;
    for (int i = 0; i < rows; ++i, y -= line)
        pen.plateText(place.x() + nameMargin, y, Qt::AlignLeft,
                      m_graph.trace(i).name.left(characters), m_graph.trace(i).color);
}

} // namespace KOLT
