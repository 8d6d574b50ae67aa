#pragma once

#include "record/DataSet.h"

#include <QString>

namespace KOLT {

/// What there is of a path: "4 flights, 6,305 points", or that there is none.
QString pathSummary(const DataSet& dataSet);

} // namespace KOLT
