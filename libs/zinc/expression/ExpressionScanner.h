#pragma once

#include "libs/zinc/expression/ExpressionCompiler.h"

#include <optional>
#include <string_view>

namespace Zinc2D {

/// Splits the text of an expression into signs, names and constants, and keeps the first error.
/// After an error it is at the end of the text, so that loops over the text end.
class ExpressionScanner
{
public:
    /// The text must outlive the scanner.
    explicit ExpressionScanner(const QString& text);

    /// Index of the next character that is not blank.
    qsizetype position();

    bool isAtEnd() { return position() >= m_text.size(); }

    /// The next character that is not blank; null at the end.
    QChar peek() { return isAtEnd() ? QChar() : m_text[m_position]; }

    /// Whether a name without brackets comes next.
    bool startsName() { return isNameStart(peek()); }

    /// Consumes the sign if it comes next; a word only if it is not the start of a longer name.
    bool take(std::string_view sign);

    /// Fails unless the sign comes next.
    void expect(std::string_view sign);

    // Each consumes what starts with the next character, which must be the right one for it.
    QString takeName();
    QString takeBracketedName(); ///< [any name]; without brackets and outer blanks
    QString takeText();          ///< 'text'; without quotes
    double takeColor();          ///< #rrggbb or #aarrggbb; as 0xAARRGGBB
    double takeNumber();

    void fail(const QString& message) { fail(message, m_position); }

    void fail(const QString& message, qsizetype position);
    /// Reports that the next character cannot come here.
    void failAtNext();

    const std::optional<ExpressionError>& error() const { return m_error; }

private:
    static bool isNameStart(QChar character);
    static bool isNamePart(QChar character);

    /// The text up to the closing character, which is consumed too; empty if there is none.
    QString takeUpTo(QChar closing, const QString& missing);

    const QString& m_text;
    qsizetype m_position = 0;
    std::optional<ExpressionError> m_error;
};

} // namespace Zinc2D
