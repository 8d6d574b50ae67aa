#pragma once

#include <QString>

namespace KOLT {

/// What a parameter means to the program, from its `koltDataType` (docs/formats/profile.md).
enum class Role : unsigned char {
    None, ///< no role, or one without a meaning
    Latitude,
    Longitude,
    Altitude,
    GroundSpeed,
    Track, ///< heading over ground
    ThrottleA,
    FuelA,
    FuelB,
    EngineSpeed,
    WarningLamp,
    EngineHours, ///< counted by the unit itself, for reports
    EngineStarts,
};

/// The role of a text such as "GroundSpeed" (case-sensitive).
Role roleOf(const QString& text);

} // namespace KOLT
