#pragma once

#include "libs/zinc/expression/Expression.h"

#include <span>

/// Static type checks of expressions.
namespace Zinc2D {

bool isEquality(Expression::Operation operation);

/// Whether the operation can yield a value for operands of these types.
bool canTake(Expression::Operation operation, std::span<const ValueTypes> types);

/// The types that the operation yields for operands of these types.
ValueTypes resultOf(Expression::Operation operation, std::span<const ValueTypes> types);

} // namespace Zinc2D
