#pragma once

#include "profile/MessageData.h"
#include "profile/PositionFilter.h"
#include "profile/Profile.h"

#include <QString>

#include <bit>
#include <cstdint>

/// The one routine that turns a recorded message into the value of a parameter, in two depths: the
/// number alone for graph, flights and events, and text and grade on top of it for what is read.
/// Decoding never fails. Rules and data types: docs/formats/profile.md.
namespace KOLT {

struct DecodedValue
{
    double number = 0.0; ///< scaled, in metric units
    QString text;        ///< in the profile's unit system
    Grade grade;
};

/// The scaled value in metric units, without making text. Positions are converted to degrees, and
/// filtered when a filter is given. Positions keep the full double, other FLOAT values are
/// single-precision, integers whole, bit fields unsigned; 0 for types that do not decode.
inline double decodeNumber(const MessageData& data, const ProfileParameter& parameter,
                           PositionFilter* filter = nullptr);

/// The grade of a decoded number.
inline Grade gradeOf(const ProfileParameter& parameter, double number)
{
    return parameter.threshold != nullptr && parameter.rule != DecodingRule::NotImplemented
               ? parameter.threshold->grade(number)
               : Grade{};
}

/// The text of `number`, which was decoded from `data`.
QString textOf(const Profile& profile, const ProfileParameter& parameter, const MessageData& data,
               double number);

/// Everything at once. The scaled value replaces the raw one in `data`, which is a copy of the
/// recorded bytes, with the raw type's width.
DecodedValue decodeValue(const Profile& profile, const ProfileParameter& parameter,
                         MessageData& data, PositionFilter* filter = nullptr);

namespace Detail {

/// Four bytes, least significant first.
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

/// Everything but plain FLOAT values.
double decodeOther(const MessageData& data, const ProfileParameter& parameter,
                   PositionFilter* filter);

} // namespace Detail

inline double decodeNumber(const MessageData& data, const ProfileParameter& parameter,
                           PositionFilter* filter)
{
    // Most of a recording is plain floats, and graphs decode millions of them.
    if (parameter.rule == DecodingRule::Float && !parameter.isPosition)
        return Detail::scaledFloat(data, parameter);
    return Detail::decodeOther(data, parameter, filter);
}

} // namespace KOLT
