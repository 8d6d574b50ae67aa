#include "export/KmlStyles.h"

#include "export/XmlText.h"

#include <QXmlStreamWriter>

namespace KOLT {

namespace {

constexpr auto dotIcon = "http://maps.google.com/mapfiles/kml/shapes/shaded_dot.png";
constexpr auto cautionIcon = "http://maps.google.com/mapfiles/kml/shapes/caution.png";
constexpr double dotScale = 0.5;
constexpr double cautionScale = 0.8;
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

/// Writes the elements of styles. Their names and texts are constants, so they need no escaping.
class Styles
{
public:
    explicit Styles(QXmlStreamWriter& xml)
        : m_xml(xml)
    {
    }

    void begin(const char* name) { m_xml.writeStartElement(QLatin1String(name)); }

    void end() { m_xml.writeEndElement(); }

    void beginStyle(const char* id)
    {
        begin("Style");
        m_xml.writeAttribute(QStringLiteral("id"), QLatin1String(id));
    }

    void element(const char* name, const QString& text)
    {
        m_xml.writeTextElement(QLatin1String(name), text);
    }

    void icon(const char* id, const QColor& color, double scale, const char* address)
    {
        beginStyle(id);
        iconParts(color, scale, address);
        end();
    }

    void iconParts(const QColor& color, double scale, const char* address)
    {
        begin("IconStyle");
        element("color", kmlColor(color, opaque));
        element("scale", fixedText(scale, 1));
        begin("Icon");
        element("href", QLatin1String(address));
        end();
        end();
        begin("LabelStyle");
        element("scale", QStringLiteral("0")); // hundreds of labels would cover the map
        end();
    }

private:
    QXmlStreamWriter& m_xml;
};

} // namespace

void writeKmlStyles(QXmlStreamWriter& xml, const KmlOptions& options)
{
    Styles styles(xml);
    styles.beginStyle("path");
    styles.iconParts(options.placeMarkColor, dotScale, dotIcon); // for pieces of a single point
    styles.begin("LineStyle");
    styles.element("color", kmlColor(options.lineColor, options.lineAlpha));
    styles.element("width", QString::number(options.lineWidth));
    styles.end();
    styles.end();

    styles.beginStyle("curtain");
    styles.begin("LineStyle"); // the path already has a line
    styles.element("color", kmlColor(options.polygonColor, 0));
    styles.end();
    styles.begin("PolyStyle");
    styles.element("color", kmlColor(options.polygonColor, options.polygonAlpha));
    styles.element("outline", QStringLiteral("0"));
    styles.end();
    styles.end();

    styles.icon("place", options.placeMarkColor, dotScale, dotIcon);
    styles.icon("error", options.errorMarkColor, cautionScale, cautionIcon);
}

} // namespace KOLT
