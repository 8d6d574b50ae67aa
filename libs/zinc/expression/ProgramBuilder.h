#pragma once

#include "libs/zinc/expression/Expression.h"

#include <span>

namespace Zinc2D {

/// Builds the program of an expression, and checks the types of the values on its stack.
class ProgramBuilder
{
public:
    void pushConstant(double number, ValueTypes type);
    void pushText(const QString& text);
    void pushVariable(int slot, ValueTypes types);

    /// Replaces the topmost values by the result of an operation on them. False, and nothing is
    /// changed, if it can never take values of these types.
    bool apply(Expression::Operation operation, int operands);

    /// Whether the program needs more instructions or places of the stack than an expression has.
    bool isTooLong() const;

    /// The finished expression. The builder is then ready for the next one.
    Expression take();

private:
    void push(const Expression::Instruction& instruction, ValueTypes types);

    std::vector<Expression::Instruction> m_program;
    std::vector<ValueTypes> m_types; ///< of the values on the stack
    std::shared_ptr<std::deque<QString>> m_texts = std::make_shared<std::deque<QString>>();
};

} // namespace Zinc2D
