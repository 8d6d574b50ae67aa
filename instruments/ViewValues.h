#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QSet>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

/// The values that the instrument view shows.
namespace KOLT {

/// Variables that are not parameters.
inline const QString variantVariable = QStringLiteral("VARIANT");
inline const QString unitVariable = QStringLiteral("UNIT");

/// A parameter that the view shows. It has a variable by its name and one by its full name, and for
/// each of them a state variable, which ends in "_STATE".
struct ViewParameter
{
    QString name;
    QString fullName;    ///< "device/name"
    std::int32_t id = 0; ///< message identifier
    const ProfileParameter* parameter = nullptr;
};

/// The parameters whose `viewId` is "EMU", in file order.
std::vector<ViewParameter> viewParameters(const Profile& profile);

QString stateVariable(const QString& name);

/// The most steps of a threshold that the view is given.
constexpr int mostViewSteps = 8;

/// "<name>_STEP1" and so on.
QString stepVariable(const QString& name, int step);
QString stepColorVariable(const QString& name, int step);
/// "<name>_LIMIT"
QString limitVariable(const QString& name);

/// The variables that belong to the parameter of that name, the state among them.
QStringList variablesOf(const QString& name);

/// The names of all variables that the view is given.
QSet<QString> viewVariables(const Profile& profile);

/// A name that several parameters have. The variable of that name has the last one's value.
struct SharedName
{
    QString name;
    QStringList fullNames;
};

std::vector<SharedName> sharedNames(const std::vector<ViewParameter>& parameters);

struct ViewValue
{
    double number = 0.0; ///< metric; NaN if there is none
    int state = 0;       ///< 0 normal, 1 warning, 2 limit; 0 if there is no number
};

/// The value of the first sample at or after the time; after the last sample, that one, as a 0
/// would be a false alarm. No number if the message was never recorded or its type cannot be
/// decoded.
ViewValue viewValueAt(const DataSet& dataSet, const ViewParameter& parameter, double seconds);

/// A range of values with the same grade, which ends where the next one begins.
struct ViewStep
{
    double from = 0.0; ///< metric
    QRgb color = 0;
    ThresholdState state = ThresholdState::Ok;
};

/// The ranges that a threshold's steps come to, ascending; at most mostViewSteps.
std::vector<ViewStep> viewSteps(const Threshold& threshold);

/// From where on values are beyond the upper limit; NaN if there is none.
double upperLimit(const std::vector<ViewStep>& steps);

/// The variant's name as a decimal number; 0 if it is not a number.
int variantNumber(const Profile& profile);

} // namespace KOLT
