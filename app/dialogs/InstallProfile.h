#pragma once

#include "app/settings/InstalledProfile.h"

#include <QString>

class QWidget;

namespace KOLT {

/// Lets the user choose a profile file; empty if cancelled.
QString askForProfile(QWidget* parent);

/// Installs a profile file and reports the result to the user.
InstalledProfile::Result installProfile(QWidget* parent, const QString& path);

/// The same, but says nothing when it was installed.
InstalledProfile::Result installProfileSilently(QWidget* parent, const QString& path);

} // namespace KOLT
