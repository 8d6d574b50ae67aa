#include "export/GpxWriter.h"

#include "base/NumberText.h"
#include "export/ExportClock.h"
#include "export/ExportText.h"
#include "export/XmlExport.h"
#include "record/FlightPath.h"

namespace KOLT {

namespace {

constexpr int degreeDecimals = 7; // a resolution of about a centimetre
constexpr int metreDecimals = 1;

/// GPX allows -180 but not 180.
QString longitudeText(double longitude)
{
    const QString text = fixedText(longitude, degreeDecimals);
    return text == QStringLiteral("180.0000000") ? QLatin1Char('-') + text : text;
}

void writePoint(XmlExport& xml, const TrackPoint& point, const ExportClock& clock)
{
    xml.begin("trkpt");
    xml.attribute("lat", fixedText(point.latitude, degreeDecimals));
    xml.attribute("lon", longitudeText(point.longitude));
    if (point.hasAltitude)
        xml.element("ele", fixedText(point.altitude, metreDecimals));
    const QString time = clock.isoText(point.seconds());
    if (!time.isEmpty())
        xml.element("time", time);
    xml.end();
}

/// False if the export was cancelled or failed.
bool writeSection(XmlExport& xml, const PathSection& section, const QString& name,
                  const ExportClock& clock)
{
    xml.begin("trk");
    xml.element("name", name);
    for (const std::span<const TrackPoint> piece : pathPieces(section.points)) {
        xml.begin("trkseg");
        for (const TrackPoint& point : piece) {
            writePoint(xml, point, clock);
            if (!xml.step())
                return false;
        }
        xml.end();
    }
    xml.end();
    return true;
}

} // namespace

ExportStatus writeGpx(QIODevice& device, const DataSet& dataSet, const QString& title,
                      const ExportProgress& progress, const QString& note)
{
    const ExportClock clock(dataSet.dateTime);
    XmlExport xml(device, progress, dataSet.track.size());
    xml.begin("gpx");
    xml.writer().writeDefaultNamespace(QStringLiteral("http://www.topografix.com/GPX/1/1"));
    xml.attribute("version", QStringLiteral("1.1"));
    xml.attribute("creator", QStringLiteral("KOLT"));
    xml.begin("metadata");
    xml.element("name", title);
    if (!note.isEmpty())
        xml.element("desc", note);
    xml.end();
    for (const PathSection& section : pathSections(dataSet)) {
        if (section.kind == PathSection::Kind::Ground || section.points.empty())
            continue;
        const QString name = section.kind == PathSection::Kind::Flight
                                 ? ExportText::tr("Flight %1").arg(section.flight + 1)
                                 : title;
        if (!writeSection(xml, section, name, clock))
            break;
    }
    return xml.finish();
}

} // namespace KOLT
