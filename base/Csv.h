#pragma once

#include <QStringList>

namespace KOLT {

/// A field of a CSV file as RFC 4180 has it: with a separator, quote or line break it is quoted,
/// and quotes in it are doubled.
QString csvField(const QString& text, QChar separator);

/// A line of such fields, with its line feed.
QString csvLine(const QStringList& fields, QChar separator);

} // namespace KOLT
