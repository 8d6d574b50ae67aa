#include "profile/DataType.h"

#include <algorithm>

namespace KOLT {

namespace {

using enum DecodingRule;

constexpr DataTypeInfo notImplemented(std::string_view name)
{
    return {name, NotImplemented, 0, false};
}

constexpr DataTypeInfo integer(std::string_view name, int width)
{
    return {name, Integer, width, name.front() != 'U'};
}

// The suffixes _2, _3 and _4 do not affect decoding: startByte alone gives the position.
constexpr std::array dataTypes{
    notImplemented("NODATA"),
    notImplemented("ERROR"),
    DataTypeInfo{"FLOAT", Float, 4, true},
    integer("LONG", 4),
    integer("ULONG", 4),
    DataTypeInfo{"BLONG", BitField, 4, false},
    integer("SHORT", 2),
    integer("USHORT", 2),
    DataTypeInfo{"BSHORT", BitField, 2, false},
    integer("CHAR", 1),
    integer("UCHAR", 1),
    notImplemented("BCHAR"),
    integer("SHORT_2", 2),
    integer("USHORT_2", 2),
    notImplemented("BSHORT_2"),
    integer("CHAR_4", 1),
    integer("UCHAR_4", 1),
    notImplemented("BCHAR_4"),
    integer("CHAR_2", 1),
    integer("UCHAR_2", 1),
    notImplemented("BCHAR_2"),
    notImplemented("MEMID"),
    notImplemented("CHKSUM"),
    notImplemented("ACHAR"),
    notImplemented("ACHAR_2"),
    notImplemented("ACHAR_4"),
    integer("CHAR_3", 1),
    integer("UCHAR_3", 1),
    notImplemented("BCHAR_3"),
    notImplemented("ACHAR_3"),
};

} // namespace

const DataTypeInfo& dataTypeInfo(int code)
{
    const bool known = code >= 0 && code < dataTypeCount();
    return dataTypes[known ? static_cast<std::size_t>(code) : 0];
}

int dataTypeCode(const QString& name)
{
    const auto* const found = std::ranges::find_if(dataTypes, [&](const DataTypeInfo& type) {
        return name ==
               QLatin1StringView(type.name.data(), static_cast<qsizetype>(type.name.size()));
    });
    return found == dataTypes.end() ? 0 : static_cast<int>(found - dataTypes.begin());
}

int dataTypeCount()
{
    return static_cast<int>(dataTypes.size());
}

} // namespace KOLT
