#include "cli/Overview.h"

#include "analysis/CardOverview.h"
#include "cli/Json.h"
#include "cli/Recording.h"
#include "cli/Trust.h"

#include <QJsonArray>

namespace KOLT::Cli {

namespace {

QJsonValue jsonWorst(const std::optional<Exceedance>& worst)
{
    if (!worst)
        return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("parameter"), worst->parameter->fullName},
                       {QStringLiteral("state"), worst->state == ThresholdState::Limit
                                                     ? QStringLiteral("LIMIT")
                                                     : QStringLiteral("WARNING")},
                       {QStringLiteral("value"), worst->peak},
                       {QStringLiteral("time"), worst->seconds}};
}

QJsonObject jsonDay(const DayOverview& day)
{
    return {{QStringLiteral("date"), day.date.isValid() ? QJsonValue(day.date.toString(Qt::ISODate))
                                                        : QJsonValue(QJsonValue::Null)},
            {QStringLiteral("flights"), day.totals.flights},
            {QStringLiteral("airSeconds"), day.totals.seconds},
            {QStringLiteral("fuel"), day.fuel}};
}

QJsonObject jsonCycle(const CycleOverview& cycle)
{
    QJsonArray flights;
    for (std::size_t i = 0; i < cycle.flights.size(); ++i) {
        QJsonObject flight = jsonFlight(cycle.flights[i].flight);
        flight.insert(QStringLiteral("marked"), jsonMarked(cycle.trust->marked[i]));
        flights.append(flight);
    }
    return {
        {QStringLiteral("number"), cycle.number},
        {QStringLiteral("dateTime"), jsonDateTime(cycle.dateTime)},
        {QStringLiteral("runSeconds"), cycle.runSeconds},
        {QStringLiteral("flights"), flights},
        {QStringLiteral("outside"),
         QJsonObject{{QStringLiteral("episodes"), static_cast<qint64>(cycle.outsideEpisodes)},
                     {QStringLiteral("crossings"), static_cast<qint64>(cycle.outsideCrossings)},
                     {QStringLiteral("fuel"), cycle.outsideFuel()}}},
        {QStringLiteral("fuel"), cycle.fuel},
        {QStringLiteral("episodes"), static_cast<qint64>(cycle.episodes)},
        {QStringLiteral("crossings"), static_cast<qint64>(cycle.crossings)},
        {QStringLiteral("lamps"), static_cast<qint64>(cycle.lamps)},
        {QStringLiteral("worst"), jsonWorst(cycle.worst)},
        {QStringLiteral("trust"), jsonTrust(cycle.trust->findings)},
    };
}

} // namespace

QString overview(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openProfile();
    if (error.isEmpty())
        error = recording.openFolder();
    if (!error.isEmpty())
        return error;
    CardOverview card(recording.profile(), recording.card(), CardOverview::Trust::Wanted);
    while (card.step()) {
    }
    QJsonArray days;
    for (const DayOverview& day : card.days())
        days.append(jsonDay(day));
    QJsonArray cycles;
    std::vector<QString> unread;
    for (const CycleOverview& cycle : card.cycles()) {
        cycles.append(jsonCycle(cycle));
        unread.insert(unread.end(), cycle.unreadFiles.begin(), cycle.unreadFiles.end());
    }
    error = printJson({{QStringLiteral("days"), days}, {QStringLiteral("cycles"), cycles}});
    return error.isEmpty() ? unreadError(unread) : error;
}

} // namespace KOLT::Cli
