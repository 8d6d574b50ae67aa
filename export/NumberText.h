#pragma once

#include <string>

namespace KOLT {

/// Appends the number as printf's "%.*f" does, to the last digit, whatever the locale; but several
/// times as fast for numbers of the usual size.
void appendFixed(std::string& text, double value, int decimals);

} // namespace KOLT
