#include "analysis/EventTexts.h"

#include "analysis/FlightLog.h"
#include "analysis/MomentText.h"
#include "base/Csv.h"

#include <QCoreApplication>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::EventTexts)
};

QString durationOf(const EventDetails& details)
{
    return details.duration ? durationText(*details.duration)
                            : Text::tr("until the end of the data");
}

QString engineSpeedOf(const EventDetails& details, const QString& unit)
{
    return details.engineSpeed ? figureText(*details.engineSpeed, 0, unit) : QStringLiteral("-");
}

} // namespace

QString descriptionOf(const EventDetails& details)
{
    const QString peak = details.unit.isEmpty()
                             ? details.peakText
                             : details.peakText + QLatin1Char(' ') + details.unit;
    return Text::tr("Peak value: %1\nDuration until normal: %2\nEngine speed: %3")
        .arg(peak, durationOf(details), engineSpeedOf(details, QStringLiteral("rpm")));
}

QString csvOf(const std::vector<const Event*>& events, const Profile& profile,
              const DataSet& dataSet, const ListSettings& settings)
{
    QString text = csvLine({Text::tr("Time"), Text::tr("Seconds"), Text::tr("Date"),
                            Text::tr("Clock time"), Text::tr("Device"), Text::tr("Parameter"),
                            Text::tr("State"), Text::tr("Text"), Text::tr("Peak value"),
                            Text::tr("Unit"), Text::tr("Duration"), Text::tr("Engine speed [rpm]")},
                           settings.separator);
    for (const Event* event : events) {
        const EventDetails details = detailsOf(profile, dataSet, *event);
        const QDateTime moment = momentOf(dataSet, event->seconds);
        text += csvLine(
            {counterText(event->seconds),
             settings.numberText(QString::number(event->seconds, 'f', 3)),
             moment.toString(QStringLiteral("dd.MM.yyyy")),
             moment.toString(QStringLiteral("hh:mm:ss")), event->group, event->parameter->name,
             event->grade.state == ThresholdState::Limit ? Text::tr("Limit") : Text::tr("Warning"),
             event->text, settings.numberText(details.peakText), details.unit, durationOf(details),
             engineSpeedOf(details, {})},
            settings.separator);
    }
    return text;
}

} // namespace KOLT
