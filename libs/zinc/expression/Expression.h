#pragma once

#include "libs/zinc/expression/Value.h"

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace Zinc2D {

class VariableTable;

/// Bit set of the types that an expression can yield. Arithmetic takes colours as numbers.
using ValueTypes = unsigned;
constexpr ValueTypes numberType = 1;
constexpr ValueTypes colorType = 2;
constexpr ValueTypes textType = 4;

/// A compiled expression (docs/formats/view.md): a program for a small stack machine.
///
/// An operand that is not set makes the result not set, except where the other operand decides
/// alone ("0 && x", "1 || x"), and in isset() and first(). Undefined results are not set either:
/// a division by zero, the root of a negative number, a comparison of text with number.
class Expression
{
public:
    static constexpr int maxDepth = 64;

    enum class Operation : unsigned char {
        Constant,
        Variable,
        Negate,
        Not,
        Add,
        Subtract,
        Multiply,
        Divide,
        Remainder,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        Equal,
        NotEqual,
        And,
        Or,
        Select,
        Absolute,
        Minimum,
        Maximum,
        Average,
        Round,
        Floor,
        Ceiling,
        Root,
        Clamp,
        Color, ///< the operand, as a colour
        IsSet,
        First
    };

    struct Instruction
    {
        Operation operation = Operation::Constant;
        int argument = 0; ///< slot of a variable, or number of operands
        Value value;      ///< of a constant
    };

    Expression() = default;

    /// `texts` owns the text constants that the program points to. The program must be well formed
    /// and use at most maxDepth places of the stack.
    Expression(std::vector<Instruction> program, std::shared_ptr<const std::deque<QString>> texts,
               ValueTypes types);

    Value evaluate(const VariableTable& variables) const;

    /// Slots of the variables that it uses, each once.
    const std::vector<int>& variables() const { return m_variables; }

    /// The types that it can yield, if it yields a value at all.
    ValueTypes types() const { return m_types; }

private:
    std::vector<Instruction> m_program;
    std::shared_ptr<const std::deque<QString>> m_texts;
    std::vector<int> m_variables;
    ValueTypes m_types = numberType;
};

} // namespace Zinc2D
