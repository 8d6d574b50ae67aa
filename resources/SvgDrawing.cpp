#include "resources/SvgDrawing.h"

#include "resources/SvgPath.h"

#include <QXmlStreamReader>

#include <vector>

namespace KOLT {

namespace {

/// What an element takes over from the group around it.
struct Style
{
    QColor fill = Qt::black;
    QColor stroke; ///< invalid: none
    double width = 1.0;
    Qt::PenCapStyle cap = Qt::FlatCap;
    Qt::PenJoinStyle join = Qt::SvgMiterJoin;
    QTransform transform;
};

QColor colorOf(QStringView text)
{
    return text == QLatin1String("none") ? QColor() : QColor(text.toString());
}

/// "translate(1 2) scale(.5)" and the like.
bool applyTransform(QStringView text, QTransform& transform)
{
    while (!(text = text.trimmed()).isEmpty()) {
        const qsizetype open = text.indexOf(u'(');
        const qsizetype close = text.indexOf(u')');
        if (open < 0 || close < open)
            return false;
        const auto numbers = svgNumbers(text.mid(open + 1, close - open - 1));
        if (!numbers || numbers->empty() || numbers->size() > 2)
            return false;
        const double first = numbers->front();
        const QStringView name = text.left(open).trimmed();
        if (name == QLatin1String("translate"))
            transform.translate(first, numbers->size() > 1 ? numbers->back() : 0.0);
        else if (name == QLatin1String("scale"))
            transform.scale(first, numbers->back());
        else
            return false;
        text = text.mid(close + 1);
    }
    return true;
}

bool applyAttributes(const QXmlStreamAttributes& attributes, Style& style)
{
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QStringView name = attribute.name();
        const QStringView value = attribute.value();
        if (name == QLatin1String("fill"))
            style.fill = colorOf(value);
        else if (name == QLatin1String("stroke"))
            style.stroke = colorOf(value);
        else if (name == QLatin1String("stroke-width"))
            style.width = value.toDouble();
        else if (name == QLatin1String("stroke-linecap"))
            style.cap = value == QLatin1String("round")    ? Qt::RoundCap
                        : value == QLatin1String("square") ? Qt::SquareCap
                                                           : Qt::FlatCap;
        else if (name == QLatin1String("stroke-linejoin"))
            style.join = value == QLatin1String("round")   ? Qt::RoundJoin
                         : value == QLatin1String("bevel") ? Qt::BevelJoin
                                                           : Qt::SvgMiterJoin;
        else if (name == QLatin1String("transform") && !applyTransform(value, style.transform))
            return false;
    }
    return true;
}

/// The outline of an element; none for elements that are not known here.
std::optional<QPainterPath> shapeOf(QStringView element, const QXmlStreamAttributes& attributes)
{
    const auto number = [&](const char* name) {
        return attributes.value(QLatin1String(name)).toDouble();
    };
    QPainterPath path;
    if (element == QLatin1String("path"))
        return svgPath(attributes.value(QLatin1String("d")));
    if (element == QLatin1String("rect")) {
        const QRectF rect(number("x"), number("y"), number("width"), number("height"));
        path.addRoundedRect(rect, number("rx"), number("rx"));
        return path;
    }
    if (element == QLatin1String("circle")) {
        path.addEllipse(QPointF(number("cx"), number("cy")), number("r"), number("r"));
        return path;
    }
    return std::nullopt;
}

void paint(const QPainterPath& path, const Style& style, QPainter& painter)
{
    painter.save();
    painter.setTransform(style.transform, true);
    painter.setBrush(style.fill.isValid() ? QBrush(style.fill) : QBrush(Qt::NoBrush));
    QPen pen(style.stroke, style.width, Qt::SolidLine, style.cap, style.join);
    pen.setMiterLimit(4.0); // the format's default
    painter.setPen(style.stroke.isValid() ? pen : QPen(Qt::NoPen));
    painter.drawPath(path);
    painter.restore();
}

/// Draws the elements below the root element, in coordinates of the view box.
bool drawElements(QXmlStreamReader& xml, QPainter& painter)
{
    std::vector<Style> styles(1);
    if (!applyAttributes(xml.attributes(), styles.back()))
        return false;
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement && !styles.empty())
            styles.pop_back();
        if (token != QXmlStreamReader::StartElement)
            continue;
        Style style = styles.back();
        if (!applyAttributes(xml.attributes(), style))
            return false;
        styles.push_back(style);
        if (xml.name() == QLatin1String("g"))
            continue;
        const auto shape = shapeOf(xml.name(), xml.attributes());
        if (!shape)
            return false;
        paint(*shape, style, painter);
    }
    return !xml.hasError();
}

std::optional<QRectF> readRoot(QXmlStreamReader& xml)
{
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("svg"))
        return std::nullopt;
    const auto numbers = svgNumbers(xml.attributes().value(QLatin1String("viewBox")));
    if (!numbers || numbers->size() != 4 || (*numbers)[2] <= 0.0 || (*numbers)[3] <= 0.0)
        return std::nullopt;
    return QRectF((*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]);
}

} // namespace

std::optional<QRectF> svgViewBox(const QByteArray& svg)
{
    QXmlStreamReader xml(svg);
    return readRoot(xml);
}

bool drawSvg(const QByteArray& svg, QPainter& painter, const QRectF& target)
{
    QXmlStreamReader xml(svg);
    const std::optional<QRectF> box = readRoot(xml);
    if (!box)
        return false;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(target.topLeft());
    painter.scale(target.width() / box->width(), target.height() / box->height());
    painter.translate(-box->topLeft());
    const bool isDrawn = drawElements(xml, painter);
    painter.restore();
    return isDrawn;
}

} // namespace KOLT
