#include "export/GpxPoints.h"

#include "analysis/EpisodeFigures.h"
#include "analysis/Findings.h"
#include "base/NumberText.h"
#include "export/ExportText.h"
#include "export/RecordedRole.h"
#include "record/FlightPath.h"

#include <algorithm>

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

/// The same at the upper end of bounds.
QString highestLongitudeText(double longitude)
{
    const QString text = fixedText(longitude, degreeDecimals);
    return text == QStringLiteral("180.0000000") ? QStringLiteral("179.9999999") : text;
}

/// GPX allows 0 but not 360.
QString courseText(double degrees)
{
    const QString text = fixedText(degrees, 1);
    return text == QStringLiteral("360.0") ? QStringLiteral("0.0") : text;
}

QString figureLines(const Profile& profile, const Episode& episode)
{
    QStringList lines;
    for (const EpisodeFigure& figure : figuresOf(profile, episode))
        lines << QStringLiteral("%1: %2").arg(figure.label, figure.text);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

GpxPoints::GpxPoints(XmlExport& xml, const Profile& profile, const DataSet& dataSet,
                     const GpxOptions& options)
    : m_xml(xml)
    , m_profile(profile)
    , m_dataSet(dataSet)
    , m_clock(dataSet.dateTime)
    , m_hasSpeed(options.speeds && isRoleRecorded(profile, dataSet, Role::GroundSpeed))
    , m_hasCourse(options.speeds && isRoleRecorded(profile, dataSet, Role::Track))
{
}

void GpxPoints::writeBounds(const std::vector<std::span<const TrackPoint>>& pieces)
{
    std::optional<TrackPoint> low;
    TrackPoint high;
    for (const std::span<const TrackPoint> piece : pieces) {
        for (const TrackPoint& point : piece) {
            if (!low)
                low = high = point;
            low->latitude = std::min(low->latitude, point.latitude);
            low->longitude = std::min(low->longitude, point.longitude);
            high.latitude = std::max(high.latitude, point.latitude);
            high.longitude = std::max(high.longitude, point.longitude);
        }
    }
    if (!low)
        return;
    m_xml.begin("bounds");
    m_xml.attribute("minlat", fixedText(low->latitude, degreeDecimals));
    m_xml.attribute("minlon", longitudeText(low->longitude));
    m_xml.attribute("maxlat", fixedText(high.latitude, degreeDecimals));
    m_xml.attribute("maxlon", highestLongitudeText(high.longitude));
    m_xml.end();
}

/// Begins a point, up to its time.
void GpxPoints::begin(const char* name, const TrackPoint& point)
{
    m_xml.begin(name);
    m_xml.attribute("lat", fixedText(point.latitude, degreeDecimals));
    m_xml.attribute("lon", longitudeText(point.longitude));
    if (point.hasAltitude)
        m_xml.element("ele", fixedText(point.altitude, metreDecimals));
}

void GpxPoints::writeTrackPoint(const TrackPoint& point)
{
    begin("trkpt", point);
    const QString time = m_clock.isoText(point.seconds());
    if (!time.isEmpty())
        m_xml.element("time", time);
    if (hasExtension())
        writeExtension(point);
    m_xml.end();
}

void GpxPoints::writeExtension(const TrackPoint& point)
{
    constexpr double kmhPerMetreASecond = 3.6;
    const QLatin1String extension(gpxTrackNamespace);
    m_xml.begin("extensions");
    m_xml.writer().writeStartElement(extension, QStringLiteral("TrackPointExtension"));
    if (m_hasSpeed)
        m_xml.writer().writeTextElement(extension, QStringLiteral("speed"),
                                        fixedText(point.groundSpeed / kmhPerMetreASecond, 2));
    if (m_hasCourse)
        m_xml.writer().writeTextElement(extension, QStringLiteral("course"),
                                        courseText(point.heading));
    m_xml.end();
    m_xml.end();
}

void GpxPoints::writeWayPoint(double seconds, const QString& name, const QString& description,
                              const QString& symbol)
{
    const std::optional<TrackPoint> place = placeAt(recordedTrack(m_dataSet), seconds);
    if (!place)
        return;
    begin("wpt", *place);
    const QString time = m_clock.isoText(seconds);
    if (!time.isEmpty())
        m_xml.element("time", time);
    m_xml.element("name", name);
    if (!description.isEmpty())
        m_xml.element("desc", description);
    m_xml.element("sym", symbol);
    m_xml.end();
}

bool GpxPoints::writeWayPoints()
{
    for (std::size_t i = 0; i < m_dataSet.flights.size(); ++i) {
        if (m_dataSet.flightIndex && *m_dataSet.flightIndex != i)
            continue;
        const Flight& flight = m_dataSet.flights[i];
        const auto number = static_cast<int>(i) + 1;
        const auto symbol = QStringLiteral("Airport");
        writeWayPoint(flight.takeOffSeconds, ExportText::tr("Take-off %1").arg(number), {}, symbol);
        writeWayPoint(flight.landingSeconds, ExportText::tr("Landing %1").arg(number), {}, symbol);
    }
    for (const Episode& episode : episodesOf(m_profile, m_dataSet)->episodes) {
        writeWayPoint(episode.moment(), titleOf(episode), figureLines(m_profile, episode),
                      episode.state == ThresholdState::Limit ? QStringLiteral("Flag, Red")
                                                             : QStringLiteral("Flag, Blue"));
        if (!m_xml.step())
            return false;
    }
    return true;
}

} // namespace KOLT
