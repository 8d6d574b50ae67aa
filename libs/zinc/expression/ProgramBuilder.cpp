#include "libs/zinc/expression/ProgramBuilder.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace Zinc2D {

namespace {

using Operation = Expression::Operation;

constexpr std::size_t maxInstructions = 2048;

/// Whether the operation can yield a value for operands of these types.
bool canTake(Operation operation, std::span<const ValueTypes> types)
{
    const auto isText = [](ValueTypes type) { return type == textType; };
    switch (operation) {
    case Operation::IsSet:
    case Operation::First:
        return true;
    case Operation::Equal:
    case Operation::NotEqual:
        return (types[0] & types[1]) != 0 || std::ranges::none_of(types, isText);
    case Operation::Select:
        return !isText(types[0]);
    default:
        return std::ranges::none_of(types, isText);
    }
}

/// The types that the operation yields for operands of these types.
ValueTypes resultOf(Operation operation, std::span<const ValueTypes> types)
{
    if (operation == Operation::Color)
        return colorType;
    if (operation != Operation::Select && operation != Operation::First)
        return numberType;
    const std::span chosen = operation == Operation::Select ? types.subspan(1) : types;
    return std::accumulate(chosen.begin(), chosen.end(), ValueTypes(), std::bit_or());
}

} // namespace

void ProgramBuilder::push(const Expression::Instruction& instruction, ValueTypes types)
{
    m_program.push_back(instruction);
    m_types.push_back(types);
}

void ProgramBuilder::pushConstant(double number, ValueTypes type)
{
    push({Operation::Constant, 0, Value(number)}, type);
}

void ProgramBuilder::pushText(const QString& text)
{
    push({Operation::Constant, 0, Value(&m_texts->emplace_back(text))}, textType);
}

void ProgramBuilder::pushVariable(int slot, ValueTypes types)
{
    push({Operation::Variable, slot, {}}, types);
}

bool ProgramBuilder::apply(Operation operation, int operands)
{
    const std::span types = std::span(m_types).last(static_cast<std::size_t>(operands));
    if (!canTake(operation, types))
        return false;
    const ValueTypes result = resultOf(operation, types);
    m_types.resize(m_types.size() - types.size());
    push({operation, operands, {}}, result);
    return true;
}

bool ProgramBuilder::isTooLong() const
{
    return m_types.size() > Expression::maxDepth || m_program.size() > maxInstructions;
}

Expression ProgramBuilder::take()
{
    const ValueTypes types = m_types.empty() ? 0 : m_types.back();
    ProgramBuilder finished = std::exchange(*this, {});
    return {std::move(finished.m_program), std::move(finished.m_texts), types};
}

} // namespace Zinc2D
