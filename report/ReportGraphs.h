#pragma once

#include "report/EngineReport.h"

#include <QObject>
#include <QTextObjectInterface>

namespace KOLT {

/// Draws the images "graph:N" of a document with its painter, as lines instead of pixels.
class ReportGraphs : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// `font` in any size.
    ReportGraphs(const EngineReport& report, const QFont& font);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    /// Null if there is none with a graph.
    const ReportEpisode* episodeOf(const QTextFormat& format) const;

    const EngineReport& m_report;
    QFont m_font;
};

} // namespace KOLT
