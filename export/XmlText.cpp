#include "export/XmlText.h"

#include "export/NumberText.h"

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
    std::string text;
    appendFixed(text, value, decimals);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace KOLT
