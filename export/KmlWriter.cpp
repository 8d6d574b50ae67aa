#include "export/KmlWriter.h"

#include "analysis/Findings.h"
#include "base/ZipFile.h"
#include "export/ExportFile.h"
#include "export/ExportText.h"
#include "export/KmlGeometry.h"
#include "export/KmlIcons.h"
#include "export/KmlMarks.h"
#include "export/KmlStyles.h"
#include "export/KmlTrackValues.h"
#include "record/FlightPath.h"

#include <QBuffer>

#include <map>
#include <string_view>

namespace KOLT {

namespace {

using Kind = PathSection::Kind;

/// Writes one document: its sections with their folders, in order. Functions that return bool
/// return false if the export was cancelled or failed.
class KmlDocument
{
public:
    KmlDocument(XmlExport& xml, const Profile& profile, const DataSet& dataSet,
                const KmlOptions& options)
        : m_xml(xml)
        , m_profile(profile)
        , m_dataSet(dataSet)
        , m_options(options)
        , m_sections(pathSections(dataSet))
        , m_events(m_sections.size())
        , m_values(xml, profile, dataSet)
        , m_geometry(xml, profile, dataSet, options.altitudeMode)
        , m_marks(xml, m_geometry, profile, dataSet, options)
    {
    }

    bool write(const QString& title, const QString& note);

private:
    bool writeFolders();
    void findEvents();
    void writeDescription(const QString& note);
    bool writeSection(std::size_t index);
    void beginFolder(const QString& name);

    bool hasPlayback() const
    {
        return m_options.timeStamp == KmlOptions::Times::PlaceMarksAndTrack &&
               m_dataSet.dateTime.isValid();
    }

    XmlExport& m_xml;
    const Profile& m_profile;
    const DataSet& m_dataSet;
    const KmlOptions& m_options;
    std::vector<PathSection> m_sections;
    EventList m_allEvents;
    std::size_t m_leftOut = 0;                       ///< events beyond the limit of the list
    std::vector<std::vector<const Event*>> m_events; ///< by section
    KmlTrackValues m_values;
    KmlGeometry m_geometry;
    KmlMarks m_marks;
};

bool KmlDocument::write(const QString& title, const QString& note)
{
    findEvents();
    m_xml.writer().writeNamespace(QLatin1String(kmlExtensionNamespace), QStringLiteral("gx"));
    m_xml.begin("kml");
    m_xml.writer().writeDefaultNamespace(QStringLiteral("http://www.opengis.net/kml/2.2"));
    m_xml.begin("Document");
    m_xml.element("name", title);
    m_xml.element("open", QStringLiteral("1"));
    writeDescription(note);
    writeKmlStyles(m_xml, m_options);
    if (hasPlayback())
        m_values.writeSchema();
    return m_sections.size() == 1 ? writeSection(0) : writeFolders();
}

void KmlDocument::writeDescription(const QString& note)
{
    QStringList lines;
    if (m_leftOut > 0)
        lines << ExportText::tr("The first %1 exceedances are marked; %2 more are left out.")
                     .arg(m_allEvents->size())
                     .arg(m_leftOut);
    if (!note.isEmpty())
        lines << note.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br/>"));
    if (!lines.isEmpty())
        m_xml.element("description", lines.join(QStringLiteral("<br/>")));
}

bool KmlDocument::writeFolders()
{
    bool hasGround = false;
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
        if (m_sections[i].kind == Kind::Ground) {
            hasGround = hasGround || !m_sections[i].points.empty() || !m_events[i].empty();
            continue;
        }
        beginFolder(ExportText::tr("Flight %1").arg(m_sections[i].flight + 1));
        if (!writeSection(i))
            return false;
        m_xml.end();
    }
    if (!hasGround)
        return true;
    beginFolder(ExportText::tr("On the ground"));
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
        if (m_sections[i].kind == Kind::Ground && !writeSection(i))
            return false;
    }
    m_xml.end();
    return true;
}

void KmlDocument::findEvents()
{
    if (!m_options.errorMarkOn || !(m_options.showLimit || m_options.showWarning))
        return;
    const EventScope scope =
        m_options.showLimit ? EventScope::AllParameters : EventScope::WarningLamps;
    m_allEvents = eventsOf(m_profile, m_dataSet, scope);
    m_leftOut = eventsLeftOut(m_profile, m_dataSet, scope).size();
    for (const Event& event : *m_allEvents) {
        const bool isLamp = event.parameter->role == Role::WarningLamp;
        if (!isLamp || m_options.showWarning)
            m_events[sectionAt(m_sections, event.seconds)].push_back(&event);
    }
}

bool KmlDocument::writeSection(std::size_t index)
{
    const PathSection& section = m_sections[index];
    if (!m_geometry.writePath(section.points))
        return false;
    if (section.kind != Kind::Ground) {
        if ((m_options.polygonOn && m_geometry.hasAltitude() &&
             !m_geometry.writeCurtain(section.points)) ||
            (hasPlayback() && !m_geometry.writeTrack(section.points, m_values)) ||
            (m_options.placeMarkOn && !m_marks.writePlaceMarks(section.points)))
            return false;
    }
    return m_marks.writeErrorMarks(m_events[index]);
}

void KmlDocument::beginFolder(const QString& name)
{
    m_xml.begin("Folder");
    m_xml.element("name", name);
}

/// Each line of the path visits all points, and the playback three times and once for each value;
/// marks are few in comparison.
std::size_t stepsOf(const Profile& profile, const DataSet& dataSet, const KmlOptions& options)
{
    const bool hasTrack = options.timeStamp == KmlOptions::Times::PlaceMarksAndTrack;
    const std::size_t lines =
        1 + (options.polygonOn ? 1 : 0) + (hasTrack ? 3 + profile.selectedParameters().size() : 0);
    return dataSet.track.size() * lines;
}

/// The document and its icons. Held in memory, as it only grows with the path, and by a mark for
/// some of its points and each exceedance.
bool writePacked(QIODevice& device, const QByteArray& document, const KmlOptions& options)
{
    std::map<QString, QByteArray> files{{QStringLiteral("doc.kml"), document}};
    for (const auto& [icon, color] : {std::pair(KmlIcon::Dot, options.placeMarkColor),
                                      {KmlIcon::Warning, options.warningMarkColor},
                                      {KmlIcon::Limit, options.errorMarkColor}})
        files[QLatin1String(iconName(icon))] = iconPicture(icon, color);
    const QByteArray zip = zipOf(files);
    return !zip.isEmpty() &&
           writeAll(device,
                    std::string_view(zip.constData(), static_cast<std::size_t>(zip.size())));
}

ExportStatus writeDocument(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                           const KmlOptions& options, const QString& title,
                           const ExportProgress& progress, const QString& note)
{
    XmlExport xml(device, progress, stepsOf(profile, dataSet, options));
    KmlDocument(xml, profile, dataSet, options).write(title, note);
    return xml.finish();
}

} // namespace

ExportStatus writeKml(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                      const KmlOptions& options, const QString& title,
                      const ExportProgress& progress, const QString& note)
{
    if (!options.packed)
        return writeDocument(device, profile, dataSet, options, title, progress, note);
    QBuffer document;
    document.open(QIODevice::WriteOnly);
    const ExportStatus status =
        writeDocument(document, profile, dataSet, options, title, progress, note);
    return status == ExportStatus::Done
               ? finishExport(device, writePacked(device, document.data(), options))
               : status;
}

} // namespace KOLT
