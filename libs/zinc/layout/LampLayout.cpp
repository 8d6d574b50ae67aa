#include "libs/zinc/layout/LampLayout.h"

#include "libs/zinc/layout/InstrumentLook.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace Zinc2D {

namespace {

constexpr double usualCorner = 4.0;
constexpr double edgeThickness = 1.5;
constexpr double textHeight = 0.45; ///< relative to the height of a lamp or row
constexpr double lineHeight = 1.2;  ///< relative to the text size
constexpr double textIndent = 0.5;  ///< relative to the text size
constexpr int mostRows = 100;

const auto unknown = QStringLiteral("---");

/// The legend of a lamp; "|" separates its lines.
void drawLines(const Properties& lamp, const QRectF& area, const QString& text, Argb color,
               Canvas& canvas)
{
    const QStringList lines = text.split(u'|');
    const auto count = static_cast<double>(lines.size());
    const double size = lamp.number(Property::Size, textHeight * area.height() / count);
    double y = area.center().y() - (count - 1.0) / 2.0 * lineHeight * size;
    for (const QString& line : lines) {
        canvas.text({area.center().x(), y}, line, {size, Weight::Bold, Align::Center, color});
        y += lineHeight * size;
    }
}

/// The active messages, highest priority first.
std::vector<const Element*> activeMessages(const Properties& annunciator)
{
    std::vector<const Element*> active;
    for (const Element& part : annunciator.parts()) {
        const Properties message = annunciator.of(part);
        if (message.isTrue(Property::When) && message.isVisible())
            active.push_back(&part);
    }
    std::ranges::stable_sort(active, std::greater(), [&](const Element* part) {
        return annunciator.of(*part).number(Property::Priority, 0.0);
    });
    return active;
}

} // namespace

void layoutLamp(const Properties& lamp, Canvas& canvas)
{
    const QRectF area = lamp.area();
    const std::optional<double> value = lamp.number(Property::Value);
    const double corner = lamp.number(Property::Corner, usualCorner);
    QString text = value ? lamp.text(Property::Text) : unknown;
    Argb color = lamp.color(Property::Color, Palette::unlit);
    Argb background = lamp.color(Property::Background, Palette::well);
    Argb edge = lamp.color(Property::Stroke, Palette::edge);
    if (const Element* const active = value ? lamp.activeCase(value) : nullptr) {
        const Properties look = lamp.of(*active);
        color = look.color(Property::Color, Palette::onWarning);
        background = look.color(Property::Background, Palette::warning);
        edge = background;
        if (look.has(Property::Text))
            text = look.text(Property::Text);
    }
    canvas.rectangle(area, background, corner);
    const double inset = edgeThickness / 2.0;
    canvas.frame(area.adjusted(inset, inset, -inset, -inset), edge, edgeThickness, corner);
    drawLines(lamp, area, text, color, canvas);
}

void layoutAnnunciator(const Properties& annunciator, Canvas& canvas)
{
    const QRectF area = annunciator.area();
    const int rows =
        static_cast<int>(std::clamp(annunciator.number(Property::Rows, 1.0), 1.0, 1.0 * mostRows));
    const double height = area.height() / rows;
    const double size = annunciator.number(Property::Size, textHeight * height);
    const Argb usual = annunciator.color(Property::Color, Palette::white);
    canvas.rectangle(area, annunciator.color(Property::Background, Palette::none), usualCorner);
    const std::vector<const Element*> active = activeMessages(annunciator);
    const int count = static_cast<int>(active.size());
    for (int i = 0; i < std::min(count, rows); ++i) {
        const Properties message = annunciator.of(*active[static_cast<std::size_t>(i)]);
        const QRectF row(area.left(), area.top() + i * height, area.width(), height);
        canvas.rectangle(row.adjusted(1.0, 1.0, -1.0, -1.0),
                         message.color(Property::Background, Palette::none), usualCorner);
        const Argb color = message.color(Property::Color, usual);
        canvas.text({row.left() + textIndent * size, row.center().y()},
                    message.text(Property::Text), {size, Weight::Bold, Align::Left, color});
        // The last row also counts the messages that have no row.
        if (i == rows - 1 && count > rows)
            canvas.text({row.right() - textIndent * size, row.center().y()},
                        QStringLiteral("+%1").arg(count - rows),
                        {size, Weight::Bold, Align::Right, color});
    }
}

} // namespace Zinc2D
