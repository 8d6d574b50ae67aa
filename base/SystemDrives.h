#pragma once

#include <QByteArray>

namespace KOLT::System {

/// The removable drives with a medium in them where the system has drive letters: a line
/// "drive E:/ LABEL 0" for each, blanks written as "\040" as in a table of mounts. Empty on other
/// systems.
QByteArray removableDrives();

} // namespace KOLT::System
