#pragma once

#include "library/archive/ArchiveTrash.h"

namespace KOLT::Library {

/// "<date time> <random>", the name of an import that begins now.
QString newImportId();

/// Returns what went wrong, for the user; empty on success.
QString writeRecord(const Archive& archive, const ImportRecord& record);

/// Whether an import that was not taken back knows all these files.
bool isRecorded(const Archive& archive, const QStringList& files);

} // namespace KOLT::Library
