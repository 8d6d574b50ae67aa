#pragma once

#include <QStringList>

namespace KOLT {

/// A CSV field as in RFC 4180: quoted when it contains a separator, quote or line break, with
/// quotes inside doubled.
QString csvField(const QString& text, QChar separator);

/// The number as printf writes it with "%.*f", optionally with a decimal comma, which spreadsheets
/// need in many countries.
QString csvNumber(double number, int decimals, bool hasDecimalComma);

/// The same for a number that is already text.
QString csvNumber(QString number, bool hasDecimalComma);

/// The fields quoted as needed and joined, with a line end.
QString csvLine(const QStringList& fields, QChar separator);

/// The content of a file with such lines: UTF-8 with a byte order mark.
QByteArray csvFile(const QString& lines);

} // namespace KOLT
