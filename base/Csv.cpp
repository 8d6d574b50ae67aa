#include "base/Csv.h"

#include <algorithm>
#include <array>
#include <charconv>

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

QString csvNumber(double number, int decimals, bool hasDecimalComma)
{
    std::array<char, 400> digits; // NOLINT(cppcoreguidelines-pro-type-member-init): DBL_MAX fits
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, decimals);
    return csvNumber(QString::fromLatin1(digits.data(), end.ptr - digits.data()), hasDecimalComma);
}

QString csvNumber(QString number, bool hasDecimalComma)
{
    return hasDecimalComma ? number.replace(QLatin1Char('.'), QLatin1Char(',')) : number;
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
