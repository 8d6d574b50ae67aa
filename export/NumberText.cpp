#include "export/NumberText.h"

#include <array>
#include <charconv>

namespace KOLT {

void appendFixed(std::string& text, double value, int decimals)
{
    std::array<char, 400> digits; // NOLINT(cppcoreguidelines-pro-type-member-init): DBL_MAX fits
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, decimals);
    text.append(digits.data(), end.ptr);
}

QString fixedText(double value, int decimals)
{
    std::string text;
    appendFixed(text, value, decimals);
    return QString::fromStdString(text);
}

} // namespace KOLT
