#pragma once

#include "graph/GraphInput.h"

#include <QRectF>
#include <QString>

#include <vector>

namespace KOLT {

/// One frame of the graph as a display list, in pixels from the lower left. All figures are drawn
/// in order, then all texts.
struct GraphScene
{
    enum class Kind { Quads, Lines, Strip };

    /// One primitive and its run of vertices.
    struct Figure
    {
        Kind kind = Kind::Lines;
        QColor color;
        float width = 1.0F;      ///< pixels
        bool isStippled = false; ///< every other pixel; for horizontal and vertical lines only
        QRectF clip;             ///< no clipping if empty
        int first = 0;           ///< index of the first vertex
        int count = 0;           ///< vertices
    };

    struct Text
    {
        double x = 0.0;
        double y = 0.0; ///< vertical centre
        Qt::Alignment alignment = Qt::AlignLeft;
        QString text;
        QColor color;
    };

    /// Where the scale label of a trace is, for its tool tip.
    struct ScaleLabel
    {
        QRectF area;
        int trace = 0;
    };

    QColor clearColor;
    std::vector<float> vertices; ///< x and y alternating
    std::vector<Figure> figures;
    std::vector<Text> texts;
    std::vector<ScaleLabel> scaleLabels;
};

/// Builds the frame in O(columns), independent of the samples. `pixelRatio`: framebuffer pixels per
/// logical pixel.
GraphScene buildScene(const Graph& graph, const GraphInput& input, double pixelRatio = 1.0);

} // namespace KOLT
