#pragma once

#include "profile/DataType.h"
#include "profile/Role.h"
#include "profile/Threshold.h"

#include <QString>

#include <map>
#include <vector>

/// The parts of a loaded profile (docs/formats/profile.md). They belong to a Profile and live until
/// it is loaded again or destroyed.
namespace KOLT {

enum class UnitSystem : int { Metric = 0, Imperial = 1 };

/// imperial value = metric value * factor + offset
struct UnitConversion
{
    double factor = 1.0;
    double offset = 0.0;
};

struct EnumEntry
{
    int value = 0;
    QString label;
    int serial = 0; ///< running number of all enumeration values read by the process
};

struct EnumList
{
    QString name;
    std::map<int, EnumEntry> entries; ///< by value
};

enum class ErrorType : int { None = 0, Info = 1, Warning = 2, Fault = 3 };

/// One recorded quantity: its message, its position in the data bytes, its scaling and grading.
struct ProfileParameter
{
    QString name;
    QString fullName; ///< device name + "/" + name
    QString unitMetric;
    QString unitImperial;
    QString viewId; ///< "EMU": shown in the instrument view
    int id = 0;     ///< message identifier
    int startByte = 0;
    int startBit = 0;
    int endBit = 0;
    double offset = 0.0;
    double factor = 1.0;
    int precision = 6;    ///< decimals, 0..15
    int dataType = 0;     ///< code in the data-type table
    QString koltDataType; ///< role, such as "GroundSpeed" or "WarningLamp"; empty for most
    int enumId = -1;      ///< -1: none
    int thresholdId = -1; ///< -1: none
    ErrorType errorType = ErrorType::None;
    QString quantity; ///< parameters of the same one have their episodes together; may be empty

    int device = 0;        ///< index of its device
    bool selected = false; ///< chosen for display; a copy of the project's selection

    // Resolved when the profile is loaded, so that decoding needs no look-ups.
    DecodingRule rule = DecodingRule::NotImplemented; ///< also NotImplemented if the value would
                                                      ///< extend beyond the message
    Role role = Role::None;                           ///< of koltDataType
    const EnumList* enumList = nullptr;
    const Threshold* threshold = nullptr;
    const UnitConversion* conversion = nullptr; ///< null if the profile has none for its units

    bool isPosition() const { return role == Role::Latitude || role == Role::Longitude; }
};

/// A device of the aircraft; also the group under which its parameters are listed.
struct Device
{
    int index = 0; ///< from 0, in file order
    QString name;
    std::vector<const ProfileParameter*> parameters; ///< by the bytes of their names
};

struct ErrorMatrix
{
    int id = 0;
    QString name;
    std::vector<const ProfileParameter*> members; ///< in file order
};

/// An aircraft or engine variant that the profile supports.
struct Variant
{
    QString name;
    QString id;
    QColor color;
    QString engineType; ///< wildcard patterns of the engines that it is for, by commas; empty: any
};

} // namespace KOLT
