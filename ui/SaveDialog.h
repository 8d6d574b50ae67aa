#pragma once

#include <QString>

class QWidget;

namespace KOLT {

/// Lets the user name a file to be written. A name without a suffix gets this one, before it is
/// asked whether a file of that name is to be replaced. Empty when cancelled, and when nothing may
/// be written there (base/WriteGuard.h), which is told.
QString askForSavePath(QWidget* parent, const QString& title, const QString& proposed,
                       const QString& filter, const QString& suffix);

} // namespace KOLT
