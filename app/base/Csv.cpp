#include "app/base/Csv.h"

#include <algorithm>

namespace KOLT {

namespace {

QString csvField(QString field, QChar separator)
{
    const bool isQuoted = std::ranges::any_of(field, [separator](QChar character) {
        return character == separator || character == QLatin1Char('"') ||
               character == QLatin1Char('\n') || character == QLatin1Char('\r');
    });
    if (!isQuoted)
        return field;
    field.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + field + QLatin1Char('"');
}

} // namespace

QString csvLine(const QStringList& fields, QChar separator)
{
    QStringList quoted;
    for (const QString& field : fields)
        quoted.push_back(csvField(field, separator));
    return quoted.join(separator) + QStringLiteral("\r\n");
}

} // namespace KOLT
