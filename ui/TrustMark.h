#pragma once

#include <QIcon>

namespace KOLT {

/// How far something can be believed, as a mark. Marks differ in shape and in colour.
enum class TrustMark {
    None,     ///< nothing to tell: no mark
    Note,     ///< a grey ring with a dot
    Doubtful, ///< an amber triangle with an exclamation mark
    Wrong     ///< a red disc with a cross
};

/// Sharp at any size and scale factor.
QIcon trustIcon(TrustMark mark);

} // namespace KOLT
