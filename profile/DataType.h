#pragma once

#include <QString>

#include <array>
#include <string_view>

/// The data types that a parameter's `dataType` attribute names (docs/formats/profile.md).
namespace KOLT {

/// The code of a type is its place in the table.
enum class DataType : int {
    NoData = 0,
    Error = 1,
    Float = 2,
    Long = 3,
    ULong = 4,
    BLong = 5,
    Short = 6,
    UShort = 7,
    BShort = 8,
    Char = 9,
    UChar = 10,
};

/// How the raw value of a type is read and scaled.
enum class DecodingRule : unsigned char {
    NotImplemented,
    Float,    ///< 32-bit IEEE float, scaled
    Integer,  ///< scaled, truncated and narrowed to the type
    BitField, ///< bits startBit..endBit of the word, never scaled
};

struct DataTypeInfo
{
    std::string_view name;
    DecodingRule rule = DecodingRule::NotImplemented;
    int width = 0; ///< bytes read at startByte, 0 where nothing is read
    bool isSigned = false;
};

/// The row of a code; a code outside the table gives the row of code 0.
const DataTypeInfo& dataTypeInfo(int code);

/// The code of a type's name, compared exactly; 0 ("NODATA") for a name outside the table.
int dataTypeCode(const QString& name);

/// Number of codes, 0 .. dataTypeCount() - 1.
int dataTypeCount();

} // namespace KOLT
