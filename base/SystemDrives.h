#pragma once

#include <QByteArray>
#include <QString>

namespace KOLT::System {

/// The removable drives with a medium in them where the system has drive letters: a line
/// "drive E:/ LABEL 0" for each, blanks written as "\040" as in a table of mounts. Empty on other
/// systems.
QByteArray removableDrives();

/// Whether a path begins with the letter of a drive that is another computer's folder.
bool isNetworkDrive(const QString& path);

} // namespace KOLT::System
