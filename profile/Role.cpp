#include "profile/Role.h"

#include <algorithm>
#include <array>
#include <utility>

namespace KOLT {

namespace {

using RoleText = std::pair<QLatin1String, Role>;

constexpr std::array roleTexts{
    RoleText{QLatin1String("Latitude"), Role::Latitude},
    RoleText{QLatin1String("Longitude"), Role::Longitude},
    RoleText{QLatin1String("Altitude"), Role::Altitude},
    RoleText{QLatin1String("GroundSpeed"), Role::GroundSpeed},
    RoleText{QLatin1String("Track"), Role::Track},
    RoleText{QLatin1String("ThrottleA"), Role::ThrottleA},
    RoleText{QLatin1String("FuelA"), Role::FuelA},
    RoleText{QLatin1String("FuelB"), Role::FuelB},
    RoleText{QLatin1String("EngineSpeed"), Role::EngineSpeed},
    RoleText{QLatin1String("WarningLamp"), Role::WarningLamp},
    RoleText{QLatin1String("EngineHours"), Role::EngineHours},
    RoleText{QLatin1String("EngineStarts"), Role::EngineStarts},
};

} // namespace

Role roleOf(const QString& text)
{
    const auto* const found =
        std::ranges::find_if(roleTexts, [&](const RoleText& entry) { return text == entry.first; });
    return found == roleTexts.end() ? Role::None : found->second;
}

} // namespace KOLT
