#pragma once

#include <QString>

namespace KOLT {

/// The folder of the sample card below the data path. Puts the recordings that come with the
/// program there, read-only, if they are not there yet. Empty if there are none or they cannot be
/// written; the reason is then printed.
QString installSampleCard();

} // namespace KOLT
