#include "libs/zinc/view/NumberFormat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace Zinc2D {

namespace {

constexpr int maxFigures = 30;
constexpr int usualDashes = 3;

/// Reads digits and moves past them; -1 if the number is too large.
int takeNumber(const QString& text, qsizetype& position)
{
    int number = 0;
    while (position < text.size() && text[position] >= u'0' && text[position] <= u'9' &&
           number <= maxFigures)
        number = 10 * number + text[position++].digitValue();
    return number <= maxFigures ? number : -1;
}

} // namespace

NumberFormat::NumberFormat()
    : m_conversion("%g")
{
}

std::optional<NumberFormat> NumberFormat::parse(const QString& text, qsizetype* badOffset)
{
    NumberFormat format;
    format.m_kind = Kind::None;
    QString* literal = &format.m_prefix;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'%') {
            *literal += text[i];
            continue;
        }
        const qsizetype start = i++;
        if (i < text.size() && text[i] == u'%') {
            *literal += u'%';
            continue;
        }
        if (badOffset != nullptr)
            *badOffset = start;
        while (i < text.size() && QStringLiteral("+- 0#").contains(text[i]))
            ++i;
        format.m_width = takeNumber(text, i);
        constexpr int usualDecimals = 6;
        int decimals = usualDecimals;
        if (i < text.size() && text[i] == u'.')
            decimals = takeNumber(text, ++i);
        const bool isTooLarge = format.m_width < 0 || decimals < 0;
        if (i >= text.size() || isTooLarge || format.m_kind != Kind::None)
            return {};
        const QChar conversion = text[i];
        if (QStringLiteral("di").contains(conversion))
            format.m_kind = Kind::Integer;
        else if (QStringLiteral("uxX").contains(conversion))
            format.m_kind = Kind::Unsigned;
        else if (QStringLiteral("eEfFgG").contains(conversion))
            format.m_kind = Kind::Floating;
        else
            return {};
        format.m_conversion = text.mid(start, i - start).toLatin1();
        if (format.m_kind != Kind::Floating)
            format.m_conversion += "ll";
        format.m_conversion += conversion.toLatin1();
        const bool hasDecimals = QStringLiteral("fF").contains(conversion);
        format.m_decimals = hasDecimals ? decimals : 0;
        literal = &format.m_suffix;
    }
    return format;
}

QByteArray NumberFormat::toBytes(double number) const
{
    std::array<char, 400> buffer{}; // the largest double has 309 digits before its point
    int length = 0;
    if (m_kind == Kind::Floating) {
        length = std::snprintf(buffer.data(), buffer.size(), m_conversion.constData(), number);
    } else {
        constexpr double most = 9e18;
        const double rounded = std::round(std::clamp(number, -most, most));
        if (m_kind == Kind::Integer)
            length = std::snprintf(buffer.data(), buffer.size(), m_conversion.constData(),
                                   static_cast<long long>(rounded));
        else
            length = std::snprintf(buffer.data(), buffer.size(), m_conversion.constData(),
                                   static_cast<unsigned long long>(std::max(rounded, 0.0)));
    }
    return QByteArray(buffer.data(), std::clamp(length, 0, static_cast<int>(buffer.size()) - 1));
}

QString NumberFormat::apply(double number) const
{
    if (m_kind == Kind::None)
        return m_prefix;
    if (std::isnan(number))
        return dashes();
    QByteArray text = toBytes(number);
    const bool isZero = std::ranges::none_of(
        text, [](char c) { return (c >= '1' && c <= '9') || (c >= 'a' && c <= 'z'); });
    if (number < 0.0 && isZero)
        text = toBytes(0.0);
    return m_prefix + QString::fromLatin1(text) + m_suffix;
}

QString NumberFormat::dashes() const
{
    if (m_kind == Kind::None)
        return m_prefix;
    QString text;
    if (m_decimals > 0)
        text = QStringLiteral("--.") + QString(m_decimals, u'-');
    else
        text = QString(usualDashes, u'-');
    return m_prefix + text.rightJustified(m_width) + m_suffix;
}

} // namespace Zinc2D
