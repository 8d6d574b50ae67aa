#include "base/XmlText.h"

namespace KOLT {

namespace {

bool isXmlCharacter(char32_t c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) ||
           (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

} // namespace

QString xmlText(const QString& text, InvalidXml invalid)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const char32_t code =
            isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : char32_t{text[i].unicode()};
        if (isXmlCharacter(code))
            result += QStringView(text).mid(i, isPair ? 2 : 1);
        else if (invalid == InvalidXml::Replace)
            result += QChar::ReplacementCharacter;
        i += isPair ? 1 : 0;
    }
    return result;
}

} // namespace KOLT
