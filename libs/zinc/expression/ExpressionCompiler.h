#pragma once

#include "libs/zinc/expression/Expression.h"

#include <QString>

#include <variant>

namespace Zinc2D {

/// A syntax or type error, and the index of the character where it is.
struct ExpressionError
{
    qsizetype offset = 0;
    QString message;
};

/// Compiles one expression and adds its variables to the table. Operators, loosest first, then
/// operands:
///
///     a ? b : c    or ||    and &&    == !=    < <= > >=    + -    * / %    - ! not
///     numbers, #rrggbb, #aarrggbb, 'text', name, [any name], function(a, b, ...), ( )
std::variant<Expression, ExpressionError> compileExpression(const QString& text,
                                                            VariableTable& variables);

/// Compiles a list of points "x, y; x, y; ..." to the expressions of x, y, x, y, ...
std::variant<std::vector<Expression>, ExpressionError> compilePoints(const QString& text,
                                                                     VariableTable& variables);

} // namespace Zinc2D
