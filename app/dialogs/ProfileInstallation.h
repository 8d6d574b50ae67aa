#pragma once

#include <QString>

class QWidget;

namespace KOLT {

/// Lets the user choose a profile file; empty when cancelled.
QString askForProfile(QWidget* parent);

/// Installs it, and tells the user how it went. True when it is installed.
bool installProfile(QWidget* parent, const QString& path);

} // namespace KOLT
