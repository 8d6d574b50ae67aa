#pragma once

#include "profile/DataType.h"
#include "profile/Threshold.h"

#include <QString>

#include <map>
#include <vector>

/// The parts of a loaded profile (docs/formats/profile.md). All live as long as their Profile, and
/// until it is loaded again.
namespace KOLT {

enum class UnitSystem : int { Metric = 0, Imperial = 1 };

/// metric value * factor + offset = imperial value
struct UnitConversion
{
    double factor = 1.0;
    double offset = 0.0;
};

struct EnumEntry
{
    int value = 0;
    QString label;
    int serial = 0; ///< counts every enumeration value read since the program started
};

struct EnumList
{
    QString name;
    std::map<int, EnumEntry> entries; ///< by value
};

enum class ErrorType : int { None = 0, Info = 1, Warning = 2, Fault = 3 };

/// One recorded quantity: which message carries it, where, and how it is scaled and graded.
struct ProfileParameter
{
    QString name;
    QString fullName; ///< device name + "/" + name
    QString unitMetric;
    QString unitImperial;
    QString viewId; ///< "EMU": shown on the instrument view
    int id = 0;     ///< message identifier
    int startByte = 0;
    int startBit = 0;
    int endBit = 0;
    double offset = 0.0;
    double factor = 1.0;
    int precision = 6;    ///< decimals, 0..15
    int dataType = 0;     ///< code of the data-type table
    QString koltDataType; ///< role, such as "GroundSpeed" or "WarningLamp"; empty for most
    int enumId = -1;      ///< -1: none
    int thresholdId = -1; ///< -1: none
    ErrorType errorType = ErrorType::None;

    int device = 0;        ///< index of the device that it belongs to
    bool selected = false; ///< chosen for display; mirrored from the project

    // Resolved when the profile is loaded, so that decoding looks nothing up.
    DecodingRule rule = DecodingRule::NotImplemented; ///< NotImplemented too where bytes would
                                                      ///< reach outside the message
    bool isPosition = false;                          ///< role "Latitude" or "Longitude"
    bool isLatitude = false;
    const EnumList* enumList = nullptr;
    const Threshold* threshold = nullptr;
    const UnitConversion* conversion =
        nullptr; ///< null where the profile defines none for its units
};

/// A device of the aircraft and, at once, the group in which its parameters are listed.
struct Device
{
    int index = 0; ///< counted from 0 in file order
    QString name;
    std::vector<const ProfileParameter*> parameters; ///< byte-wise name order
};

struct ErrorMatrix
{
    int id = 0;
    QString name;
    std::vector<const ProfileParameter*> members; ///< file order
};

/// An aircraft or engine variant for which the profile has elements of its own.
struct Variant
{
    QString name;
    QString id;
    QColor color;
};

} // namespace KOLT
