#include "base/Csv.h"

#include <algorithm>

namespace KOLT {

QString csvField(const QString& text, QChar separator)
{
    const bool isQuoted = std::ranges::any_of(text, [separator](QChar character) {
        return character == separator || character == QLatin1Char('"') ||
               character == QLatin1Char('\n') || character == QLatin1Char('\r');
    });
    if (!isQuoted)
        return text;
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

QString csvLine(const QStringList& fields, QChar separator)
{
    QStringList quoted;
    for (const QString& field : fields)
        quoted.push_back(csvField(field, separator));
    return quoted.join(separator) + QStringLiteral("\r\n");
}

QByteArray csvFile(const QString& lines)
{
    return "\xEF\xBB\xBF" + lines.toUtf8();
}

} // namespace KOLT
