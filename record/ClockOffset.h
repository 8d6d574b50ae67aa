#pragma once

#include "record/RecordFile.h"

#include <optional>

/// The unit's clock, which is taken as UTC, and what the user wants to be added to it, in minutes.
namespace KOLT {

constexpr int maxClockOffset = 14 * 60;

/// "+02:00", "-03:30".
QString clockOffsetText(int minutes);

/// Reads such a text, also without the sign and with one digit for the hours; none when it is
/// another, or beyond maxClockOffset.
std::optional<int> clockOffsetOf(const QString& text);

/// How dates and times came about, in one line for sheets.
QString clockLine(int minutes);

/// By how much dates and clock times are late where loading begins with this file: its date is
/// taken as that of counter 0. 0 when it is not worth telling.
double lateClockSeconds(const RecordInfo& first);

} // namespace KOLT
