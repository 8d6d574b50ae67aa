#pragma once

#include "tools/samplecard/HistoryPlan.h"

#include <functional>

namespace KOLT::SampleCard {

/// Writes the cards of a club over months, as somebody saved them at each month's end: a folder
/// "<year>-<month>-<unit>" per card, and "history.json" with what is true (HistoryTruth.h).
///
/// A card is erased every third month. Until then it keeps its files, so that later folders hold
/// files of earlier months too; afterwards file names start again, with other content. The first
/// folder after an erasure was saved too early: the last file of its last engine run is only in
/// the next one. Messages are sent rarely, to keep the files small. The same options give the same
/// bytes. False, with the reason, on failure; `report` is called with one line per card.
bool writeSampleHistory(const HistoryOptions& options,
                        const std::function<void(const QString& line)>& report, QString* error);

} // namespace KOLT::SampleCard
