#pragma once

#include "library/ledger/LogbookRecords.h"

namespace KOLT::Library {

/// Why an installation cannot be as it is, for the user: its days are reversed, or on some day its
/// unit has another engine, or its engine is in another unit. Empty if it can. `others` may include
/// it as it was before. The day of a change belongs to one of the two engines.
QString objectionTo(const WrittenInstallation& installation,
                    const std::vector<WrittenInstallation>& others);

/// By unit and time, those from the beginning first.
std::vector<WrittenInstallation> inOrder(std::vector<WrittenInstallation> installations);

/// "from 3.5.2024 to 8.9.2025", "until 8.9.2025", "from 3.5.2024", "always".
QString spanText(const WrittenInstallation& installation);

} // namespace KOLT::Library
