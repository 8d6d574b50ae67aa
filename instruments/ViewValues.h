#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QSet>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

/// What the instrument view is fed with.
namespace KOLT {

/// Variables that are no parameters.
inline const QString variantVariable = QStringLiteral("VARIANT");
inline const QString unitVariable = QStringLiteral("UNIT");

/// A parameter that the view shows. Its variables are called by its name, and by its full name;
/// that of its state ends in "_STATE".
struct ViewParameter
{
    QString name;
    QString fullName;    ///< with its device
    std::int32_t id = 0; ///< message identifier
    const ProfileParameter* parameter = nullptr;
};

/// The parameters whose `viewId` is "EMU", in file order.
std::vector<ViewParameter> viewParameters(const Profile& profile);

QString stateVariable(const QString& name);

/// All variables that the view is given, of the parameters and others.
QSet<QString> viewVariables(const Profile& profile);

/// Names that more than one parameter has: the variable is then the last one's.
struct SharedName
{
    QString name;
    QStringList fullNames;
};

std::vector<SharedName> sharedNames(const std::vector<ViewParameter>& parameters);

struct ViewValue
{
    double number = 0.0; ///< metric; NaN where there is none
    int state = 0;       ///< of the threshold: 0 normal, 1 warning, 2 limit; of no number 0
};

/// The value of the first sample at or after the time; behind the last sample that one, as a 0
/// there would be a false alarm. No number where the message was never recorded, or its type does
/// not decode.
ViewValue viewValueAt(const DataSet& dataSet, const ViewParameter& parameter, double seconds);

/// The variant's name as a decimal number; 0 where it is none.
int variantNumber(const Profile& profile);

} // namespace KOLT
