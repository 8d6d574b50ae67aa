#include "export/KmlGeometry.h"

#include "base/NumberText.h"
#include "export/ExportText.h"
#include "export/KmlTrackValues.h"
#include "export/RecordedRole.h"
#include "record/FlightPath.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

double lowestAltitude(const DataSet& dataSet)
{
    double lowest = std::numeric_limits<double>::infinity();
    for (const TrackPoint& point : recordedTrack(dataSet)) {
        if (point.hasAltitude)
            lowest = std::min(lowest, point.altitude);
    }
    return std::isfinite(lowest) ? lowest : 0.0;
}

} // namespace

KmlGeometry::KmlGeometry(XmlExport& xml, const Profile& profile, const DataSet& dataSet,
                         KmlOptions::AltitudeMode mode)
    : m_xml(xml)
    , m_clock(dataSet.dateTime)
    , m_mode(mode)
    , m_firstAltitude(firstAltitude(dataSet))
    , m_hasHeading(isRoleRecorded(profile, dataSet, Role::Track))
{
    if (mode == KmlOptions::AltitudeMode::Relative)
        m_ground = lowestAltitude(dataSet);
}

bool KmlGeometry::writePath(Points points)
{
    return writeLine(Line::Path, pathPieces(points));
}

bool KmlGeometry::writeCurtain(Points points)
{
    std::vector<Points> pieces = pathPieces(points);
    std::erase_if(pieces, [](Points piece) { return piece.size() < 2; });
    return writeLine(Line::Curtain, pieces);
}

bool KmlGeometry::writeLine(Line line, const std::vector<Points>& pieces)
{
    if (pieces.empty())
        return true;
    const bool isCurtain = line == Line::Curtain;
    m_xml.begin("Placemark");
    m_xml.element("name", isCurtain ? ExportText::tr("Curtain") : ExportText::tr("Flight path"));
    m_xml.element("styleUrl", isCurtain ? QStringLiteral("#curtain") : QStringLiteral("#path"));
    if (pieces.size() > 1)
        m_xml.begin("MultiGeometry");
    for (const Points piece : pieces) {
        // A line needs two points, but a single one is still a known position.
        m_xml.begin(piece.size() > 1 ? "LineString" : "Point");
        if (isCurtain)
            m_xml.element("extrude", QStringLiteral("1"));
        if (!hasAltitude() && piece.size() > 1)
            m_xml.element("tessellate", QStringLiteral("1"));
        writeAltitudeMode();
        if (!writeCoordinates(piece))
            return false;
        m_xml.end();
    }
    if (pieces.size() > 1)
        m_xml.end();
    m_xml.end();
    return true;
}

bool KmlGeometry::writeCoordinates(Points piece)
{
    m_xml.begin("coordinates");
    for (const TrackPoint& point : piece) {
        m_xml.writer().writeCharacters(coordinates(point, ',') + QLatin1Char('\n'));
        if (!m_xml.step())
            return false;
    }
    m_xml.end();
    return true;
}

bool KmlGeometry::writeTrack(Points points, KmlTrackValues& values)
{
    for (const Points piece : pathPieces(points)) {
        m_xml.begin("Placemark");
        m_xml.element("name", ExportText::tr("Playback"));
        m_xml.element("styleUrl", QStringLiteral("#path"));
        m_xml.writer().writeStartElement(QLatin1String(kmlExtensionNamespace),
                                         QStringLiteral("Track"));
        writeAltitudeMode();
        if (!writeTrackPoints(piece) || !values.write(piece))
            return false;
        m_xml.end();
        m_xml.end();
    }
    return true;
}

/// The format wants all times, then all positions, then all headings.
bool KmlGeometry::writeTrackPoints(Points piece)
{
    const QLatin1String extension(kmlExtensionNamespace);
    for (const TrackPoint& point : piece) {
        m_xml.element("when", m_clock.isoText(point.seconds()));
        if (!m_xml.step())
            return false;
    }
    for (const TrackPoint& point : piece) {
        m_xml.writer().writeTextElement(extension, QStringLiteral("coord"),
                                        coordinates(point, ' '));
        if (!m_xml.step())
            return false;
    }
    if (!m_hasHeading)
        return true;
    for (const TrackPoint& point : piece) {
        m_xml.writer().writeTextElement(extension, QStringLiteral("angles"),
                                        fixedText(point.heading, 1) + QStringLiteral(" 0 0"));
        if (!m_xml.step())
            return false;
    }
    return true;
}

void KmlGeometry::writePoint(const TrackPoint& point)
{
    m_xml.begin("Point");
    writeAltitudeMode();
    m_xml.element("coordinates", coordinates(point, ','));
    m_xml.end();
}

void KmlGeometry::writeAltitudeMode()
{
    const char* const above =
        m_mode == KmlOptions::AltitudeMode::Relative ? "relativeToGround" : "absolute";
    m_xml.element("altitudeMode", QLatin1String(hasAltitude() ? above : "clampToGround"));
}

/// Longitude and latitude to about a centimetre, altitude to a decimetre. Every point needs an
/// altitude; points before the first known altitude get that one.
QString KmlGeometry::coordinates(const TrackPoint& point, char separator) const
{
    std::string text;
    appendFixed(text, point.longitude, 7);
    text += separator;
    appendFixed(text, point.latitude, 7);
    text += separator;
    const double altitude = point.hasAltitude ? point.altitude : m_firstAltitude.value_or(0.0);
    appendFixed(text, altitude - m_ground, 1);
    return QString::fromStdString(text);
}

} // namespace KOLT
