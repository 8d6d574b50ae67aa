#pragma once

#include "report/EngineReport.h"

#include <functional>

namespace KOLT {

class CardContainer;

/// What is being read, and percent of the work done. Returns false to end reading.
using ReportProgress = std::function<bool(const QString& name, int percent)>;

/// Reads what the report of an open folder holds: loads one cycle after the other into `card`, then
/// reads all files for their hashes. Texts are in the profile's unit system and the program's
/// language. The profile must stay as it is until this returns.
EngineReport readReport(const Profile& profile, CardContainer& card, const QDate& date,
                        const ReportProgress& progress = {});

} // namespace KOLT
