#pragma once

#include <QLocale>
#include <QString>

namespace KOLT {

/// Settings for saving a list or a day sheet as CSV.
struct ListSettings
{
    QString folder{QStringLiteral(".")}; ///< where the file dialog starts
    QChar separator{u';'};
    bool decimalComma = false;

    /// The text as written to the file: a number gets the decimal comma if that is set.
    QString numberText(QString text) const
    {
        bool isNumber = false;
        QLocale::c().toDouble(text, &isNumber);
        return decimalComma && isNumber ? text.replace(QLatin1Char('.'), QLatin1Char(',')) : text;
    }
};

} // namespace KOLT
