#pragma once

#include <QString>

namespace KOLT {

/// The text without the characters that no XML document may contain, escaped or not: control
/// characters, lone surrogates and the like.
QString xmlText(const QString& text);

/// The number in fixed notation, with "." whatever the locale.
QString fixedText(double value, int decimals);

} // namespace KOLT
