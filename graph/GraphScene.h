#pragma once

#include "graph/GraphInput.h"

#include <QRectF>
#include <QString>

#include <vector>

namespace KOLT {

/// One frame of the graph as a finished list of what to draw, in pixels from the lower left. It is
/// drawn in order: first all figures, then all texts.
struct GraphScene
{
    enum class Kind { Quads, Lines, Strip };

    /// A run of vertices.
    struct Figure
    {
        Kind kind = Kind::Lines;
        QColor color;
        float width = 1.0F;      ///< pixels
        bool isStippled = false; ///< level and upright lines only: every other pixel
        QRectF clip;             ///< empty: none
        int first = 0;           ///< vertices
        int count = 0;
    };

    struct Text
    {
        double x = 0.0;
        double y = 0.0; ///< of its middle
        Qt::Alignment alignment = Qt::AlignLeft;
        QString text;
        QColor color;
    };

    QColor clearColor;
    std::vector<float> vertices; ///< x and y in turn
    std::vector<Figure> figures;
    std::vector<Text> texts;
};

/// Builds the frame. Costs O(columns), not O(samples). `pixelRatio`: pixels of the framebuffer for
/// each of the graph's.
GraphScene buildScene(const Graph& graph, const GraphInput& input, double pixelRatio = 1.0);

} // namespace KOLT
