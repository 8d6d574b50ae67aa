#include "export/GpxWriter.h"

#include "export/ExportText.h"
#include "export/GpxPoints.h"
#include "record/FlightPath.h"

namespace KOLT {

namespace {

using Piece = std::span<const TrackPoint>;

struct Track
{
    QString name;
    std::vector<Piece> pieces;
};

/// "Flight 2, 28.07.2026 14:32", without a clock "Flight 2".
QString flightName(const DataSet& dataSet, std::size_t flight)
{
    const QString name = ExportText::tr("Flight %1").arg(flight + 1);
    const QDateTime takeOff =
        flight < dataSet.flights.size() ? dataSet.flights[flight].dateTime : QDateTime();
    return takeOff.isValid() ? name + takeOff.toString(QStringLiteral("', 'dd.MM.yyyy hh:mm"))
                             : name;
}

std::vector<Track> tracksOf(const DataSet& dataSet, const QString& title)
{
    std::vector<Track> tracks;
    for (const PathSection& section : pathSections(dataSet)) {
        if (section.kind == PathSection::Kind::Ground || section.points.empty())
            continue;
        tracks.push_back({section.kind == PathSection::Kind::Flight
                              ? flightName(dataSet, section.flight)
                              : title,
                          pathPieces(section.points)});
    }
    return tracks;
}

void writeMetadata(XmlExport& xml, GpxPoints& points, const std::vector<Track>& tracks,
                   const DataSet& dataSet, const QString& title, const QString& note)
{
    std::vector<Piece> pieces;
    for (const Track& track : tracks)
        pieces.insert(pieces.end(), track.pieces.begin(), track.pieces.end());
    xml.begin("metadata");
    xml.element("name", title);
    if (!note.isEmpty())
        xml.element("desc", note);
    const QString time =
        pieces.empty() ? QString()
                       : ExportClock(dataSet.dateTime).isoText(pieces.front().front().seconds());
    if (!time.isEmpty())
        xml.element("time", time);
    points.writeBounds(pieces);
    xml.end();
}

/// False if the export was cancelled or failed.
bool writeTrack(XmlExport& xml, GpxPoints& points, const Track& track)
{
    xml.begin("trk");
    xml.element("name", track.name);
    for (const Piece piece : track.pieces) {
        xml.begin("trkseg");
        for (const TrackPoint& point : piece) {
            points.writeTrackPoint(point);
            if (!xml.step())
                return false;
        }
        xml.end();
    }
    xml.end();
    return true;
}

} // namespace

ExportStatus writeGpx(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                      const GpxOptions& options, const QString& title,
                      const ExportProgress& progress, const QString& note)
{
    XmlExport xml(device, progress, dataSet.track.size());
    GpxPoints points(xml, profile, dataSet, options);
    const std::vector<Track> tracks = tracksOf(dataSet, title);
    if (points.hasExtension())
        xml.writer().writeNamespace(QLatin1String(gpxTrackNamespace), QStringLiteral("gpxtpx"));
    xml.begin("gpx");
    xml.writer().writeDefaultNamespace(QStringLiteral("http://www.topografix.com/GPX/1/1"));
    xml.attribute("version", QStringLiteral("1.1"));
    xml.attribute("creator", QStringLiteral("KOLT"));
    writeMetadata(xml, points, tracks, dataSet, title, note);
    bool goesOn = !options.wayPoints || points.writeWayPoints();
    for (const Track& track : tracks)
        goesOn = goesOn && writeTrack(xml, points, track);
    return xml.finish();
}

} // namespace KOLT
