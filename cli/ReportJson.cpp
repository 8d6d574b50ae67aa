#include "cli/ReportJson.h"

#include "cli/Json.h"
#include "cli/Trust.h"
#include "report/EngineReport.h"

#include <QJsonArray>

namespace KOLT::Cli {

namespace {

QString key(const char* name)
{
    return QLatin1String(name);
}

QString stateName(ThresholdState state)
{
    return state == ThresholdState::Limit ? key("LIMIT") : key("WARNING");
}

QJsonValue jsonCounter(const std::optional<ReportCounter>& counter)
{
    if (!counter)
        return QJsonValue::Null;
    return QJsonObject{{key("first"), counter->first}, {key("last"), counter->last}};
}

QJsonObject jsonIdentity(const ReportIdentity& identity)
{
    return {{key("engineSerials"), QJsonArray::fromStringList(identity.engineSerials)},
            {key("engineTypes"), QJsonArray::fromStringList(identity.engineTypes)},
            {key("unitSerials"), QJsonArray::fromStringList(identity.unitSerials)},
            {key("unitTypes"), QJsonArray::fromStringList(identity.unitTypes)},
            {key("softwareA"), QJsonArray::fromStringList(identity.softwareA)},
            {key("softwareB"), QJsonArray::fromStringList(identity.softwareB)},
            {key("displaySoftware"), QJsonArray::fromStringList(identity.displaySoftware)},
            {key("engineHours"), jsonCounter(identity.hours)},
            {key("engineStarts"), jsonCounter(identity.starts)}};
}

QJsonObject jsonCount(const EpisodeCounts::Count& count)
{
    return {{key("episodes"), static_cast<qint64>(count.episodes)},
            {key("crossings"), static_cast<qint64>(count.crossings)}};
}

QJsonObject jsonCounts(const EpisodeCounts& counts)
{
    return {{key("limits"), jsonCount(counts.limits)},
            {key("warnings"), jsonCount(counts.warnings)},
            {key("lamps"), jsonCount(counts.lamps)}};
}

QJsonObject jsonCycle(const ReportCycle& cycle)
{
    QJsonArray flights;
    for (std::size_t i = 0; i < cycle.flights.size(); ++i) {
        QJsonObject flight = jsonFlight(cycle.flights[i]);
        flight[key("counts")] = jsonCounts(cycle.sheet.log.lines[i].counts);
        flights.append(flight);
    }
    return {{key("cycle"), orNull(cycle.sheet.number)},
            {key("dateTime"), jsonDateTime(cycle.sheet.dateTime)},
            {key("runSeconds"), cycle.runSeconds},
            {key("files"), static_cast<qint64>(cycle.fileCount)},
            {key("flights"), flights},
            {key("outsideFuel"), cycle.sheet.log.outsideFuel()},
            {key("outsideCounts"), jsonCounts(cycle.sheet.log.outside)},
            {key("trust"), jsonTrust(cycle.sheet.findings)}};
}

/// As the document shows them, with texts.
QJsonArray jsonFigures(const ReportEpisode& episode)
{
    QJsonArray result;
    for (const EpisodeFigure& figure : episode.figures)
        result.append(QJsonObject{{key("label"), figure.label}, {key("text"), figure.text}});
    return result;
}

QJsonObject jsonEpisode(const ReportEpisode& episode)
{
    return {{key("cycle"), episode.cycle},
            {key("flight"), orNull(episode.flight)},
            {key("quantity"), episode.quantity},
            {key("parameters"), QJsonArray::fromStringList(episode.parameters)},
            {key("state"), stateName(episode.state)},
            {key("isLampOnly"), episode.isLampOnly},
            {key("dateTime"), jsonDateTime(episode.begins)},
            {key("begin"), episode.begin},
            {key("end"), episode.end},
            {key("isCut"), episode.isCut},
            {key("crossings"), static_cast<qint64>(episode.crossings)},
            {key("secondsBeyondWarning"), episode.secondsBeyondWarning},
            {key("secondsBeyondLimit"), episode.secondsBeyondLimit},
            {key("peak"), orNull(episode.peak)},
            {key("peakText"), episode.peakText},
            {key("phase"), episode.phase},
            {key("figures"), jsonFigures(episode)},
            {key("hasGraph"), episode.graph.has_value()}};
}

QJsonArray jsonOccurrences(const std::vector<ReportOccurrences>& list)
{
    QJsonArray result;
    for (const ReportOccurrences& all : list) {
        QJsonArray spans;
        for (const ReportSpan& span : all.spans)
            spans.append(QJsonObject{{key("cycle"), span.cycle},
                                     {key("begin"), span.begin},
                                     {key("end"), orNull(span.end)},
                                     {key("isCut"), span.isCut}});
        result.append(QJsonObject{{key("parameter"), all.parameter},
                                  {key("count"), static_cast<qint64>(all.count)},
                                  {key("occurrences"), spans}});
    }
    return result;
}

QJsonArray jsonStarts(const std::vector<ReportStart>& list)
{
    QJsonArray result;
    for (const ReportStart& start : list)
        result.append(QJsonObject{{key("cycle"), start.cycle},
                                  {key("parameter"), start.parameter},
                                  {key("state"), stateName(start.state)}});
    return result;
}

QJsonArray jsonFiles(const std::vector<ReportFile>& list)
{
    QJsonArray result;
    for (const ReportFile& file : list)
        result.append(
            QJsonObject{{key("name"), file.name},
                        {key("bytes"), file.bytes},
                        {key("sha256"), file.sha256.isEmpty() ? QJsonValue(QJsonValue::Null)
                                                              : QString::fromLatin1(file.sha256)}});
    return result;
}

} // namespace

QJsonObject jsonReport(const EngineReport& report)
{
    QJsonArray cycles;
    for (const ReportCycle& cycle : report.cycles)
        cycles.append(jsonCycle(cycle));
    QJsonArray episodes;
    for (const ReportEpisode& episode : report.episodes)
        episodes.append(jsonEpisode(episode));
    return {{key("folder"), report.folder},
            {key("date"), report.date.toString(Qt::ISODate)},
            {key("identity"), jsonIdentity(report.identity)},
            {key("profile"), QJsonObject{{key("name"), report.profile.name},
                                         {key("version"), report.profile.version},
                                         {key("variant"), report.profile.variant}}},
            {key("cycles"), cycles},
            {key("counts"), jsonCounts(report.counts)},
            {key("episodes"), episodes},
            {key("episodesLeftOut"), static_cast<qint64>(report.episodesLeftOut)},
            {key("atStart"), jsonStarts(report.atStart)},
            {key("faults"), jsonOccurrences(report.faults)},
            {key("lamps"), jsonOccurrences(report.lamps)},
            {key("files"), jsonFiles(report.files)},
            {key("unread"), QJsonArray::fromStringList(report.unreadFiles)}};
}

} // namespace KOLT::Cli
