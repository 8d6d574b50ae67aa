#include "export/SqliteWriter.h"

#include "analysis/Findings.h"
#include "base/Version.h"
#include "export/ExportClock.h"
#include "record/ClockOffset.h"
#include "record/RoleSeries.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

/// Raised when the tables change in a way that existing queries notice.
constexpr int schemaVersion = 1;

QVariant orNull(const std::optional<double>& number)
{
    return number ? QVariant(*number) : QVariant();
}

/// "2026-07-28 14:32:05.500", which SQLite's functions read; NULL without a clock.
QVariant clockText(const ExportClock& clock, double seconds)
{
    if (!clock.dateTime(seconds).isValid())
        return {};
    std::string text;
    clock.appendTo(text, seconds, ' ');
    return QString::fromStdString(text);
}

/// Decodes the samples of one column in recorded order.
class ColumnDecoder
{
public:
    ColumnDecoder(const Profile& profile, const MessageMap& messages,
                  const ProfileParameter& parameter)
        : m_profile(profile)
        , m_parameter(parameter)
        , m_filter(positionFilterFor(profile, messages, parameter))
        , m_isULong(parameter.dataType == static_cast<int>(DataType::ULong))
    {
    }

    QVariant operator()(const MessageData& data)
    {
        const double number = decodeFiltered(data, m_parameter, &m_filter);
        if (m_parameter.rule == DecodingRule::Float)
            return std::isfinite(number) ? QVariant(number) : QVariant();
        // Its text has decimals that the whole number has not.
        if (m_isULong)
            return textOf(m_profile, m_parameter, data, number).toDouble();
        return static_cast<qint64>(number);
    }

private:
    const Profile& m_profile;
    const ProfileParameter& m_parameter;
    PositionFilter m_filter;
    bool m_isULong;
};

} // namespace

struct SqliteWriter::Part
{
    const DataSet& dataSet;
    int cycle;
    ExportClock clock;
};

SqliteWriter::SqliteWriter(const Profile& profile, bool isSelectionOnly)
    : m_profile(profile)
{
    std::vector<const ProfileParameter*> parameters;
    for (const ProfileParameter& parameter : profile.parameters()) {
        if (parameter.selected || !isSelectionOnly)
            parameters.push_back(&parameter);
    }
    m_tables = sampleTables(profile, parameters);
}

void SqliteWriter::open(const QString& path)
{
    m_file.open(path);
    m_file.execute(QStringLiteral("BEGIN"));
    createSchema(m_file, m_profile, m_tables);
    SqliteFile::Rows info(m_file, QStringLiteral("info"), 2);
    info.add({QStringLiteral("schema"), schemaVersion});
    info.add({QStringLiteral("program"), QLatin1String(versionText)});
    info.add({QStringLiteral("profile"), m_profile.name()});
    info.add({QStringLiteral("profile_version"), m_profile.version()});
    info.add({QStringLiteral("variant"), m_profile.activeVariant()});
    m_file.execute(QStringLiteral("COMMIT"));
}

bool SqliteWriter::close()
{
    return m_file.close();
}

ExportStatus SqliteWriter::add(const CardContainer& card, std::optional<int> cycle,
                               const std::vector<TrustFinding>& findings,
                               const ExportProgress& progress)
{
    const DataSet& dataSet = *card.dataSet();
    const Part part{dataSet, cycle.value_or(chosenFiles), ExportClock(dataSet.dateTime)};
    m_file.execute(QStringLiteral("BEGIN"));
    addCycle(card, part);
    addFlights(part);
    addEvents(part);
    addEpisodes(part);
    {
        SqliteFile::Rows rows(m_file, QStringLiteral("findings"), 6);
        for (const TrustFinding& finding : findings)
            rows.add({part.cycle, trustKindName(finding.kind),
                      trustSeverityName(trustSeverity(finding.kind)), orNull(finding.from),
                      orNull(finding.to), finding.text});
    }
    std::size_t steps = 0;
    for (const SampleTable& table : m_tables)
        steps += dataSet.messages.series(static_cast<std::uint32_t>(table.message)).size();
    ExportMeter meter(progress, steps);
    for (const SampleTable& table : m_tables) {
        if (!addSamples(part, table, meter))
            break;
    }
    m_file.execute(QStringLiteral("COMMIT"));
    if (meter.isCancelled())
        return ExportStatus::Cancelled;
    return m_file.hasFailed() ? ExportStatus::Failed : ExportStatus::Done;
}

void SqliteWriter::addCycle(const CardContainer& card, const Part& part)
{
    const DataSet& dataSet = part.dataSet;
    if (!m_isDescribed) { // of the card, which open() does not know
        SqliteFile::Rows info(m_file, QStringLiteral("info"), 2);
        info.add({QStringLiteral("folder"), card.folder()});
        info.add({QStringLiteral("clock_offset"), clockOffsetText(card.clockOffset())});
        m_isDescribed = true;
    }
    const auto known = card.cycles().find(part.cycle);
    SqliteFile::Rows cycles(m_file, QStringLiteral("cycles"), 7);
    cycles.add(
        {part.cycle, known == card.cycles().end() ? QVariant() : known->second.name,
         dataSet.flightIndex ? QVariant(static_cast<qint64>(*dataSet.flightIndex) + 1) : QVariant(),
         clockText(part.clock, 0.0), dataSet.startSeconds, dataSet.stopSeconds,
         static_cast<qint64>(dataSet.messages.sampleCount())});
    SqliteFile::Rows files(m_file, QStringLiteral("files"), 9);
    int position = 0;
    for (const LoadedFile& file : dataSet.files) {
        const auto found = card.files().find(file.name);
        const RecordInfo info = found == card.files().end() ? RecordInfo() : found->second.info();
        const bool isUnread =
            std::ranges::find(dataSet.unreadFiles, file.name) != dataSet.unreadFiles.end();
        files.add({part.cycle, ++position, file.name, info.busType, info.ecuSerialNumber,
                   info.ecuType, info.engineSerial, info.engineType, isUnread ? 0 : 1});
    }
}

void SqliteWriter::addFlights(const Part& part)
{
    SqliteFile::Rows rows(m_file, QStringLiteral("flights"), 19);
    int number = 0;
    for (const Flight& f : part.dataSet.flights)
        rows.add({part.cycle, ++number, clockText(part.clock, f.takeOffSeconds), f.startSeconds,
                  f.takeOffSeconds, f.landingSeconds, f.endSeconds, f.minAltitude, f.maxAltitude,
                  f.altitudeGain, f.climbRate, f.descentRate, f.maxGroundSpeed, f.fuelA, f.fuelB,
                  f.fuel, f.takeOffDistance, f.takeOffDistance15m, f.statisticsValid ? 1 : 0});
}

void SqliteWriter::addEvents(const Part& part)
{
    SqliteFile::Rows rows(m_file, QStringLiteral("events"), 7);
    for (const Event& event : *eventsOf(m_profile, part.dataSet))
        rows.add({part.cycle, event.seconds, clockText(part.clock, event.seconds),
                  numberOf(event.parameter), stateText(event.grade.state), event.isRising ? 1 : 0,
                  event.text});
}

void SqliteWriter::addEpisodes(const Part& part)
{
    SqliteFile::Rows rows(m_file, QStringLiteral("episodes"), 14);
    for (const Episode& episode : episodesOf(m_profile, part.dataSet)->episodes)
        rows.add({part.cycle, episode.quantity, stateText(episode.state),
                  episode.isLampOnly ? 1 : 0, episode.begin, episode.end, episode.isCut ? 1 : 0,
                  static_cast<qint64>(episode.crossings), episode.secondsBeyondWarning,
                  episode.secondsBeyondLimit,
                  episode.peak ? numberOf(episode.peak->parameter) : QVariant(),
                  episode.peak ? QVariant(episode.peak->number) : QVariant(),
                  episode.peak ? QVariant(episode.peak->seconds) : QVariant(),
                  phaseName(episode.phase)});
}

bool SqliteWriter::addSamples(const Part& part, const SampleTable& table, ExportMeter& meter)
{
    const MessageMap& messages = part.dataSet.messages;
    std::vector<ColumnDecoder> decoders;
    for (const SampleTable::Column& column : table.columns)
        decoders.emplace_back(m_profile, messages, *column.parameter);
    SqliteFile::Rows rows(m_file, table.name, static_cast<int>(decoders.size()) + 2);
    QVariantList row(static_cast<qsizetype>(decoders.size()) + 2);
    row[0] = part.cycle;
    for (const StoredSample& sample : messages.series(static_cast<std::uint32_t>(table.message))) {
        row[1] = sample.seconds();
        for (std::size_t i = 0; i < decoders.size(); ++i)
            row[static_cast<qsizetype>(i) + 2] = decoders[i](sample.data);
        rows.add(row);
        if (m_file.hasFailed() || !meter.step())
            return false;
    }
    return true;
}

QVariant SqliteWriter::numberOf(const ProfileParameter* parameter) const
{
    int number = 0;
    for (const ProfileParameter& candidate : m_profile.parameters()) {
        ++number;
        if (&candidate == parameter)
            return number;
    }
    return {};
}

} // namespace KOLT
