#include "report/ReportReader.h"

#include "analysis/EventDetails.h"
#include "analysis/Findings.h"
#include "profile/ProfileLine.h"
#include "profile/ValueDecoder.h"
#include "record/CardContainer.h"
#include "record/ClockOffset.h"
#include "report/EpisodeRanking.h"

#include <QCryptographicHash>
#include <QFile>

#include <cmath>
#include <map>

namespace KOLT {

namespace {

constexpr qint64 readBytes = 1024 * 1024;
constexpr int wholePercent = 100;

void addOnce(QStringList& texts, const QString& text)
{
    const QString trimmed = text.trimmed();
    if (!trimmed.isEmpty() && !texts.contains(trimmed))
        texts.push_back(trimmed);
}

/// Makes a report, in the order of its functions.
class Reader
{
public:
    Reader(const Profile& profile, CardContainer& card, const ReportProgress& progress)
        : m_profile(profile)
        , m_card(card)
        , m_progress(progress)
        , m_files(card)
        , m_ranking(profile, m_report)
    {
        for (const FileFacts& file : m_files.all())
            m_bytes[file.name] = file.bytes;
        for (const auto& [name, bytes] : m_bytes)
            m_total += 2.0 * static_cast<double>(bytes); // read once for the cycle, once to hash
    }

    EngineReport read(const QDate& date)
    {
        m_report.folder = m_card.folder();
        m_report.date = date;
        m_report.clock = clockLine(m_card.clockOffset());
        m_report.profile = {m_profile.name(), m_profile.version(), m_profile.activeVariant(),
                            profileLine(m_profile), m_profile.unitSystem() == UnitSystem::Imperial};
        readHeaders();
        for (const auto& [number, cycle] : m_card.cycles()) {
            if (!m_report.isCancelled)
                readCycle(cycle);
        }
        m_ranking.finish();
        takeOccurrences(m_faults, m_report.faults);
        takeOccurrences(m_lamps, m_report.lamps);
        for (const auto& [name, file] : m_card.files()) {
            if (!m_report.isCancelled)
                hash(name, file.path());
        }
        return std::move(m_report);
    }

private:
    using Spans = std::map<const ProfileParameter*, ReportOccurrences>;

    /// False to end reading. `extra` bytes of the file at hand were read.
    bool tick(const QString& name, double extra)
    {
        const double part = m_total > 0.0 ? (m_done + extra) / m_total : 1.0;
        const bool goesOn = !m_progress || m_progress(name, static_cast<int>(part * wholePercent));
        m_report.isCancelled = m_report.isCancelled || !goesOn;
        return goesOn;
    }

    void readHeaders()
    {
        ReportIdentity& identity = m_report.identity;
        for (const FileFacts& file : m_files.all()) {
            const RecordInfo& info = file.info;
            addOnce(identity.engineSerials, info.engineSerial);
            addOnce(identity.engineTypes, info.engineType);
            if (info.ecuSerialNumber != 0)
                addOnce(identity.unitSerials, QString::number(info.ecuSerialNumber));
            addOnce(identity.unitTypes, info.ecuType);
            addOnce(identity.softwareA, info.softwarePartA);
            addOnce(identity.softwareB, info.softwarePartB);
            addOnce(identity.displaySoftware, info.emuVersion);
        }
    }

    void readCycle(const Cycle& listed)
    {
        double bytes = 0.0;
        for (const QString& name : listed.fileNames)
            bytes += static_cast<double>(m_bytes[name]);
        m_card.loadCycle(listed.number,
                         [&](int percent) { tick(listed.name, bytes * percent / wholePercent); });
        m_done += bytes;
        if (m_report.isCancelled)
            return;
        const DataSet& dataSet = *m_card.dataSet();
        ReportCycle cycle;
        cycle.sheet = sheetCycle(m_profile, m_files, dataSet, listed.number);
        cycle.name = listed.name;
        cycle.runSeconds = listed.durationSeconds();
        cycle.fileCount = listed.fileNames.size();
        cycle.flights = dataSet.flights;
        m_report.cycles.push_back(std::move(cycle));
        for (const QString& name : dataSet.unreadFiles)
            m_report.unreadFiles << name;
        readCounter(dataSet, Role::EngineHours, m_report.identity.hours);
        readCounter(dataSet, Role::EngineStarts, m_report.identity.starts);
        readEpisodes(listed.number, dataSet);
        readFaults(listed.number, dataSet);
        readLamps(listed.number, dataSet);
    }

    void readCounter(const DataSet& dataSet, Role role, std::optional<ReportCounter>& counter) const
    {
        const ProfileParameter* const parameter = m_profile.parameterByRole(role);
        if (parameter == nullptr || seriesOf(dataSet.messages, *parameter).empty())
            return;
        const MessageSeries& series = seriesOf(dataSet.messages, *parameter);
        const double first = decodeNumber(series[0].data, *parameter);
        const double last = decodeNumber(series.last().data, *parameter);
        if (!std::isfinite(first) || !std::isfinite(last))
            return;
        if (!counter)
            counter = {first, last, numberText(m_profile, *parameter, first), {}};
        counter->last = last;
        counter->lastText = numberText(m_profile, *parameter, last);
    }

    void readEpisodes(int cycle, const DataSet& dataSet)
    {
        const EpisodeList found = episodesOf(m_profile, dataSet);
        m_ranking.add(cycle, dataSet, found->episodes);
        m_report.episodesLeftOut += found->leftOut;
        for (const StateAtStart& state : found->atStart)
            m_report.atStart.push_back({cycle, state.parameter->fullName, state.state});
    }

    static void add(Spans& spans, const ProfileParameter& parameter, const ReportSpan& span)
    {
        ReportOccurrences& all = spans[&parameter];
        all.parameter = parameter.fullName;
        ++all.count;
        if (all.spans.size() < ReportOccurrences::maxSpans)
            all.spans.push_back(span);
    }

    void readFaults(int cycle, const DataSet& dataSet)
    {
        for (const FaultOccurrence& fault : findFaultOccurrences(m_profile, dataSet))
            add(m_faults, *fault.parameter, {cycle, fault.begin, fault.end, fault.isCut});
    }

    void readLamps(int cycle, const DataSet& dataSet)
    {
        for (const Event& event : *eventsOf(m_profile, dataSet, EventScope::WarningLamps)) {
            if (m_lamps[event.parameter].spans.size() == ReportOccurrences::maxSpans) {
                ++m_lamps[event.parameter].count; // of a flickering lamp, details would take long
                continue;
            }
            const EventDetails details = detailsOf(m_profile, dataSet, event);
            std::optional<double> end;
            if (details.duration)
                end = event.seconds + *details.duration;
            add(m_lamps, *event.parameter, {cycle, event.seconds, end, !end});
        }
    }

    void takeOccurrences(Spans& spans, std::vector<ReportOccurrences>& list) const
    {
        for (const ProfileParameter& parameter : m_profile.parameters()) {
            if (const auto found = spans.find(&parameter); found != spans.end())
                list.push_back(std::move(found->second));
        }
    }

    void hash(const QString& name, const QString& path)
    {
        ReportFile told{name, m_bytes[name], {}};
        QCryptographicHash sha(QCryptographicHash::Sha256);
        QFile file(path);
        bool isRead = file.open(QIODevice::ReadOnly);
        QByteArray buffer(readBytes, Qt::Uninitialized);
        double bytes = 0.0;
        while (isRead && tick(name, bytes)) {
            const qint64 count = file.read(buffer.data(), readBytes);
            isRead = count >= 0;
            if (count <= 0)
                break;
            sha.addData(QByteArrayView(buffer.constData(), count));
            bytes += static_cast<double>(count);
        }
        m_done += static_cast<double>(told.bytes);
        if (isRead)
            told.sha256 = sha.result().toHex();
        m_report.files.push_back(std::move(told));
    }

    const Profile& m_profile;
    CardContainer& m_card;
    const ReportProgress& m_progress;
    const CardFiles m_files;
    EngineReport m_report;
    EpisodeRanking m_ranking;
    Spans m_faults;
    Spans m_lamps;
    std::map<QString, qint64> m_bytes;
    double m_done = 0.0; ///< bytes
    double m_total = 0.0;
};

} // namespace

EngineReport readReport(const Profile& profile, CardContainer& card, const QDate& date,
                        const ReportProgress& progress)
{
    return Reader(profile, card, progress).read(date);
}

} // namespace KOLT
