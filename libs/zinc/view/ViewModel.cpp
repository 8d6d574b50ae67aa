#include "libs/zinc/view/ViewModel.h"

#include <algorithm>

namespace Zinc2D {

const PropertyValue* Element::find(Property property) const
{
    const auto found = std::ranges::find(properties, property, &PropertyValue::property);
    return found == properties.end() ? nullptr : &*found;
}

QString fileFor(const std::vector<ViewAlternative>& alternatives, double aspect)
{
    const ViewAlternative* best = nullptr;
    for (const ViewAlternative& alternative : alternatives) {
        const bool fits =
            aspect > alternative.above && (alternative.below == 0.0 || aspect < alternative.below);
        const bool isNarrower = best == nullptr || best->below == 0.0 ||
                                (alternative.below > 0.0 && alternative.below < best->below);
        if (fits && isNarrower)
            best = &alternative;
    }
    return best != nullptr ? best->file : QString();
}

} // namespace Zinc2D
