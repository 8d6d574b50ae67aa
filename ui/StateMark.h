#pragma once

#include <QIcon>

namespace KOLT {

/// The worst state of a cycle or flight as a small mark. Marks differ in shape and in colour.
enum class StateMark {
    None,    ///< not known: no mark
    Good,    ///< a small green dot
    Warning, ///< an amber triangle
    Limit    ///< a red square that stands on its corner
};

/// The mark alone.
QIcon markIcon(StateMark mark);

/// The icon with the mark at its lower right corner.
QIcon markedIcon(const QIcon& icon, StateMark mark);

} // namespace KOLT
