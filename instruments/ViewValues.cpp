#include "instruments/ViewValues.h"

#include "profile/ValueDecoder.h"

#include <QHash>

#include <algorithm>
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

QString stepVariable(const QString& name, int step)
{
    return QStringLiteral("%1_STEP%2").arg(name).arg(step);
}

QString stepColorVariable(const QString& name, int step)
{
    return QStringLiteral("%1_COLOR%2").arg(name).arg(step);
}

QString limitVariable(const QString& name)
{
    return QStringLiteral("%1_LIMIT").arg(name);
}

QStringList variablesOf(const QString& name)
{
    QStringList names{name, stateVariable(name), limitVariable(name)};
    for (int step = 1; step <= mostViewSteps; ++step)
        names << stepVariable(name, step) << stepColorVariable(name, step);
    return names;
}

QSet<QString> viewVariables(const Profile& profile)
{
    QSet<QString> names{variantVariable, unitVariable};
    for (const ViewParameter& parameter : viewParameters(profile)) {
        for (const QString& name : {parameter.name, parameter.fullName}) {
            for (const QString& variable : variablesOf(name))
                names << variable;
        }
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

std::vector<ViewStep> viewSteps(const Threshold& threshold)
{
    std::vector<ViewStep> steps;
    double from = -std::numeric_limits<double>::infinity();
    // Grading stops at the first step above a value: a step that is below one before it takes the
    // place of that one.
    for (const ThresholdStep& step : threshold.steps) {
        from = std::max(from, step.value);
        if (!steps.empty() && steps.back().from == from)
            steps.pop_back();
        steps.push_back({from, step.grade.color, step.grade.state});
    }
    if (steps.size() > mostViewSteps)
        steps.resize(mostViewSteps);
    return steps;
}

double upperLimit(const std::vector<ViewStep>& steps)
{
    const bool hasLimit = steps.size() > 1 && steps.back().state == ThresholdState::Limit;
    return hasLimit ? steps.back().from : std::numeric_limits<double>::quiet_NaN();
}

int variantNumber(const Profile& profile)
{
    return profile.activeVariant().toInt();
}

} // namespace KOLT
