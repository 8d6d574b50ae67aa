#pragma once

#include <QStringList>

namespace KOLT {

/// A field of a CSV file as RFC 4180 has it: with a separator, quote or line break it is quoted,
/// and quotes in it are doubled.
QString csvField(const QString& text, QChar separator);

/// The number as the C library prints it, with that many decimals; with a decimal comma for the
/// spreadsheets of countries that write numbers so.
QString csvNumber(double number, int decimals, bool hasDecimalComma);

/// A number that is text already, as values of parameters are.
QString csvNumber(QString number, bool hasDecimalComma);

/// A line of such fields, with its line feed.
QString csvLine(const QStringList& fields, QChar separator);

} // namespace KOLT
