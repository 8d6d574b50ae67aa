#pragma once

#include <QString>

class QWidget;

namespace KOLT {

/// Asks for a profile file; empty when cancelled.
QString askForProfile(QWidget* parent);

/// Installs the file and reports the result in a message box. True when it was installed.
bool installProfile(QWidget* parent, const QString& path);

} // namespace KOLT
