#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <vector>

namespace Zinc2D {

/// 0xAARRGGBB
using Argb = std::uint32_t;

enum class Align { Left, Center, Right };

enum class Weight { Normal, Bold };

/// Whether a line ends at its last point or goes on to its first.
enum class Path { Open, Closed };

/// One drawing command. Lengths and positions are in view units, from its upper left corner.
struct DrawCommand
{
    enum class Kind {
        Fill,   ///< a polygon whose edges do not cross
        Stroke, ///< a line through the points
        Text,   ///< aligned to the first point
        Image   ///< four corners: upper left, upper right, lower right, lower left
    };

    Kind kind = Kind::Fill;
    Argb color = 0; ///< for images only the alpha counts
    std::size_t firstPoint = 0;
    std::size_t pointCount = 0;
    double thickness = 1.0;
    Path path = Path::Open;
    QString text;       ///< or path of an image
    double size = 0.0;  ///< height of the font; a text is centred on its capital letters
    double angle = 0.0; ///< of the text, degrees clockwise
    Weight weight = Weight::Normal;
    Align align = Align::Left;
    int clip = -1; ///< index of the clip area; -1: none
};

/// The drawing commands of an element in painting order.
struct DrawList
{
    std::vector<DrawCommand> commands;
    std::vector<QPointF> points;
    std::vector<QRectF> clips;

    void clear()
    {
        commands.clear();
        points.clear();
        clips.clear();
    }
};

} // namespace Zinc2D
