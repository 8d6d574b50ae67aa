#pragma once

#include "libs/zinc/expression/Value.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace Zinc2D {

class VariableTable;

/// What an expression may yield: a sum of these. A colour can be calculated with like a number.
using ValueTypes = unsigned;
constexpr ValueTypes numberType = 1;
constexpr ValueTypes colorType = 2;
constexpr ValueTypes textType = 4;

/// A compiled expression of variables (docs/formats/view.md): a program for a small stack machine.
///
/// What is not set propagates: an operation on it yields nothing, except where the other operand
/// alone decides ("0 && x", "1 || x"), in isset() and in first(). So does what has no number: a
/// division by zero, the root of a negative number, a comparison of text with number.
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
        IsSet,
        First
    };

    struct Instruction
    {
        Operation operation = Operation::Constant;
        int argument = 0; ///< slot of a variable, or how many operands a function takes
        Value value;      ///< of a constant
    };

    Expression() = default;

    /// `texts` holds what the constants refer to. The program must be well formed and need no more
    /// than maxDepth places.
    Expression(std::vector<Instruction> program, std::shared_ptr<const std::vector<QString>> texts,
               ValueTypes types);

    Value evaluate(const VariableTable& variables) const;

    /// Slots of the variables in it, each once.
    const std::vector<int>& variables() const { return m_variables; }

    /// What it yields where it yields anything.
    ValueTypes types() const { return m_types; }

private:
    std::vector<Instruction> m_program;
    std::shared_ptr<const std::vector<QString>> m_texts;
    std::vector<int> m_variables;
    ValueTypes m_types = numberType;
};

} // namespace Zinc2D
