#include "library/database/CycleFigures.h"

#include "analysis/BandTimes.h"
#include "analysis/Findings.h"
#include "analysis/FlightLog.h"
#include "base/Version.h"
#include "profile/ValueDecoder.h"
#include "record/CardContainer.h"
#include "record/CardFiles.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cmath>

namespace KOLT::Library {

namespace {

/// To be raised when the same recording gets other figures.
constexpr int figuresRevision = 1;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LibraryFigures)
};

/// The first flight around which it began, as in the engine report.
std::optional<int> flightAt(const std::vector<Flight>& flights, double seconds)
{
    const auto found = std::ranges::find_if(flights, [=](const Flight& flight) {
        return flight.startSeconds <= seconds && seconds <= flight.endSeconds;
    });
    if (found == flights.end())
        return {};
    return static_cast<int>(found - flights.begin()) + 1;
}

/// Of a counter with decimals, the number has been narrowed to whole ones, but its text has not.
double readingOf(const Profile& profile, const ProfileParameter& parameter,
                 const StoredSample& sample)
{
    const double number = decodeNumber(sample.data, parameter);
    if (parameter.dataType != static_cast<int>(DataType::ULong))
        return number;
    bool isNumber = false;
    const double exact = textOf(profile, parameter, sample.data, number).toDouble(&isNumber);
    return isNumber ? exact : number;
}

std::optional<CounterSpan> counterOf(const Profile& profile, const DataSet& dataSet, Role role)
{
    const ProfileParameter* const parameter = profile.parameterByRole(role);
    if (parameter == nullptr || seriesOf(dataSet.messages, *parameter).empty())
        return {};
    const MessageSeries& series = seriesOf(dataSet.messages, *parameter);
    const CounterSpan span{readingOf(profile, *parameter, series[0]),
                           readingOf(profile, *parameter, series.last())};
    if (!std::isfinite(span.first) || !std::isfinite(span.last))
        return {};
    return span;
}

/// Works out the figures of the loaded cycle, in the order of its functions.
class Finder
{
public:
    Finder(const Profile& profile, const CardContainer& card, const ArchivedCycle& cycle)
        : m_profile(profile)
        , m_cycle(cycle)
        , m_card(card)
        , m_dataSet(*card.dataSet())
    {
    }

    CycleFigures find()
    {
        m_figures.startSeconds = m_dataSet.startSeconds;
        m_figures.stopSeconds = m_dataSet.stopSeconds;
        m_figures.recordedSeconds = m_dataSet.stopSeconds - m_dataSet.startSeconds;
        m_figures.trackPoints = static_cast<qint64>(m_dataSet.track.size());
        for (const QString& name : m_dataSet.unreadFiles)
            m_figures.unreadFiles << name;
        const EngineRun run = engineRun(m_profile, m_dataSet);
        m_figures.runSeconds = run.seconds;
        m_figures.starts = run.starts;
        m_figures.unitHours = counterOf(m_profile, m_dataSet, Role::EngineHours);
        m_figures.unitStarts = counterOf(m_profile, m_dataSet, Role::EngineStarts);
        addFlights();
        addEpisodes();
        addFaults();
        addBands();
        return std::move(m_figures);
    }

private:
    void addFlights()
    {
        const FlightLog log = flightLog(m_profile, m_dataSet);
        const RecordingTrust trust =
            recordingTrust(m_profile, m_card, m_dataSet, {m_profile.engineType()});
        for (std::size_t i = 0; i < m_dataSet.flights.size(); ++i) {
            Flight flight = m_dataSet.flights[i];
            // The last file of a cycle may have its date from the cycle behind it on the card.
            if (!flight.dateTime.isValid() && m_cycle.dateTime.isValid())
                flight.dateTime =
                    m_cycle.dateTime.addSecs(static_cast<qint64>(flight.takeOffSeconds));
            m_figures.flights.push_back({flight, trust.marked[i], log.lines[i].counts,
                                         static_cast<qint64>(log.lines[i].flightSeconds())});
        }
        m_figures.fuel = log.fuel;
        m_figures.outside = log.outside;
        for (const TrustFinding& finding : trust.findings) {
            FindingRecord& record = m_figures.findings.emplace_back();
            record.kind = trustKindName(finding.kind);
            record.severity = trustSeverityName(trustSeverity(finding.kind));
            record.from = finding.from;
            record.to = finding.to;
            record.files = QStringList(finding.files.begin(), finding.files.end());
            record.text = finding.text;
        }
    }

    void addEpisodes()
    {
        const EpisodeList found = episodesOf(m_profile, m_dataSet);
        m_figures.episodesLeftOut = static_cast<qint64>(found->leftOut);
        for (const Episode& episode : found->episodes) {
            EpisodeRecord& record = m_figures.episodes.emplace_back();
            record.quantity = episode.quantity;
            for (const ProfileParameter* parameter : episode.parameters)
                record.parameters << parameter->fullName;
            record.state = episode.state;
            record.isLampOnly = episode.isLampOnly;
            record.isHigh = episode.isHigh;
            record.begin = episode.begin;
            record.end = episode.end;
            record.isCut = episode.isCut;
            record.crossings = static_cast<int>(episode.crossings);
            record.secondsBeyondWarning = episode.secondsBeyondWarning;
            record.secondsBeyondLimit = episode.secondsBeyondLimit;
            if (episode.peak) {
                record.peak = episode.peak->number;
                record.peakSeconds = episode.peak->seconds;
                record.peakParameter = episode.peak->parameter->fullName;
            }
            record.phase = phaseName(episode.phase);
            record.engineSpeed = episode.engineSpeed;
            record.flight = flightAt(m_dataSet.flights, episode.begin);
        }
    }

    void addFaults()
    {
        for (const FaultOccurrence& fault : findFaultOccurrences(m_profile, m_dataSet))
            m_figures.faults.push_back({fault.parameter->fullName, fault.begin, fault.end,
                                        fault.isCut, flightAt(m_dataSet.flights, fault.begin)});
    }

    void addBands()
    {
        for (const BandTimes& times : bandTimes(m_profile, m_dataSet)) {
            for (const ThresholdState state :
                 {ThresholdState::Ok, ThresholdState::Warning, ThresholdState::Limit}) {
                const double seconds = times.seconds.at(static_cast<std::size_t>(state));
                const auto isSame = [&](const BandTime& band) {
                    return band.quantity == times.quantity && band.state == state;
                };
                const auto known = std::ranges::find_if(m_figures.bands, isSame);
                if (known != m_figures.bands.end())
                    known->seconds += seconds; // two parameters of one name, without a quantity
                else if (seconds > 0.0)
                    m_figures.bands.push_back({times.quantity, state, seconds});
            }
        }
    }

    const Profile& m_profile;
    const ArchivedCycle& m_cycle;
    const CardFiles m_card;
    const DataSet& m_dataSet;
    CycleFigures m_figures;
};

} // namespace

FiguresSource figuresSource(const Profile& profile)
{
    FiguresSource source{
        profile.name(),
        profile.version(),
        {},
        profile.activeVariant(),
        QStringLiteral("%1/%2").arg(QLatin1String(versionText)).arg(figuresRevision)};
    QFile file(profile.path());
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (file.open(QIODevice::ReadOnly) && hash.addData(&file))
        source.profileSha256 = QString::fromLatin1(hash.result().toHex());
    return source;
}

FoundFigures findCycleFigures(const Profile& profile, const QString& archive,
                              const ArchivedCycle& cycle)
{
    const QString folder = QDir(archive).filePath(cycle.folder);
    const auto none = [&](const QString& why) {
        return FoundFigures{{}, why.arg(QDir::toNativeSeparators(folder)), cycle.folder};
    };
    CardContainer card(profile);
    if (!card.readContainer(folder))
        return none(Text::tr("there is no folder %1"));
    std::list<QString> paths;
    for (const ArchivedFile& file : cycle.files)
        paths.push_back(QStringLiteral("%1/%2").arg(folder, file.name));
    if (!card.canReadAny(paths))
        return none(Text::tr("none of the files in %1 can be read"));
    card.loadFiles(paths);
    return {Finder(profile, card, cycle).find(), {}, cycle.folder};
}

} // namespace KOLT::Library
