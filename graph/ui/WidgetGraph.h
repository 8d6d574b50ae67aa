#pragma once

#include "graph/ui/WidgetGraphBase.h"

#include <QFont>
#include <QHash>
#include <QStaticText>

namespace KOLT {

/// The oscilloscope drawn with vertex arrays of the fixed-function pipeline.
class WidgetGraph : public WidgetGraphBase
{
    Q_OBJECT

public:
    explicit WidgetGraph(QWidget* parent = nullptr)
        : WidgetGraphBase(parent)
    {
    }

    /// Whether OpenGL contexts here have the fixed-function pipeline. Determined once.
    static bool isSupported();

protected:
    void drawScene(const GraphScene& scene, double pixelRatio) override;

private:
    void drawFigures(const GraphScene& scene, double pixelRatio) const;
    void drawTexts(QPainter& painter, const GraphScene& scene);
    const QStaticText& staticText(const QString& text, QHash<QString, QStaticText>& before);

    // Those of the last frame: most recur in the next, and laying them out takes longer than
    // drawing.
    QHash<QString, QStaticText> m_texts;
    QFont m_textFont; ///< font of m_texts
};

} // namespace KOLT
