#pragma once

#include "record/DataSet.h"

#include <QString>

namespace KOLT {

/// Summary of the path: "4 flights, 6,305 positions, two a second", or that there is none.
QString pathSummary(const DataSet& dataSet);

} // namespace KOLT
