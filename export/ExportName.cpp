#include "export/ExportName.h"

#include "export/ExportClock.h"
#include "export/ExportText.h"

#include <algorithm>

namespace KOLT {

namespace {

/// Clock at the take-off of a flight, otherwise at the first loaded sample.
QDateTime momentOf(const DataSet& dataSet)
{
    if (const Flight* const flight = dataSet.flight())
        return flight->dateTime;
    const ExportClock clock(dataSet.dateTime);
    return clock.dateTime(dataSet.startSeconds);
}

QString wordsOf(const ExportSubject& subject, const DataSet& dataSet)
{
    if (dataSet.flightIndex)
        return ExportText::tr("Flight %1").arg(*dataSet.flightIndex + 1);
    if (subject.cycle)
        return ExportText::tr("Cycle %1").arg(*subject.cycle);
    return subject.files.value(0);
}

/// Replaces all characters that are not safe on every file system.
QString plain(QString text)
{
    for (QChar& character : text) {
        const char16_t code = character.unicode();
        const bool isPlain = (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
                             (code >= u'0' && code <= u'9') || code == u'.' || code == u'-';
        if (!isPlain)
            character = QLatin1Char('_');
    }
    return text;
}

} // namespace

QString exportTitle(const ExportSubject& subject, const DataSet& dataSet)
{
    const QString words = wordsOf(subject, dataSet);
    const QDateTime moment = momentOf(dataSet);
    if (!moment.isValid())
        return words;
    return words + QStringLiteral(", ") + moment.toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}

QString exportFileName(const ExportSubject& subject, const DataSet& dataSet, const QString& suffix)
{
    QStringList parts{QStringLiteral("Kolt")};
    const QDateTime moment = momentOf(dataSet);
    if (moment.isValid())
        parts << moment.toString(QStringLiteral("yyyy-MM-dd_hhmm"));
    if (subject.cycle && (!dataSet.flightIndex || !moment.isValid()))
        parts << QStringLiteral("Cycle%1").arg(*subject.cycle);
    if (dataSet.flightIndex)
        parts << QStringLiteral("Flight%1").arg(*dataSet.flightIndex + 1);
    else if (!subject.files.isEmpty())
        parts << subject.files.front().section(QLatin1Char('.'), 0, 0).left(40);
    for (QString& part : parts)
        part = plain(part);
    return parts.join(QLatin1Char('_')) + QLatin1Char('.') + suffix;
}

} // namespace KOLT
