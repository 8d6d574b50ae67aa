#pragma once

#include <QStringList>

namespace KOLT {

/// A line of a CSV file as RFC 4180 has it, with its line feed: a field with a separator, quote or
/// line break is quoted, and quotes in it are doubled.
QString csvLine(const QStringList& fields, QChar separator);

} // namespace KOLT
