#include "export/GpxWriter.h"

#include "export/ExportClock.h"
#include "export/ExportFile.h"
#include "export/XmlText.h"
#include "record/FlightPath.h"

#include <QCoreApplication>
#include <QXmlStreamWriter>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Export)
};

constexpr int degreeDecimals = 7; // a resolution of about a centimetre
constexpr int metreDecimals = 1;

/// GPX allows -180 but not 180.
QString longitudeText(double longitude)
{
    const QString text = fixedText(longitude, degreeDecimals);
    return text == QStringLiteral("180.0000000") ? QLatin1Char('-') + text : text;
}

void writePoint(QXmlStreamWriter& xml, const TrackPoint& point, const ExportClock& clock)
{
    xml.writeStartElement(QStringLiteral("trkpt"));
    xml.writeAttribute(QStringLiteral("lat"), fixedText(point.latitude, degreeDecimals));
    xml.writeAttribute(QStringLiteral("lon"), longitudeText(point.longitude));
    if (point.hasAltitude)
        xml.writeTextElement(QStringLiteral("ele"), fixedText(point.altitude, metreDecimals));
    const QString time = clock.isoText(point.seconds());
    if (!time.isEmpty())
        xml.writeTextElement(QStringLiteral("time"), time);
    xml.writeEndElement();
}

} // namespace

ExportStatus writeGpx(QIODevice& device, const DataSet& dataSet, const QString& title,
                      const ExportProgress& progress)
{
    const ExportClock clock(dataSet.dateTime);
    ExportMeter meter(progress, dataSet.track.size());
    QXmlStreamWriter xml(&device);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("gpx"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.topografix.com/GPX/1/1"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.1"));
    xml.writeAttribute(QStringLiteral("creator"), QStringLiteral("KOLT"));
    xml.writeStartElement(QStringLiteral("metadata"));
    xml.writeTextElement(QStringLiteral("name"), xmlText(title));
    xml.writeEndElement();
    for (const PathSection& section : pathSections(dataSet)) {
        if (section.kind == PathSection::Kind::Ground || section.points.empty())
            continue;
        xml.writeStartElement(QStringLiteral("trk"));
        xml.writeTextElement(QStringLiteral("name"),
                             section.kind == PathSection::Kind::Flight
                                 ? Text::tr("Flight %1").arg(section.flight + 1)
                                 : xmlText(title));
        for (const std::span<const TrackPoint> piece : pathPieces(section.points)) {
            xml.writeStartElement(QStringLiteral("trkseg"));
            for (const TrackPoint& point : piece) {
                writePoint(xml, point, clock);
                if (!meter.step())
                    return ExportStatus::Cancelled;
                if (xml.hasError())
                    return ExportStatus::Failed;
            }
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return finishExport(device, !xml.hasError());
}

} // namespace KOLT
