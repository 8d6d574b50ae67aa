#include "report/ReportGraphs.h"

#include "graph/ScenePainter.h"

#include <QPainter>
#include <QTextDocument>
#include <QTextFormat>

namespace KOLT {

namespace {

constexpr int fontPixels = 10; ///< of the scene; its texts were placed for this

} // namespace

ReportGraphs::ReportGraphs(const EngineReport& report, const QFont& font)
    : m_report(report)
    , m_font(font)
{
    m_font.setPixelSize(fontPixels);
}

const ReportEpisode* ReportGraphs::episodeOf(const QTextFormat& format) const
{
    const QString name = format.toImageFormat().name();
    const std::size_t index = name.section(QLatin1Char(':'), 1).toULongLong();
    const bool isThere = index < m_report.episodes.size() && m_report.episodes[index].graph;
    return isThere ? &m_report.episodes[index] : nullptr;
}

QSizeF ReportGraphs::intrinsicSize(QTextDocument* document, int /*position*/,
                                   const QTextFormat& format)
{
    const ReportEpisode* const episode = episodeOf(format);
    const double width = document->pageSize().width();
    const QSizeF size = episode != nullptr ? episode->graphSize() : QSizeF(1.0, 0.0);
    return {width, width * size.height() / size.width()};
}

void ReportGraphs::drawObject(QPainter* painter, const QRectF& area, QTextDocument* /*document*/,
                              int /*position*/, const QTextFormat& format)
{
    const ReportEpisode* const episode = episodeOf(format);
    if (episode == nullptr)
        return;
    painter->save();
    painter->translate(area.topLeft());
    const QSizeF size = episode->graphSize();
    const double scale = area.width() / size.width();
    painter->scale(scale, scale);
    painter->setFont(m_font);
    paintScene(*painter, *episode->graph, size);
    painter->restore();
}

} // namespace KOLT
