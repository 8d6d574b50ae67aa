#include "libs/zinc/expression/ExpressionScanner.h"

#include <charconv>

namespace Zinc2D {

namespace {

constexpr qsizetype maxLength = 4096;

} // namespace

ExpressionScanner::ExpressionScanner(const QString& text)
    : m_text(text)
{
    if (text.size() > maxLength)
        fail(QStringLiteral("the expression is too long"));
}

bool ExpressionScanner::isNameStart(QChar character)
{
    return character.isLetter() || character == u'_';
}

bool ExpressionScanner::isNamePart(QChar character)
{
    return character.isLetterOrNumber() || character == u'_' || character == u'.';
}

void ExpressionScanner::fail(const QString& message, qsizetype position)
{
    if (!m_error)
        m_error = ExpressionError{position, message};
    m_position = m_text.size();
}

void ExpressionScanner::failAtNext()
{
    if (isAtEnd())
        fail(QStringLiteral("the expression ends too early"));
    else
        fail(QStringLiteral("\"%1\" is not expected here").arg(m_text[m_position]));
}

qsizetype ExpressionScanner::position()
{
    while (m_position < m_text.size() && m_text[m_position].isSpace())
        ++m_position;
    return m_position;
}

bool ExpressionScanner::take(std::string_view sign)
{
    const QLatin1StringView wanted(sign.data(), static_cast<qsizetype>(sign.size()));
    if (!QStringView(m_text).mid(position()).startsWith(wanted))
        return false;
    const qsizetype end = m_position + wanted.size();
    if (isNameStart(wanted[0]) && end < m_text.size() && isNamePart(m_text[end]))
        return false;
    m_position = end;
    return true;
}

void ExpressionScanner::expect(std::string_view sign)
{
    if (!m_error && !take(sign))
        failAtNext();
}

QString ExpressionScanner::takeName()
{
    const qsizetype start = position();
    while (m_position < m_text.size() && isNamePart(m_text[m_position]))
        ++m_position;
    return m_text.mid(start, m_position - start);
}

QString ExpressionScanner::takeUpTo(QChar closing, const QString& missing)
{
    const qsizetype end = m_text.indexOf(closing, m_position + 1);
    if (end < 0) {
        fail(missing);
        return {};
    }
    const qsizetype start = m_position + 1;
    m_position = end + 1;
    return m_text.mid(start, end - start);
}

QString ExpressionScanner::takeBracketedName()
{
    const qsizetype start = position();
    const QString name = takeUpTo(u']', QStringLiteral("\"]\" is missing")).trimmed();
    if (name.isEmpty())
        fail(QStringLiteral("there is no name between the brackets"), start);
    return name;
}

QString ExpressionScanner::takeText()
{
    return takeUpTo(u'\'', QStringLiteral("the closing ' is missing"));
}

double ExpressionScanner::takeColor()
{
    qsizetype end = m_position + 1;
    while (end < m_text.size() && m_text[end].isLetterOrNumber())
        ++end;
    bool isHexadecimal = false;
    const QStringView digits = QStringView(m_text).mid(m_position + 1, end - m_position - 1);
    const uint color = digits.toUInt(&isHexadecimal, 16);
    if (!isHexadecimal || (digits.size() != 6 && digits.size() != 8))
        fail(QStringLiteral("a colour is written as #rrggbb or #aarrggbb"));
    else
        m_position = end;
    return digits.size() == 6 ? color | 0xFF000000U : color;
}

double ExpressionScanner::takeNumber()
{
    const QByteArray rest = m_text.mid(m_position).toLatin1();
    double number = 0.0;
    const auto [end, error] =
        std::from_chars(rest.data(), rest.data() + rest.size(), number, std::chars_format::general);
    if (error != std::errc())
        fail(QStringLiteral("this is not a number"));
    else
        m_position += end - rest.data();
    return number;
}

} // namespace Zinc2D
