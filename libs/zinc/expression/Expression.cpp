#include "libs/zinc/expression/Expression.h"

#include "libs/zinc/expression/VariableTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numeric>
#include <span>

namespace Zinc2D {

namespace {

using Operation = Expression::Operation;

Value compared(Operation operation, const Value& left, const Value& right)
{
    if (!left.isSet() || !right.isSet() || left.isText() != right.isText())
        return {};
    const bool areEqual = left == right;
    switch (operation) {
    case Operation::Equal:
        return Value(areEqual);
    case Operation::NotEqual:
        return Value(!areEqual);
    default:
        break;
    }
    if (left.isText())
        return {};
    const bool isLess = left.number() < right.number();
    switch (operation) {
    case Operation::Less:
        return Value(isLess);
    case Operation::LessOrEqual:
        return Value(isLess || areEqual);
    case Operation::Greater:
        return Value(!isLess && !areEqual);
    default:
        return Value(!isLess);
    }
}

Value combined(Operation operation, const Value& left, const Value& right)
{
    // An operand that decides alone, whatever the other is.
    const bool deciding = operation == Operation::Or;
    const auto decides = [deciding](const Value& value) {
        return value.isNumber() && (value.number() != 0.0) == deciding;
    };
    if (decides(left) || decides(right))
        return Value(deciding);
    return left.isNumber() && right.isNumber() ? Value(!deciding) : Value();
}

Value calculated(Operation operation, const Value& left, const Value& right)
{
    if (!left.isNumber() || !right.isNumber())
        return {};
    const double a = left.number();
    const double b = right.number();
    switch (operation) {
    case Operation::Add:
        return Value(a + b);
    case Operation::Subtract:
        return Value(a - b);
    case Operation::Multiply:
        return Value(a * b);
    case Operation::Divide:
        return Value(a / b); // not finite, so not set, for b = 0
    default:
        return Value(std::fmod(a, b));
    }
}

Value binary(Operation operation, const Value& left, const Value& right)
{
    switch (operation) {
    case Operation::And:
    case Operation::Or:
        return combined(operation, left, right);
    case Operation::Add:
    case Operation::Subtract:
    case Operation::Multiply:
    case Operation::Divide:
    case Operation::Remainder:
        return calculated(operation, left, right);
    default:
        return compared(operation, left, right);
    }
}

Value unary(Operation operation, const Value& operand)
{
    if (operation == Operation::IsSet)
        return Value(operand.isSet());
    if (!operand.isNumber())
        return {};
    const double number = operand.number();
    switch (operation) {
    case Operation::Color:
        return operand;
    case Operation::Negate:
        return Value(-number);
    case Operation::Not:
        return Value(number == 0.0);
    case Operation::Absolute:
        return Value(std::abs(number));
    case Operation::Round:
        return Value(std::round(number));
    case Operation::Floor:
        return Value(std::floor(number));
    case Operation::Ceiling:
        return Value(std::ceil(number));
    default:
        return Value(std::sqrt(number));
    }
}

Value ofMany(Operation operation, std::span<const Value> operands)
{
    if (operation == Operation::First) {
        const auto found = std::ranges::find_if(operands, &Value::isSet);
        return found == operands.end() ? Value() : *found;
    }
    if (operation == Operation::Select) {
        if (!operands[0].isNumber())
            return {};
        return operands[0].number() != 0.0 ? operands[1] : operands[2];
    }
    if (!std::ranges::all_of(operands, &Value::isNumber))
        return {};
    switch (operation) {
    case Operation::Minimum:
        return *std::ranges::min_element(operands, {}, &Value::number);
    case Operation::Maximum:
        return *std::ranges::max_element(operands, {}, &Value::number);
    case Operation::Clamp:
        return Value(
            std::min(std::max(operands[0].number(), operands[1].number()), operands[2].number()));
    default:
        return Value(
            std::accumulate(operands.begin(), operands.end(), 0.0,
                            [](double sum, const Value& value) { return sum + value.number(); }) /
            static_cast<double>(operands.size()));
    }
}

} // namespace

Expression::Expression(std::vector<Instruction> program,
                       std::shared_ptr<const std::deque<QString>> texts, ValueTypes types)
    : m_program(std::move(program))
    , m_texts(std::move(texts))
    , m_types(types)
{
    for (const Instruction& instruction : m_program) {
        if (instruction.operation == Operation::Variable &&
            std::ranges::find(m_variables, instruction.argument) == m_variables.end())
            m_variables.push_back(instruction.argument);
    }
}

Value Expression::evaluate(const VariableTable& variables) const
{
    std::array<Value, maxDepth> stack;
    std::size_t size = 0;
    for (const Instruction& instruction : m_program) {
        const Operation operation = instruction.operation;
        if (operation == Operation::Constant) {
            stack[size++] = instruction.value;
        } else if (operation == Operation::Variable) {
            stack[size++] = variables.value(instruction.argument);
        } else if (instruction.argument == 1) {
            if (operation == Operation::Minimum || operation == Operation::Maximum ||
                operation == Operation::Average || operation == Operation::First)
                continue; // the operand itself
            stack[size - 1] = unary(operation, stack[size - 1]);
        } else if (instruction.argument == 2 && operation < Operation::Select) {
            --size;
            stack[size - 1] = binary(operation, stack[size - 1], stack[size]);
        } else {
            size -= static_cast<std::size_t>(instruction.argument - 1);
            stack[size - 1] =
                ofMany(operation,
                       std::span(&stack[size - 1], static_cast<std::size_t>(instruction.argument)));
        }
    }
    return size > 0 ? stack[size - 1] : Value();
}

} // namespace Zinc2D
