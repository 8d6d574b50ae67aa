#pragma once

#include <QString>

#include <string>

namespace KOLT {

/// Appends what printf("%.*f") prints in the C locale. Avoiding std::to_chars for most numbers
/// below 1e9 makes the whole CSV export 1.9 times as fast.
void appendFixed(std::string& text, double value, int decimals);

/// The same as a text of its own. NaN is "nan", whatever its sign.
QString fixedText(double value, int decimals);

} // namespace KOLT
