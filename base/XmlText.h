#pragma once

#include <QString>

namespace KOLT {

/// What happens to characters that no XML document may contain, escaped or not: control characters,
/// lone surrogates and the like. One of them would make the whole file unreadable.
enum class InvalidXml {
    Drop,
    Replace ///< by U+FFFD
};

QString xmlText(const QString& text, InvalidXml invalid);

} // namespace KOLT
