#include "export/KmlStyles.h"

#include "base/NumberText.h"
#include "export/KmlIcons.h"
#include "export/XmlExport.h"

namespace KOLT {

namespace {

constexpr double dotScale = 0.5;
constexpr double eventScale = 0.8;
constexpr int opaque = 255;

/// KML's order: opacity, blue, green, red.
QString kmlColor(const QColor& color, int alpha)
{
    return QStringLiteral("%1%2%3%4")
        .arg(alpha, 2, 16, QLatin1Char('0'))
        .arg(color.blue(), 2, 16, QLatin1Char('0'))
        .arg(color.green(), 2, 16, QLatin1Char('0'))
        .arg(color.red(), 2, 16, QLatin1Char('0'));
}

void beginStyle(XmlExport& xml, const char* id)
{
    xml.begin("Style");
    xml.attribute("id", QLatin1String(id));
}

/// Packed icons have their colour already: not every program paints them in that of the style.
void writeIcon(XmlExport& xml, const QColor& color, KmlIcon icon, bool isPacked)
{
    xml.begin("IconStyle");
    xml.element("color", kmlColor(isPacked ? Qt::white : color, opaque));
    xml.element("scale", fixedText(icon == KmlIcon::Dot ? dotScale : eventScale, 1));
    xml.begin("Icon");
    xml.element("href", QLatin1String(isPacked ? iconName(icon) : iconAddress(icon)));
    xml.end();
    xml.end();
    xml.begin("LabelStyle");
    xml.element("scale", QStringLiteral("0")); // hundreds of labels would cover the map
    xml.end();
}

void writeIconStyle(XmlExport& xml, const char* id, const QColor& color, KmlIcon icon,
                    bool isPacked)
{
    beginStyle(xml, id);
    writeIcon(xml, color, icon, isPacked);
    xml.end();
}

} // namespace

void writeKmlStyles(XmlExport& xml, const KmlOptions& options)
{
    beginStyle(xml, "path");
    writeIcon(xml, options.placeMarkColor, KmlIcon::Dot,
              options.packed); // for pieces of a single point
    xml.begin("LineStyle");
    xml.element("color", kmlColor(options.lineColor, options.lineAlpha));
    xml.element("width", QString::number(options.lineWidth));
    xml.end();
    xml.end();

    beginStyle(xml, "curtain");
    xml.begin("LineStyle"); // the path already has a line
    xml.element("color", kmlColor(options.polygonColor, 0));
    xml.end();
    xml.begin("PolyStyle");
    xml.element("color", kmlColor(options.polygonColor, options.polygonAlpha));
    xml.element("outline", QStringLiteral("0"));
    xml.end();
    xml.end();

    writeIconStyle(xml, "place", options.placeMarkColor, KmlIcon::Dot, options.packed);
    writeIconStyle(xml, "error", options.errorMarkColor, KmlIcon::Limit, options.packed);
    writeIconStyle(xml, "warning", options.warningMarkColor, KmlIcon::Warning, options.packed);
}

} // namespace KOLT
