#pragma once

#include "profile/MessageData.h"
#include "profile/PositionFilter.h"
#include "profile/Profile.h"

#include <QString>

#include <bit>
#include <cstdint>

/// Decodes the value of a parameter from a recorded message. decodeNumber() gives the number alone,
/// for graph, flights and events; decodeValue() adds text and grade, for display. Decoding never
/// fails. Rules and data types: docs/formats/profile.md.
namespace KOLT {

struct DecodedValue
{
    double number = 0.0; ///< scaled, in metric units
    QString text;        ///< in the profile's unit system
    Grade grade;
};

/// The scaled value in metric units. Positions are converted to degrees in double precision, and
/// filtered if a filter is given. Other FLOAT values have single precision, integers are whole, bit
/// fields unsigned. 0 for types that are not implemented.
inline double decodeNumber(const MessageData& data, const ProfileParameter& parameter,
                           PositionFilter* filter = nullptr);

/// The grade of a decoded number.
inline Grade gradeOf(const ProfileParameter& parameter, double number)
{
    return parameter.threshold != nullptr && parameter.rule != DecodingRule::NotImplemented
               ? parameter.threshold->grade(number)
               : Grade{};
}

/// The text of `number`, which must have been decoded from `data`, in the active unit system.
QString textOf(const Profile& profile, const ProfileParameter& parameter, const MessageData& data,
               double number);

/// A number with its unit, in the active unit system. Of ULONG, whose text has decimals that the
/// number has not, the number is shown as it is.
QString numberText(const Profile& profile, const ProfileParameter& parameter, double number);

/// Number, text and grade. Replaces the raw value in `data` by the scaled one, with the raw type's
/// width, so `data` must be a copy of the recorded bytes.
DecodedValue decodeValue(const Profile& profile, const ProfileParameter& parameter,
                         MessageData& data, PositionFilter* filter = nullptr);

namespace Detail {

/// Four bytes, little-endian.
inline std::uint32_t word32(const unsigned char* bytes)
{
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

inline float scaledFloat(const MessageData& data, const ProfileParameter& parameter)
{
    const auto raw = std::bit_cast<float>(word32(data.data() + parameter.startByte));
    return static_cast<float>(static_cast<double>(raw) * parameter.factor + parameter.offset);
}

/// Decodes all but plain FLOAT values.
double decodeOther(const MessageData& data, const ProfileParameter& parameter,
                   PositionFilter* filter);

} // namespace Detail

inline double decodeNumber(const MessageData& data, const ProfileParameter& parameter,
                           PositionFilter* filter)
{
    // Inline for plain floats: they are most of a recording, and graphs decode millions.
    if (parameter.rule == DecodingRule::Float && !parameter.isPosition())
        return Detail::scaledFloat(data, parameter);
    return Detail::decodeOther(data, parameter, filter);
}

} // namespace KOLT
