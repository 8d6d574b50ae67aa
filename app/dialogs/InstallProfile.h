#pragma once

#include <QString>

class QWidget;

namespace KOLT {

/// Lets the user choose a profile file; empty if cancelled.
QString askForProfile(QWidget* parent);

/// Installs a profile file and reports the result to the user. True if it was installed.
bool installProfile(QWidget* parent, const QString& path);

} // namespace KOLT
