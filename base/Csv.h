#pragma once

#include <QStringList>

namespace KOLT {

/// A CSV field as in RFC 4180: quoted when it contains a separator, quote or line break, with
/// quotes inside doubled.
QString csvField(const QString& text, QChar separator);

/// The fields quoted as needed and joined, with a line end.
QString csvLine(const QStringList& fields, QChar separator);

/// The content of a file with such lines: UTF-8 with a byte order mark.
QByteArray csvFile(const QString& lines);

} // namespace KOLT
