#include "export/KmlWriter.h"

#include "analysis/Findings.h"
#include "export/ExportClock.h"
#include "export/ExportFile.h"
#include "export/KmlDescription.h"
#include "export/KmlStyles.h"
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

using Kind = PathSection::Kind;

constexpr auto kmlNamespace = "http://www.opengis.net/kml/2.2";
constexpr auto extensionNamespace = "http://www.google.com/kml/ext/2.2";

/// Writes one document. Functions that return bool return false if cancelled or failed.
class KmlDocument
{
public:
    KmlDocument(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                const KmlOptions& options, const ExportProgress& progress);

    bool write(const QString& title);

    bool isCancelled() const { return m_meter.isCancelled(); }

    bool hasError() const { return m_xml.hasError(); }

private:
    using Points = std::span<const TrackPoint>;
    using Marks = std::vector<const Event*>;

    void element(const char* name, const QString& text)
    {
        m_xml.writeTextElement(QLatin1String(name), xmlText(text));
    }

    void begin(const char* name) { m_xml.writeStartElement(QLatin1String(name)); }

    void end() { m_xml.writeEndElement(); }

    void beginFolder(const QString& name);
    void writeAltitudeMode();

    bool writeFolders();
    bool endDocument();
    void findMarks();
    bool writeSection(const PathSection& section, const Marks& marks);
    bool writePath(Points points, const QString& name, const char* style, bool isCurtain);
    bool writeCoordinates(Points piece);
    QString coordinates(const TrackPoint& point, QChar separator) const;
    bool writeTrack(Points points);
    bool writePlaceMarks(Points points);
    bool writeErrorMarks(const Marks& marks);
    void writeMarkHead(const QString& name, const QString& description, double seconds,
                       const char* style);
    void writePoint(const TrackPoint& point);

    bool step() { return m_meter.step() && !m_xml.hasError(); }

    const DataSet& m_dataSet;
    const Profile& m_profile;
    const KmlOptions& m_options;
    std::vector<PathSection> m_sections;
    EventList m_events;
    std::size_t m_leftOut = 0;  ///< events beyond the limit of the list
    std::vector<Marks> m_marks; ///< by section
    ExportClock m_clock;
    KmlDescription m_description;
    ExportMeter m_meter;
    QXmlStreamWriter m_xml;
    std::optional<double> m_firstAltitude;
};

/// Each line of the path visits all points; marks are few in comparison.
std::size_t stepsOf(const DataSet& dataSet, const KmlOptions& options)
{
    const std::size_t lines = 1 + (options.polygonOn ? 1 : 0) +
                              (options.timeStamp == KmlOptions::Times::PlaceMarksAndTrack ? 2 : 0);
    return dataSet.track.size() * lines;
}

KmlDocument::KmlDocument(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                         const KmlOptions& options, const ExportProgress& progress)
    : m_dataSet(dataSet)
    , m_profile(profile)
    , m_options(options)
    , m_sections(pathSections(dataSet))
    , m_clock(dataSet.dateTime)
    , m_description(profile, dataSet)
    , m_meter(progress, stepsOf(dataSet, options))
    , m_xml(&device)
    , m_firstAltitude(firstAltitude(dataSet))
{
    m_xml.setAutoFormatting(true);
    m_xml.setAutoFormattingIndent(1);
}

bool KmlDocument::write(const QString& title)
{
    findMarks();
    m_xml.writeStartDocument();
    m_xml.writeNamespace(QLatin1String(extensionNamespace), QStringLiteral("gx"));
    begin("kml");
    m_xml.writeDefaultNamespace(QLatin1String(kmlNamespace));
    begin("Document");
    element("name", title);
    element("open", QStringLiteral("1"));
    if (m_leftOut > 0)
        element("description",
                Text::tr("The first %1 exceedances are marked; %2 more are left out.")
                    .arg(m_events->size())
                    .arg(m_leftOut));
    writeKmlStyles(m_xml, m_options);
    return (m_sections.size() == 1 ? writeSection(m_sections[0], m_marks[0]) : writeFolders()) &&
           endDocument();
}

bool KmlDocument::endDocument()
{
    m_xml.writeEndDocument();
    return true;
}

bool KmlDocument::writeFolders()
{
    bool hasGround = false;
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
        if (m_sections[i].kind == Kind::Ground) {
            hasGround = hasGround || !m_sections[i].points.empty() || !m_marks[i].empty();
            continue;
        }
        beginFolder(Text::tr("Flight %1").arg(m_sections[i].flight + 1));
        if (!writeSection(m_sections[i], m_marks[i]))
            return false;
        end();
    }
    if (!hasGround)
        return true;
    beginFolder(Text::tr("On the ground"));
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
        if (m_sections[i].kind == Kind::Ground && !writeSection(m_sections[i], m_marks[i]))
            return false;
    }
    end();
    return true;
}

void KmlDocument::findMarks()
{
    m_marks.resize(m_sections.size());
    if (!m_options.errorMarkOn || !(m_options.showLimit || m_options.showWarning))
        return;
    const EventScope scope =
        m_options.showLimit ? EventScope::AllParameters : EventScope::WarningLamps;
    m_events = eventsOf(m_profile, m_dataSet, scope);
    m_leftOut = eventsLeftOut(m_profile, m_dataSet, scope);
    for (const Event& event : *m_events) {
        const bool isLamp = event.parameter->role == Role::WarningLamp;
        if (!isLamp || m_options.showWarning)
            m_marks[sectionAt(m_sections, event.seconds)].push_back(&event);
    }
}

void KmlDocument::beginFolder(const QString& name)
{
    begin("Folder");
    element("name", name);
}

void KmlDocument::writeAltitudeMode()
{
    element("altitudeMode",
            m_firstAltitude ? QStringLiteral("absolute") : QStringLiteral("clampToGround"));
}

bool KmlDocument::writeSection(const PathSection& section, const Marks& marks)
{
    if (!writePath(section.points, Text::tr("Flight path"), "path", false))
        return false;
    if (section.kind != Kind::Ground) {
        const bool hasTrack = m_options.timeStamp == KmlOptions::Times::PlaceMarksAndTrack;
        if ((m_options.polygonOn && m_firstAltitude &&
             !writePath(section.points, Text::tr("Curtain"), "curtain", true)) ||
            (hasTrack && m_clock.isValid() && !writeTrack(section.points)) ||
            (m_options.placeMarkOn && !writePlaceMarks(section.points)))
            return false;
    }
    return writeErrorMarks(marks);
}

bool KmlDocument::writePath(Points points, const QString& name, const char* style, bool isCurtain)
{
    std::vector<Points> pieces = pathPieces(points);
    if (isCurtain) // a single point has no curtain
        std::erase_if(pieces, [](Points piece) { return piece.size() < 2; });
    if (pieces.empty())
        return true;
    begin("Placemark");
    element("name", name);
    element("styleUrl", QLatin1Char('#') + QLatin1String(style));
    if (pieces.size() > 1)
        begin("MultiGeometry");
    for (const Points piece : pieces) {
        // A line needs two points, but a single one is still a known position.
        begin(piece.size() > 1 ? "LineString" : "Point");
        if (isCurtain)
            element("extrude", QStringLiteral("1"));
        if (!m_firstAltitude && piece.size() > 1)
            element("tessellate", QStringLiteral("1"));
        writeAltitudeMode();
        if (!writeCoordinates(piece))
            return false;
        end();
    }
    if (pieces.size() > 1)
        end();
    end();
    return true;
}

bool KmlDocument::writeCoordinates(Points piece)
{
    begin("coordinates");
    for (const TrackPoint& point : piece) {
        m_xml.writeCharacters(coordinates(point, QLatin1Char(',')) + QLatin1Char('\n'));
        if (!step())
            return false;
    }
    end();
    return true;
}

/// Longitude and latitude to about a centimetre, altitude to a decimetre. Every point needs an
/// altitude; points before the first known altitude get that one.
QString KmlDocument::coordinates(const TrackPoint& point, QChar separator) const
{
    const double altitude = point.hasAltitude ? point.altitude : m_firstAltitude.value_or(0.0);
    return fixedText(point.longitude, 7) + separator + fixedText(point.latitude, 7) + separator +
           fixedText(altitude, 1);
}

bool KmlDocument::writeTrack(Points points)
{
    const QLatin1String extension(extensionNamespace);
    for (const Points piece : pathPieces(points)) {
        begin("Placemark");
        element("name", Text::tr("Playback"));
        element("styleUrl", QStringLiteral("#path"));
        m_xml.writeStartElement(extension, QStringLiteral("Track"));
        writeAltitudeMode();
        for (const TrackPoint& point : piece) {
            element("when", m_clock.isoText(point.seconds()));
            if (!step())
                return false;
        }
        for (const TrackPoint& point : piece) {
            m_xml.writeTextElement(extension, QStringLiteral("coord"),
                                   coordinates(point, QLatin1Char(' ')));
            if (!step())
                return false;
        }
        end();
        end();
    }
    return true;
}

bool KmlDocument::writePlaceMarks(Points points)
{
    if (points.empty())
        return true;
    const auto interval = static_cast<std::size_t>(m_options.placeMarkInterval);
    beginFolder(Text::tr("Positions"));
    for (std::size_t i = 0; i < points.size(); i += interval) {
        const TrackPoint& point = points[i];
        if (!isRecorded(point))
            continue;
        writeMarkHead(m_description.timeText(point.seconds()), m_description.of(point),
                      point.seconds(), "place");
        writePoint(point);
        end();
        if (!step())
            return false;
    }
    end();
    return true;
}

bool KmlDocument::writeErrorMarks(const Marks& marks)
{
    if (marks.empty())
        return true;
    beginFolder(Text::tr("Exceeded"));
    for (const Event* const event : marks) {
        const std::optional<TrackPoint> place = placeAt(recordedTrack(m_dataSet), event->seconds);
        QString description = m_description.momentText(event->seconds) + QStringLiteral("<br/>") +
                              event->text.toHtmlEscaped();
        if (!place)
            description += QStringLiteral("<br/>") + Text::tr("No position was recorded.");
        writeMarkHead(event->text, description, event->seconds, "error");
        if (place)
            writePoint(*place);
        end();
        if (!step())
            return false;
    }
    end();
    return true;
}

void KmlDocument::writeMarkHead(const QString& name, const QString& description, double seconds,
                                const char* style)
{
    begin("Placemark");
    element("name", name);
    begin("Snippet"); // an empty one, otherwise the tree view repeats the description
    m_xml.writeAttribute(QStringLiteral("maxLines"), QStringLiteral("0"));
    end();
    element("description", description);
    const QString time =
        m_options.timeStamp == KmlOptions::Times::None ? QString() : m_clock.isoText(seconds);
    if (!time.isEmpty()) { // empty for damaged time stamps
        begin("TimeStamp");
        element("when", time);
        end();
    }
    element("styleUrl", QLatin1Char('#') + QLatin1String(style));
}

void KmlDocument::writePoint(const TrackPoint& point)
{
    begin("Point");
    writeAltitudeMode();
    m_xml.writeTextElement(QStringLiteral("coordinates"), coordinates(point, QLatin1Char(',')));
    end();
}

} // namespace

ExportStatus writeKml(QIODevice& device, const Profile& profile, const DataSet& dataSet,
                      const KmlOptions& options, const QString& title,
                      const ExportProgress& progress)
{
    KmlDocument document(device, profile, dataSet, options, progress);
    const bool isWritten = document.write(title);
    if (document.isCancelled())
        return ExportStatus::Cancelled;
    return finishExport(device, isWritten && !document.hasError());
}

} // namespace KOLT
