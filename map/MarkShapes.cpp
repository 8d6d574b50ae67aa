#include "map/MarkShapes.h"

namespace KOLT {

namespace {

constexpr double dotRadius = 4.0;
constexpr double rimWidth = 1.6;

} // namespace

void MarkShapes::polygon(std::initializer_list<Tessa::WindowPoint> corners, const QColor& color)
{
    const auto vertex = [&](const Tessa::WindowPoint& point) {
        m_vertices.insert(m_vertices.end(),
                          {static_cast<float>(point.x), static_cast<float>(point.y), 0.0F,
                           color.redF(), color.greenF(), color.blueF(), 1.0F});
    };
    for (auto corner = corners.begin() + 1; corner + 1 != corners.end(); ++corner) {
        vertex(*corners.begin());
        vertex(*corner);
        vertex(*(corner + 1));
    }
}

void MarkShapes::add(const MapMark& mark, Tessa::WindowPoint place)
{
    // A white rim sets each mark off from the track and the map.
    const auto both = [&](auto&& draw) {
        draw(rimWidth, QColor(255, 255, 255));
        draw(0.0, mark.color);
    };
    const double x = place.x;
    const double y = place.y;
    switch (mark.kind) {
    case MapMark::Kind::TakeOff: // points up
        both([&](double rim, const QColor& color) {
            polygon({{x - 6.0 - rim, y - 5.0 - rim},
                     {x + 6.0 + rim, y - 5.0 - rim},
                     {x, y + 7.0 + 1.6 * rim}},
                    color);
        });
        break;
    case MapMark::Kind::Landing: // points down
        both([&](double rim, const QColor& color) {
            polygon({{x - 6.0 - rim, y + 5.0 + rim},
                     {x, y - 7.0 - 1.6 * rim},
                     {x + 6.0 + rim, y + 5.0 + rim}},
                    color);
        });
        break;
    case MapMark::Kind::Note: // a pennant on a pole that stands at the place
        both([&](double rim, const QColor& color) {
            polygon({{x - 1.0 - rim, y - rim},
                     {x + 1.0 + rim, y - rim},
                     {x + 1.0 + rim, y + 15.0 + rim},
                     {x - 1.0 - rim, y + 15.0 + rim}},
                    color);
            polygon({{x - rim, y + 15.0 + rim},
                     {x - rim, y + 6.0 - rim},
                     {x + 10.0 + 1.6 * rim, y + 10.5}},
                    color);
        });
        break;
    case MapMark::Kind::Exceedance:
        both([&](double rim, const QColor& color) {
            const double r = dotRadius + rim;
            const double d = r * 0.7071;
            polygon({{x + r, y},
                     {x + d, y + d},
                     {x, y + r},
                     {x - d, y + d},
                     {x - r, y},
                     {x - d, y - d},
                     {x, y - r},
                     {x + d, y - d}},
                    color);
        });
        break;
    }
}

} // namespace KOLT
