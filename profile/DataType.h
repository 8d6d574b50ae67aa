#pragma once

#include <QString>

#include <array>
#include <string_view>

/// The data types of a parameter's `dataType` attribute (docs/formats/profile.md).
namespace KOLT {

/// The code of a type is its index in the table.
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
    int width = 0; ///< bytes read at startByte; 0 for types that are not implemented
    bool isSigned = false;
};

/// The entry for a code; an unknown code gives the entry of code 0.
const DataTypeInfo& dataTypeInfo(int code);

/// The code of a type name (case-sensitive); 0 ("NODATA") for an unknown name.
int dataTypeCode(const QString& name);

/// Number of codes, 0 .. dataTypeCount() - 1.
int dataTypeCount();

} // namespace KOLT
