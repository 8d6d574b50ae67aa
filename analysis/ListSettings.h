#pragma once

#include <QLocale>
#include <QString>

namespace KOLT {

/// What saving a list or a day sheet as CSV takes from the program's settings.
struct ListSettings
{
    QString folder{QStringLiteral(".")}; ///< offered first
    QChar separator{u';'};
    bool decimalComma = false;

    /// A text as it stands in the file: with the decimal comma when it is a number.
    QString numberText(QString text) const
    {
        bool isNumber = false;
        QLocale::c().toDouble(text, &isNumber);
        return decimalComma && isNumber ? text.replace(QLatin1Char('.'), QLatin1Char(',')) : text;
    }
};

} // namespace KOLT
