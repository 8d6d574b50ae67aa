#pragma once

#include <QString>

class QWidget;

namespace KOLT {

/// Asks for a file to write. The suffix is added to a name without one before the dialog asks
/// whether to replace an existing file. Empty when cancelled, and when the file must not be written
/// (base/WriteGuard.h), which the user is told.
QString askForSavePath(QWidget* parent, const QString& title, const QString& proposed,
                       const QString& filter, const QString& suffix);

} // namespace KOLT
