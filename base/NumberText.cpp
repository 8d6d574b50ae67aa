#include "base/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace KOLT {

namespace {

/// Below this, the error of the product in appendFixed() is far less than `doubt`.
constexpr double largest = 1e9;
constexpr double doubt = 1e-6;

constexpr std::array powers{1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

void appendExact(std::string& text, double value, int decimals)
{
    std::array<char, 400> digits; // NOLINT(cppcoreguidelines-pro-type-member-init): DBL_MAX fits
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, decimals);
    text.append(digits.data(), end.ptr);
}

} // namespace

void appendFixed(std::string& text, double value, int decimals)
{
    const double scaled = decimals >= 0 && decimals < static_cast<int>(powers.size())
                              ? std::abs(value) * powers[static_cast<std::size_t>(decimals)]
                              : largest;
    const double rest = scaled - std::floor(scaled);
    // So close to a tie, the product's error may decide the rounding.
    if (!(scaled < largest) || std::abs(rest - 0.5) < doubt) {
        appendExact(text, value, decimals);
        return;
    }
    auto whole = static_cast<std::uint32_t>(scaled + 0.5);
    std::array<char, 16> digits; // NOLINT(cppcoreguidelines-pro-type-member-init)
    char* const end = digits.data() + digits.size();
    char* next = end;
    for (int i = 0; i < decimals; ++i, whole /= 10)
        *--next = static_cast<char>('0' + whole % 10);
    if (decimals > 0)
        *--next = '.';
    do {
        *--next = static_cast<char>('0' + whole % 10);
        whole /= 10;
    } while (whole > 0);
    if (std::signbit(value))
        *--next = '-';
    text.append(next, end);
}

QString fixedText(double value, int decimals)
{
    if (std::isnan(value))
        return QStringLiteral("nan");
    std::string text;
    appendFixed(text, value, decimals);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace KOLT
