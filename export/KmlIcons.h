#pragma once

#include <QByteArray>
#include <QColor>

namespace KOLT {

/// The marks of a KML document. Each has a shape of its own: colours alone are not told apart by
/// everybody, nor on paper.
enum class KmlIcon {
    Dot,     ///< along the path
    Warning, ///< a diamond
    Limit    ///< a triangle with an exclamation mark
};

/// Where KML finds the icon when it is not packed.
const char* iconAddress(KmlIcon icon);

/// The icon's name in a KMZ file.
const char* iconName(KmlIcon icon);

/// A PNG picture of the icon.
QByteArray iconPicture(KmlIcon icon, const QColor& color);

} // namespace KOLT
