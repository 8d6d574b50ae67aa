#pragma once

#include "libs/zinc/layout/DrawList.h"

#include <QTransform>

#include <span>

namespace Zinc2D {

/// How the contents of a group are drawn.
struct Placement
{
    QTransform transform;
    double scale = 1.0;
    double angle = 0.0; ///< degrees clockwise
    double opacity = 1.0;
    bool isVisible = true;

    bool operator==(const Placement&) const = default;
};

/// Adds drawing commands to a draw list. Angles are in degrees clockwise from up.
class Canvas
{
public:
    Canvas(DrawList& list, const Placement& placement)
        : m_list(list)
        , m_placement(placement)
    {
    }

    struct TextLook
    {
        double size = 16.0;
        Weight weight = Weight::Normal;
        Align align = Align::Center;
        Argb color = 0xFFFFFFFF;
    };

    void polygon(std::span<const QPointF> points, Argb fill);
    void polyline(std::span<const QPointF> points, Argb color, double thickness,
                  Path path = Path::Open);
    void line(const QPointF& from, const QPointF& to, Argb color, double thickness);
    void rectangle(const QRectF& area, Argb fill, double corner = 0.0);
    void frame(const QRectF& area, Argb color, double thickness, double corner = 0.0);
    void circle(const QPointF& center, double radius, Argb fill);
    void circleLine(const QPointF& center, double radius, Argb color, double thickness);
    /// A stroke along a circle.
    void arc(const QPointF& center, double radius, double start, double sweep, Argb color,
             double thickness);
    /// An isosceles triangle that points to the right (0), down (90), left (180) or up (270).
    void pointer(const QPointF& tip, double length, double width, double direction, Argb fill);
    void text(const QPointF& place, const QString& text, const TextLook& look);
    void image(const QRectF& area, const QString& path);

    /// Clips the following commands to the area; an empty area ends that. The placement must not
    /// rotate.
    void clip(const QRectF& area);

private:
    DrawCommand& add(DrawCommand::Kind kind, Argb color, std::span<const QPointF> points);

    DrawList& m_list;
    const Placement& m_placement;
    int m_clip = -1;
};

/// The colour with its alpha multiplied by the opacity.
Argb faded(Argb color, double opacity);

/// The point at an angle of a circle.
QPointF onCircle(const QPointF& center, double radius, double angle);

} // namespace Zinc2D
