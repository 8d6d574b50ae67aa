#include "libs/zinc/expression/ExpressionTypes.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace Zinc2D {

using Operation = Expression::Operation;

bool isEquality(Operation operation)
{
    return operation == Operation::Equal || operation == Operation::NotEqual;
}

bool canTake(Operation operation, std::span<const ValueTypes> types)
{
    const auto isText = [](ValueTypes type) { return type == textType; };
    if (operation == Operation::IsSet || operation == Operation::First)
        return true;
    if (isEquality(operation))
        return (types[0] & types[1]) != 0 || std::ranges::none_of(types, isText);
    // A choice passes its alternatives on, whatever their type.
    return std::ranges::none_of(types.first(operation == Operation::Select ? 1 : types.size()),
                                isText);
}

ValueTypes resultOf(Operation operation, std::span<const ValueTypes> types)
{
    if (operation != Operation::Select && operation != Operation::First)
        return numberType;
    const std::span chosen = operation == Operation::Select ? types.subspan(1) : types;
    return std::accumulate(chosen.begin(), chosen.end(), ValueTypes(), std::bit_or());
}

} // namespace Zinc2D
