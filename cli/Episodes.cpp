#include "cli/Episodes.h"

#include "analysis/EpisodeFinder.h"
#include "cli/Json.h"
#include "cli/Recording.h"

#include <QJsonArray>

#include <cmath>

namespace KOLT::Cli {

namespace {

QString stateName(ThresholdState state)
{
    return state == ThresholdState::Limit ? QStringLiteral("LIMIT") : QStringLiteral("WARNING");
}

QJsonValue jsonNumber(const std::optional<double>& number)
{
    return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}

QJsonObject jsonEpisode(const Episode& episode)
{
    QJsonArray parameters;
    for (const ProfileParameter* parameter : episode.parameters)
        parameters.append(parameter->fullName);
    QJsonObject object{
        {QStringLiteral("quantity"), episode.quantity},
        {QStringLiteral("parameters"), parameters},
        {QStringLiteral("state"), stateName(episode.state)},
        {QStringLiteral("begin"), episode.begin},
        {QStringLiteral("end"), episode.end},
        {QStringLiteral("isCut"), episode.isCut},
        {QStringLiteral("peak"), QJsonValue::Null},
        {QStringLiteral("peakTime"), QJsonValue::Null},
        {QStringLiteral("peakParameter"), QJsonValue::Null},
        {QStringLiteral("secondsBeyondWarning"), episode.secondsBeyondWarning},
        {QStringLiteral("secondsBeyondLimit"), episode.secondsBeyondLimit},
        {QStringLiteral("crossings"), static_cast<qint64>(episode.crossings)},
        {QStringLiteral("phase"), phaseName(episode.phase)},
        {QStringLiteral("engineSpeed"), jsonNumber(episode.engineSpeed)},
    };
    if (episode.peak) {
        object[QStringLiteral("peak")] = episode.peak->number;
        object[QStringLiteral("peakTime")] = episode.peak->seconds;
        object[QStringLiteral("peakParameter")] = episode.peak->parameter->fullName;
    }
    return object;
}

} // namespace

QString episodes(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openAndLoad();
    if (!error.isEmpty())
        return error;
    const Profile& profile = recording.profile();
    const DataSet& dataSet = *recording.card().dataSet();
    const EpisodeFindings found = findEpisodes(profile, dataSet);
    QJsonArray episodes;
    for (const Episode& episode : found.episodes)
        episodes.append(jsonEpisode(episode));
    QJsonArray faults;
    for (const FaultOccurrence& fault : findFaultOccurrences(profile, dataSet))
        faults.append(QJsonObject{{QStringLiteral("parameter"), fault.parameter->fullName},
                                  {QStringLiteral("begin"), fault.begin},
                                  {QStringLiteral("end"), fault.end},
                                  {QStringLiteral("isCut"), fault.isCut}});
    QJsonArray atStart;
    for (const StateAtStart& state : found.atStart)
        atStart.append(QJsonObject{{QStringLiteral("parameter"), state.parameter->fullName},
                                   {QStringLiteral("state"), stateName(state.state)}});
    error = printJson(
        {{QStringLiteral("episodes"), episodes},
         {QStringLiteral("leftOut"), static_cast<qint64>(found.leftOut)},
         {QStringLiteral("faults"), faults},
         {QStringLiteral("atStart"), atStart},
         {QStringLiteral("unread"), QJsonArray::fromStringList(QStringList(
                                        dataSet.unreadFiles.begin(), dataSet.unreadFiles.end()))}});
    return error.isEmpty() ? unreadError(dataSet.unreadFiles) : error;
}

} // namespace KOLT::Cli
