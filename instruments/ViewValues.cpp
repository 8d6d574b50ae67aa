#include "instruments/ViewValues.h"

#include "profile/ValueDecoder.h"

#include <QHash>

#include <limits>

namespace KOLT {

std::vector<ViewParameter> viewParameters(const Profile& profile)
{
    std::vector<ViewParameter> parameters;
    for (const ProfileParameter& parameter : profile.parameters()) {
        if (parameter.viewId == QStringLiteral("EMU"))
            parameters.push_back({parameter.name, parameter.fullName, parameter.id, &parameter});
    }
    return parameters;
}

QString stateVariable(const QString& name)
{
    return QStringLiteral("%1_STATE").arg(name);
}

QSet<QString> viewVariables(const Profile& profile)
{
    QSet<QString> names{variantVariable, unitVariable};
    for (const ViewParameter& parameter : viewParameters(profile)) {
        for (const QString& name : {parameter.name, parameter.fullName})
            names << name << stateVariable(name);
    }
    return names;
}

std::vector<SharedName> sharedNames(const std::vector<ViewParameter>& parameters)
{
    QHash<QString, QStringList> bearers;
    for (const ViewParameter& parameter : parameters)
        bearers[parameter.name] << parameter.fullName;
    std::vector<SharedName> shared;
    for (const ViewParameter& parameter : parameters) {
        const QStringList fullNames = bearers.take(parameter.name); // each name once
        if (fullNames.size() > 1)
            shared.push_back({parameter.name, fullNames});
    }
    return shared;
}

ViewValue viewValueAt(const DataSet& dataSet, const ViewParameter& parameter, double seconds)
{
    const ViewValue none{std::numeric_limits<double>::quiet_NaN(), 0};
    const MessageSeries& series = dataSet.messages.series(static_cast<std::uint32_t>(parameter.id));
    if (series.empty() || parameter.parameter->rule == DecodingRule::NotImplemented)
        return none;
    const StoredSample* const next = series.firstAtOrAfter(seconds);
    const MessageData& data = next != nullptr ? next->data : series.last().data;
    const double number = decodeNumber(data, *parameter.parameter);
    return {number, static_cast<int>(gradeOf(*parameter.parameter, number).state)};
}

int variantNumber(const Profile& profile)
{
    return profile.activeVariant().toInt();
}

} // namespace KOLT
