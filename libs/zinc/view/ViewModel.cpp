#include "libs/zinc/view/ViewModel.h"

#include <algorithm>

namespace Zinc2D {

const PropertyValue* Element::find(Property property) const
{
    const auto found = std::ranges::find(properties, property, &PropertyValue::property);
    return found == properties.end() ? nullptr : &*found;
}

} // namespace Zinc2D
