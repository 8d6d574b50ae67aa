#include "map/FreeArea.h"

#include <algorithm>
#include <vector>

namespace KOLT {

namespace {

constexpr double leastPart = 0.25; ///< of the window's width and height

/// The largest rectangles within `area` beside, above and below `other`.
std::vector<QRectF> around(const QRectF& area, const QRectF& other)
{
    if (!area.intersects(other))
        return {area};
    std::vector<QRectF> parts;
    const auto add = [&parts](const QRectF& part) {
        if (part.width() > 0.0 && part.height() > 0.0)
            parts.push_back(part);
    };
    add({area.topLeft(), QPointF(other.left(), area.bottom())});
    add({QPointF(other.right(), area.top()), area.bottomRight()});
    add({area.topLeft(), QPointF(area.right(), other.top())});
    add({QPointF(area.left(), other.bottom()), area.bottomRight()});
    return parts;
}

} // namespace

QRectF freeArea(const QSizeF& window, std::span<const QRectF> covered, double aspect)
{
    const QRectF whole({0.0, 0.0}, window);
    std::vector<QRectF> areas{whole};
    for (const QRectF& other : covered) {
        std::vector<QRectF> smaller;
        for (const QRectF& area : areas)
            std::ranges::move(around(area, other), std::back_inserter(smaller));
        areas = std::move(smaller);
    }
    const auto scaleIn = [aspect](const QRectF& area) {
        return std::min(area.width(), area.height() * aspect);
    };
    const auto best = std::ranges::max_element(areas, {}, scaleIn);
    const bool isEnough = best != areas.end() && best->width() >= leastPart * window.width() &&
                          best->height() >= leastPart * window.height();
    return isEnough ? *best : whole;
}

} // namespace KOLT
