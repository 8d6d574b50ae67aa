#pragma once

#include "record/FileTrust.h"

namespace KOLT {

/// The clock at counter 0 by the run that a file belongs to, in seconds since 1970: its own, or of
/// an undated file that of the dated one behind it that goes on from it.
std::optional<double> runClock(const std::vector<const FileFacts*>& files, const FileFacts* file);

/// Divides the sound files by the run of the unit that they come from, and looks at the order of
/// each run's files and at what lies between them.
void checkRuns(const CardFiles& card, const std::vector<const FileFacts*>& files, FileTrust& trust);

} // namespace KOLT
