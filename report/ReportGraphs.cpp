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

QSizeF ReportGraphs::intrinsicSize(QTextDocument* document, int /*position*/,
                                   const QTextFormat& /*format*/)
{
    const double width = document->pageSize().width();
    return {width, width * ReportEpisode::graphSize.height() / ReportEpisode::graphSize.width()};
}

void ReportGraphs::drawObject(QPainter* painter, const QRectF& area, QTextDocument* /*document*/,
                              int /*position*/, const QTextFormat& format)
{
    const QString name = format.toImageFormat().name();
    const std::size_t index = name.section(QLatin1Char(':'), 1).toULongLong();
    if (index >= m_report.episodes.size() || !m_report.episodes[index].graph)
        return;
    painter->save();
    painter->translate(area.topLeft());
    const double scale = area.width() / ReportEpisode::graphSize.width();
    painter->scale(scale, scale);
    painter->setFont(m_font);
    paintScene(*painter, *m_report.episodes[index].graph, ReportEpisode::graphSize);
    painter->restore();
}

} // namespace KOLT
