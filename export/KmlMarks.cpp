#include "export/KmlMarks.h"

#include "export/EventStep.h"
#include "export/ExportText.h"
#include "record/FlightPath.h"

namespace KOLT {

KmlMarks::KmlMarks(XmlExport& xml, KmlGeometry& geometry, const Profile& profile,
                   const DataSet& dataSet, const KmlOptions& options)
    : m_xml(xml)
    , m_geometry(geometry)
    , m_profile(profile)
    , m_dataSet(dataSet)
    , m_options(options)
    , m_clock(dataSet.dateTime)
    , m_description(profile, dataSet)
{
}

bool KmlMarks::writePlaceMarks(KmlGeometry::Points points)
{
    if (points.empty())
        return true;
    const auto interval = static_cast<std::size_t>(m_options.placeMarkInterval);
    m_xml.begin("Folder");
    m_xml.element("name", ExportText::tr("Positions"));
    for (std::size_t i = 0; i < points.size(); i += interval) {
        const TrackPoint& point = points[i];
        if (!isRecorded(point))
            continue;
        beginMark(m_description.timeText(point.seconds()), m_description.of(point), point.seconds(),
                  "#place");
        m_geometry.writePoint(point);
        m_xml.end();
        if (!m_xml.step())
            return false;
    }
    m_xml.end();
    return true;
}

bool KmlMarks::writeErrorMarks(const std::vector<const Event*>& events)
{
    if (events.empty())
        return true;
    m_xml.begin("Folder");
    m_xml.element("name", ExportText::tr("Exceeded"));
    for (const Event* const event : events) {
        const std::optional<TrackPoint> place = placeAt(recordedTrack(m_dataSet), event->seconds);
        QString description = m_description.momentText(event->seconds) + QStringLiteral("<br/>") +
                              event->text.toHtmlEscaped() + QStringLiteral("<br/>") +
                              stateAndStep(m_profile, m_dataSet, *event).toHtmlEscaped();
        if (!place)
            description += QStringLiteral("<br/>") + ExportText::tr("No position was recorded.");
        beginMark(event->text, description, event->seconds,
                  event->grade.state == ThresholdState::Limit ? "#error" : "#warning");
        if (place)
            m_geometry.writePoint(*place);
        m_xml.end();
        if (!m_xml.step())
            return false;
    }
    m_xml.end();
    return true;
}

void KmlMarks::beginMark(const QString& name, const QString& description, double seconds,
                         const char* style)
{
    m_xml.begin("Placemark");
    m_xml.element("name", name);
    m_xml.begin("Snippet"); // an empty one, otherwise the tree view repeats the description
    m_xml.attribute("maxLines", QStringLiteral("0"));
    m_xml.end();
    m_xml.element("description", description);
    const QString time =
        m_options.timeStamp == KmlOptions::Times::None ? QString() : m_clock.isoText(seconds);
    if (!time.isEmpty()) { // empty for damaged time stamps
        m_xml.begin("TimeStamp");
        m_xml.element("when", time);
        m_xml.end();
    }
    m_xml.element("styleUrl", QLatin1String(style));
}

} // namespace KOLT
