#pragma once

#include "export/ExportProgress.h"
#include "record/DataSet.h"

#include <cstdint>
#include <vector>

class QIODevice;

namespace KOLT {

class CardContainer;

/// The bus that the samples from a sequence number on were recorded from.
struct BusSpan
{
    std::uint32_t firstSequence = 0;
    std::uint32_t busType = 0;
};

/// The buses of a data set that was loaded from the card, by the headers of its files.
std::vector<BusSpan> busesOf(const CardContainer& card, const DataSet& dataSet);

/// What a log does not hold as it was recorded.
struct CandumpSummary
{
    std::size_t written = 0;
    std::size_t leftOut = 0; ///< samples whose identifier has more than 29 bits
    bool hasClock = true;    ///< otherwise times are those of the unit's counter
};

/// Writes all samples as a text log of the CAN utilities (docs/exports.md), a line for each in the
/// order in which they were recorded. `buses` ascend. Memory use does not depend on their number.
ExportStatus writeCandump(QIODevice& device, const DataSet& dataSet,
                          const std::vector<BusSpan>& buses, CandumpSummary& summary,
                          const ExportProgress& progress = {});

} // namespace KOLT
