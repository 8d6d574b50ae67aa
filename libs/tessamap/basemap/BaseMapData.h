#pragma once

#include <QByteArray>
#include <QPointF>
#include <QRectF>

#include <optional>
#include <vector>

namespace Tessa {

/// The lines of the embedded world map in Mercator coordinates (Mercator.h). A line across 180
/// degrees continues beyond 0 or 1.
struct BaseMapData
{
    struct Line
    {
        std::vector<QPointF> points;
        QRectF bounds;
        bool isPolar = false; ///< runs around the south pole and is to be closed across it
        bool isIce = false;
    };

    struct Layer
    {
        std::vector<Line> land; ///< closed rings; a ring within another is a hole
        std::vector<Line> borders;
    };

    Layer coarse; ///< for zoom 0 to 2
    Layer fine;

    /// Reads the file's content (docs/map.md); std::nullopt when it is damaged.
    static std::optional<BaseMapData> read(const QByteArray& content);

    /// The map from the program's resources.
    static BaseMapData embedded();
};

/// The ring clipped to the rectangle, whose sides it follows where it was outside.
std::vector<QPointF> clippedRing(const std::vector<QPointF>& ring, const QRectF& to);

} // namespace Tessa
