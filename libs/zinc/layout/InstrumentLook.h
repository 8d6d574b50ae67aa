#pragma once

#include "libs/zinc/layout/Dial.h"
#include "libs/zinc/layout/Properties.h"

#include <vector>

/// What all instruments share: colours, parts of scales, digital values and tick labels.
namespace Zinc2D {

namespace Palette {
constexpr Argb white = 0xFFFFFFFF;
constexpr Argb label = 0xFFB4BEC8;
constexpr Argb tick = 0xFFDCE2E8;
constexpr Argb minorTick = 0xFF7C8894;
constexpr Argb track = 0xFF2B333B;
constexpr Argb well = 0xFF0A0D10; ///< behind digits and unlit lamps
constexpr Argb edge = 0xFF39434C;
constexpr Argb unlit = 0xFF5A6671;
constexpr Argb normal = 0xFF00C853;
constexpr Argb warning = 0xFFFFAB00;
constexpr Argb limit = 0xFFFF1744;
constexpr Argb onWarning = 0xFF14100A; ///< text on that colour
constexpr Argb none = 0x00000000;
} // namespace Palette

/// A threshold's state: 0 normal, 1 warning, 2 limit.
int stateOf(const Properties& element, Property property = Property::State);

/// Colour of a state; `normal` is that of state 0.
Argb stateColor(int state, Argb normal);

/// A range of an instrument, clipped to its scale.
struct ScaleRange
{
    double start = 0.0; ///< position on the dial
    double length = 0.0;
    Argb color = 0;
};

/// A limit line of an instrument.
struct ScaleMark
{
    double value = 0.0;
    double place = 0.0; ///< position on the dial
    Argb color = 0;
};

/// The visible ranges and marks whose values are set; none on an unusable dial.
std::vector<ScaleRange> rangesOf(const Properties& instrument, const Dial& dial);
std::vector<ScaleMark> marksOf(const Properties& instrument, const Dial& dial);

/// The digital value of an instrument. Outside the normal range it is inverted on a field in the
/// state's colour, so that it is noticed without colour vision too.
struct Digits
{
    QString text;
    double size = 24.0;
    int state = 0;
    Argb color = Palette::white;
    Align align = Align::Center;
};

/// Estimated largest width of the digits and their field; this layer has no font metrics.
double digitsWidth(const QString& text, double size);
void drawDigits(Canvas& canvas, const QPointF& place, const Digits& digits);

/// The label of a tick.
QString tickLabel(const Properties& element, double value);

} // namespace Zinc2D
