#include "export/KmlDescription.h"

#include "analysis/MomentText.h"
#include "base/NumberText.h"
#include "export/ExportText.h"
#include "export/RecordedRole.h"
#include "profile/ValueDecoder.h"

#include <algorithm>

namespace KOLT {

namespace {

QString row(const QString& name, const QString& value)
{
    return QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n")
        .arg(name.toHtmlEscaped(), value.toHtmlEscaped());
}

QString withUnit(const QString& value, const QString& unit)
{
    return unit.isEmpty() ? value : value + QLatin1Char(' ') + unit;
}

} // namespace

KmlDescription::KmlDescription(const Profile& profile, const DataSet& dataSet)
    : m_profile(profile)
    , m_dataSet(dataSet)
    , m_clock(dataSet.dateTime)
    , m_hasSpeed(isRoleRecorded(profile, dataSet, Role::GroundSpeed))
{
    for (const ProfileParameter* parameter : profile.selectedParameters()) {
        const auto place =
            m_walkers.try_emplace(parameter->id, seriesOf(dataSet.messages, *parameter)).first;
        m_columns.push_back({parameter, &place->second});
    }
}

QString KmlDescription::of(const TrackPoint& point)
{
    const double seconds = point.seconds();
    QString text = QStringLiteral("<table>\n") + row(ExportText::tr("Time"), momentText(seconds));
    if (point.hasAltitude)
        text += row(ExportText::tr("Altitude"), roleText(Role::Altitude, point.altitude, "m", 0));
    if (m_hasSpeed)
        text +=
            row(ExportText::tr("Speed"), roleText(Role::GroundSpeed, point.groundSpeed, "km/h", 0));
    for (auto& [id, walker] : m_walkers)
        walker.advanceTo(seconds);
    for (const Column& column : m_columns) {
        const StoredSample* const sample = heldSample(column);
        if (sample == nullptr)
            continue;
        const double number = decodeNumber(sample->data, *column.parameter);
        text += row(column.parameter->fullName,
                    withUnit(textOf(m_profile, *column.parameter, sample->data, number),
                             m_profile.unitLabel(*column.parameter)));
    }
    return text + QStringLiteral("</table>");
}

const StoredSample* KmlDescription::heldSample(const Column& column) const
{
    if (column.walker->sample() != nullptr)
        return column.walker->sample();
    const auto before = m_dataSet.before.find(static_cast<std::uint32_t>(column.parameter->id));
    return before == m_dataSet.before.end() ? nullptr : &before->second;
}

QString KmlDescription::timeText(double seconds) const
{
    return momentText(seconds).section(QLatin1Char(' '), -1).left(8);
}

QString KmlDescription::momentText(double seconds) const
{
    const QDateTime moment = m_clock.dateTime(seconds);
    return moment.isValid() ? moment.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss.zzz"))
                            : counterText(seconds);
}

QString KmlDescription::roleText(Role role, double metric, const char* unit, int decimals) const
{
    const ProfileParameter* const parameter = m_profile.parameterByRole(role);
    if (parameter == nullptr)
        return withUnit(fixedText(metric, decimals), QLatin1String(unit));
    // The value is interpolated: more decimals than the samples have would mean nothing.
    const bool isConverted = m_profile.isConverted(*parameter);
    return withUnit(
        fixedText(isConverted ? m_profile.convertUnit(*parameter, metric) : metric,
                  parameter->rule == DecodingRule::Float ? parameter->precision : decimals),
        m_profile.unitLabel(*parameter));
}

} // namespace KOLT
