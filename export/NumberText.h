#pragma once

#include <QString>

#include <string>

namespace KOLT {

/// Appends what printf("%.*f") prints in the C locale.
void appendFixed(std::string& text, double value, int decimals);

QString fixedText(double value, int decimals);

} // namespace KOLT
