#pragma once

#include <QByteArray>
#include <QString>

#include <map>

namespace KOLT {

/// A ZIP file of these files, whose names may have folders ("Case/note.json"). The same bytes for
/// the same content: all are dated 1 January 1980. Empty when it would be larger than 4 GB, which
/// the format cannot say.
QByteArray zipOf(const std::map<QString, QByteArray>& files);

} // namespace KOLT
