#pragma once

#include <QString>

namespace KOLT {

/// The text without characters that XML forbids even escaped: control characters, lone surrogates
/// and noncharacters.
QString xmlText(const QString& text);

/// The number in fixed notation with a decimal point in any locale.
QString fixedText(double value, int decimals);

} // namespace KOLT
