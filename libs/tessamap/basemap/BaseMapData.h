#pragma once

#include <QByteArray>
#include <QPointF>
#include <QRectF>

#include <optional>
#include <vector>

namespace Tessa {

/// The lines of the embedded world map in Mercator's square (Mercator.h). A line across 180 degrees
/// goes on beyond 0 or 1.
struct BaseMapData
{
    struct Line
    {
        std::vector<QPointF> points;
        QRectF bounds;
        bool isPolar = false; ///< runs around the south pole, over which it is to be closed
        bool isIce = false;
    };

    struct Layer
    {
        std::vector<Line> land; ///< rings, the last point being the first; holes lie within others
        std::vector<Line> borders;
    };

    Layer coarse; ///< for zoom 0 to 2
    Layer fine;

    /// Of the file's content (docs/map.md); std::nullopt when it is damaged.
    static std::optional<BaseMapData> read(const QByteArray& content);

    /// The map that comes with the program.
    static BaseMapData embedded();
};

/// The ring within the rectangle. Where it leaves, it follows the rectangle's sides.
std::vector<QPointF> clippedRing(const std::vector<QPointF>& ring, const QRectF& to);

} // namespace Tessa
