#include "export/XmlText.h"

#include <array>
#include <charconv>

namespace KOLT {

QString xmlText(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        const char16_t code = character.unicode();
        if (character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            result += character;
            result += text[++i];
        } else if (code == u'\t' || code == u'\n' || code == u'\r' ||
                   (code >= u' ' && !character.isSurrogate() && code < 0xFFFE)) {
            result += character;
        }
    }
    return result;
}

QString fixedText(double value, int decimals)
{
    std::array<char, 400> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): DBL_MAX fits
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, decimals);
    return QString::fromLatin1(buffer.data(), end.ptr - buffer.data());
}

} // namespace KOLT
