#pragma once

#include "libs/zinc/expression/Expression.h"

#include <span>

/// What can be told about the types of an expression before any variable has a value.
namespace Zinc2D {

bool isEquality(Expression::Operation operation);

/// Whether the operation can yield anything of operands of these types.
bool canTake(Expression::Operation operation, std::span<const ValueTypes> types);

ValueTypes resultOf(Expression::Operation operation, std::span<const ValueTypes> types);

} // namespace Zinc2D
