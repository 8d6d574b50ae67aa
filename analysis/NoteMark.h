#pragma once

#include <QString>

namespace KOLT {

/// What somebody wrote down about a moment of the loaded data, as graph and map mark it.
struct NoteMark
{
    double seconds = 0.0; ///< on the unit's counter
    QString text;         ///< plain, of one line or more
};

} // namespace KOLT
