#include "cli/Json.h"

#include "cli/Recording.h"

#include <QJsonDocument>

namespace KOLT::Cli {

QJsonValue jsonDateTime(const QDateTime& dateTime)
{
    if (!dateTime.isValid())
        return QJsonValue::Null;
    return dateTime.toString(QStringLiteral("yyyy-MM-ddThh:mm:ss"));
}

QJsonObject jsonFlight(const Flight& flight)
{
    return {
        {QStringLiteral("dateTime"), jsonDateTime(flight.dateTime)},
        {QStringLiteral("start"), flight.startSeconds},
        {QStringLiteral("end"), flight.endSeconds},
        {QStringLiteral("takeOff"), flight.takeOffSeconds},
        {QStringLiteral("landing"), flight.landingSeconds},
        {QStringLiteral("minAltitude"), flight.minAltitude},
        {QStringLiteral("maxAltitude"), flight.maxAltitude},
        {QStringLiteral("altitudeGain"), flight.altitudeGain},
        {QStringLiteral("climbRate"), flight.climbRate},
        {QStringLiteral("descentRate"), flight.descentRate},
        {QStringLiteral("maxGroundSpeed"), flight.maxGroundSpeed},
        {QStringLiteral("fuelA"), flight.fuelA},
        {QStringLiteral("fuelB"), flight.fuelB},
        {QStringLiteral("fuel"), flight.fuel},
        {QStringLiteral("timePer100m"), flight.timePer100m},
        {QStringLiteral("fuelPer100m"), flight.fuelPer100m},
        {QStringLiteral("takeOffDistance"), flight.takeOffDistance},
        {QStringLiteral("takeOffDistance15m"), flight.takeOffDistance15m},
    };
}

QString printJson(const QJsonObject& object)
{
    writeOutput(QJsonDocument(object).toJson());
    return finishOutput();
}

} // namespace KOLT::Cli
