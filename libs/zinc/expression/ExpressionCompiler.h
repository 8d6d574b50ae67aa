#pragma once

#include "libs/zinc/expression/Expression.h"

#include <QString>

#include <variant>

namespace Zinc2D {

/// What is wrong with an expression, and at which of its characters.
struct ExpressionError
{
    qsizetype offset = 0;
    QString message;
};

/// Compiles one expression; its variables become known to the table.
///
///     condition ? a : b     or  ||     and  &&     == !=     < <= > >=     + -     * / %     - !
///     not numbers, #rrggbb, #aarrggbb, 'text', name, [any name], function(a, b, ...), ( )
std::variant<Expression, ExpressionError> compileExpression(const QString& text,
                                                            VariableTable& variables);

/// Several expressions: points between ";", the coordinates of each between ",".
std::variant<std::vector<Expression>, ExpressionError> compilePoints(const QString& text,
                                                                     VariableTable& variables);

} // namespace Zinc2D
