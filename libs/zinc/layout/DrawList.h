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

/// One thing to draw. Lengths and places are in the view's units, from its upper left corner.
struct DrawCommand
{
    enum class Kind {
        Fill,   ///< the area that the points enclose, which do not cross themselves
        Stroke, ///< a line along the points
        Text,   ///< at the first point: there it begins, ends, or has its middle
        Image   ///< its four corners: upper left, upper right, lower right, lower left
    };

    Kind kind = Kind::Fill;
    Argb color = 0; ///< for images only the alpha counts
    std::size_t firstPoint = 0;
    std::size_t pointCount = 0;
    double thickness = 1.0;
    bool isClosed = false;
    QString text; ///< or path of an image
    /// Height of the font. The middle of a text's height is that of its capital letters.
    double size = 0.0;
    double angle = 0.0; ///< of the text, degrees clockwise
    bool isBold = false;
    Align align = Align::Left;
    int clip = -1; ///< index of the area outside which nothing is drawn; -1: none
};

/// What an element looks like, in the order of painting.
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
