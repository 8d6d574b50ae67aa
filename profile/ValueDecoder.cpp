#include "profile/ValueDecoder.h"

#include "base/NumberText.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace KOLT {

namespace {

constexpr double signedMin = -2147483648.0;
constexpr double signedMax = 2147483647.0;
constexpr double unsignedMax = 4294967295.0;

/// `width` bytes at startByte, little-endian.
std::uint32_t rawWord(const MessageData& data, const ProfileParameter& parameter, int width)
{
    std::uint32_t word = 0;
    const auto* const bytes = data.data() + parameter.startByte;
    for (int i = 0; i < width; ++i)
        word |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
    return word;
}

/// The low bytes of `word` as a number of the type's width and signedness.
std::int64_t asType(std::uint32_t word, const DataTypeInfo& type)
{
    switch (type.width) {
    case 1:
        return type.isSigned ? std::int64_t{static_cast<std::int8_t>(word)}
                             : std::int64_t{static_cast<std::uint8_t>(word)};
    case 2:
        return type.isSigned ? std::int64_t{static_cast<std::int16_t>(word)}
                             : std::int64_t{static_cast<std::uint16_t>(word)};
    default:
        return type.isSigned ? std::int64_t{static_cast<std::int32_t>(word)} : std::int64_t{word};
    }
}

/// An integer type's raw value * factor + offset, before narrowing.
double scaledInteger(const MessageData& data, const ProfileParameter& parameter,
                     const DataTypeInfo& type)
{
    const std::int64_t raw = asType(rawWord(data, parameter, type.width), type);
    return static_cast<double>(raw) * parameter.factor + parameter.offset;
}

/// Saturates to 32 bits, truncates towards zero, then keeps the low bits of the type's width.
std::int64_t narrowed(double value, const DataTypeInfo& type)
{
    if (std::isnan(value))
        return 0;
    const double limited = std::clamp(value, signedMin, type.isSigned ? signedMax : unsignedMax);
    const auto whole = static_cast<std::int64_t>(limited);
    return asType(static_cast<std::uint32_t>(whole), type);
}

double decodePosition(const MessageData& data, const ProfileParameter& parameter,
                      PositionFilter* filter)
{
    const double degrees = PositionFilter::degrees(Detail::scaledFloat(data, parameter));
    if (filter == nullptr)
        return degrees;
    return parameter.role == Role::Latitude ? filter->latitude(degrees)
                                            : filter->longitude(degrees);
}

std::uint32_t decodeBitField(const MessageData& data, const ProfileParameter& parameter)
{
    const std::int64_t width = std::int64_t{parameter.endBit} - parameter.startBit + 1;
    if (width < 1)
        return 0;
    const std::uint32_t mask = width >= 32 ? ~0U : (1U << width) - 1;
    const std::uint32_t word = rawWord(data, parameter, dataTypeInfo(parameter.dataType).width);
    return (word >> (static_cast<unsigned>(parameter.startBit) & 31U)) & mask;
}

QString bitFieldText(const ProfileParameter& parameter, std::uint32_t bits)
{
    const auto value = static_cast<std::int32_t>(bits);
    const QString number = QString::number(value);
    if (parameter.enumList == nullptr)
        return number + QStringLiteral(": Invalid ENUM Type");
    const auto entry = parameter.enumList->entries.find(value);
    if (entry == parameter.enumList->entries.end())
        return number + QStringLiteral(": Invalid ENUM Value");
    return number + QStringLiteral(": ") + entry->second.label;
}

/// Replaces the raw value in `data` by the scaled one.
void writeBack(MessageData& data, const ProfileParameter& parameter, double number)
{
    std::uint32_t word = 0;
    switch (parameter.rule) {
    case DecodingRule::NotImplemented:
        return;
    case DecodingRule::Float:
        word = std::bit_cast<std::uint32_t>(static_cast<float>(number));
        break;
    case DecodingRule::Integer:
    case DecodingRule::BitField:
        word = static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
        break;
    }
    auto* const bytes = data.data() + parameter.startByte;
    for (int i = 0; i < dataTypeInfo(parameter.dataType).width; ++i)
        bytes[i] = static_cast<unsigned char>(word >> (8 * i));
}

} // namespace

double Detail::decodeOther(const MessageData& data, const ProfileParameter& parameter,
                           PositionFilter* filter)
{
    switch (parameter.rule) {
    case DecodingRule::Float:
        return decodePosition(data, parameter, filter);
    case DecodingRule::Integer: {
        const DataTypeInfo& type = dataTypeInfo(parameter.dataType);
        return static_cast<double>(narrowed(scaledInteger(data, parameter, type), type));
    }
    case DecodingRule::BitField:
        return decodeBitField(data, parameter);
    case DecodingRule::NotImplemented:
        break;
    }
    return 0.0;
}

QString textOf(const Profile& profile, const ProfileParameter& parameter, const MessageData& data,
               double number)
{
    switch (parameter.rule) {
    case DecodingRule::Float:
        return fixedText(profile.convertUnit(parameter, number), parameter.precision);
    case DecodingRule::Integer: {
        const DataTypeInfo& type = dataTypeInfo(parameter.dataType);
        if (parameter.dataType == static_cast<int>(DataType::ULong))
            return fixedText(scaledInteger(data, parameter, type), parameter.precision);
        return QString::number(static_cast<qint64>(number));
    }
    case DecodingRule::BitField:
        return bitFieldText(parameter, static_cast<std::uint32_t>(number));
    case DecodingRule::NotImplemented:
        break;
    }
    // Users know this text with the second data byte in place of the type's code.
    return QStringLiteral("Datatype %1 not implemented").arg(static_cast<int>(data[1]));
}

QString numberText(const Profile& profile, const ProfileParameter& parameter, double number)
{
    const QString text = parameter.dataType == static_cast<int>(DataType::ULong)
                             ? fixedText(number, parameter.precision)
                             : textOf(profile, parameter, {}, number);
    const QString& unit = profile.unitLabel(parameter);
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

DecodedValue decodeValue(const Profile& profile, const ProfileParameter& parameter,
                         MessageData& data, PositionFilter* filter)
{
    const double number = decodeNumber(data, parameter, filter);
    DecodedValue value{number, textOf(profile, parameter, data, number),
                       gradeOf(parameter, number)};
    writeBack(data, parameter, number);
    return value;
}

} // namespace KOLT
