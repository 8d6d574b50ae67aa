#pragma once

#include "graph/WidgetGraphBase.h"

namespace KOLT {

/// The oscilloscope drawn with the fixed-function pipeline, from vertex arrays.
class WidgetGraph : public WidgetGraphBase
{
    Q_OBJECT

public:
    explicit WidgetGraph(QWidget* parent = nullptr)
        : WidgetGraphBase(parent)
    {
    }

protected:
    void drawScene(const GraphScene& scene, double pixelRatio) override;

private:
    void drawFigures(const GraphScene& scene, double pixelRatio) const;
    void drawTexts(QPainter& painter, const GraphScene& scene) const;
};

} // namespace KOLT
