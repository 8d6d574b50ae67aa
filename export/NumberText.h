#pragma once

#include <string>

namespace KOLT {

/// Appends exactly what printf("%.*f") prints in the C locale, but several times as fast for
/// numbers below 1e9.
void appendFixed(std::string& text, double value, int decimals);

} // namespace KOLT
