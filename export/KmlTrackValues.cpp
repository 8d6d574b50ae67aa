#include "export/KmlTrackValues.h"

#include "export/KmlGeometry.h"
#include "profile/ValueDecoder.h"

#include <cmath>

namespace KOLT {

namespace {

QString fieldName(std::size_t index)
{
    return QStringLiteral("p%1").arg(index + 1);
}

} // namespace

KmlTrackValues::KmlTrackValues(XmlExport& xml, const Profile& profile, const DataSet& dataSet)
    : m_xml(xml)
    , m_profile(profile)
{
    for (const ProfileParameter* parameter : profile.selectedParameters()) {
        const auto before = dataSet.before.find(static_cast<std::uint32_t>(parameter->id));
        if (parameter->rule != DecodingRule::NotImplemented)
            m_columns.push_back({parameter,
                                 before == dataSet.before.end() ? nullptr : &before->second,
                                 SampleWalker(seriesOf(dataSet.messages, *parameter))});
    }
}

void KmlTrackValues::writeSchema()
{
    if (m_columns.empty())
        return;
    m_xml.begin("Schema");
    m_xml.attribute("id", QStringLiteral("values"));
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const ProfileParameter& parameter = *m_columns[i].parameter;
        const QString& unit = m_profile.unitLabel(parameter);
        m_xml.writer().writeStartElement(QLatin1String(kmlExtensionNamespace),
                                         QStringLiteral("SimpleArrayField"));
        m_xml.attribute("name", fieldName(i));
        m_xml.attribute("type", parameter.rule == DecodingRule::BitField ? QStringLiteral("int")
                                                                         : QStringLiteral("float"));
        m_xml.element("displayName", unit.isEmpty()
                                         ? parameter.fullName
                                         : QStringLiteral("%1 [%2]").arg(parameter.fullName, unit));
        m_xml.end();
    }
    m_xml.end();
}

bool KmlTrackValues::write(std::span<const TrackPoint> points)
{
    if (m_columns.empty())
        return true;
    const QLatin1String extension(kmlExtensionNamespace);
    m_xml.begin("ExtendedData");
    m_xml.begin("SchemaData");
    m_xml.attribute("schemaUrl", QStringLiteral("#values"));
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        m_xml.writer().writeStartElement(extension, QStringLiteral("SimpleArrayData"));
        m_xml.attribute("name", fieldName(i));
        for (const TrackPoint& point : points) {
            m_xml.writer().writeTextElement(extension, QStringLiteral("value"),
                                            textAt(m_columns[i], point.seconds()));
            if (!m_xml.step())
                return false;
        }
        m_xml.end();
    }
    m_xml.end();
    m_xml.end();
    return true;
}

/// Empty before the first value, and where it is not a number.
QString KmlTrackValues::textAt(Column& column, double seconds) const
{
    column.walker.advanceTo(seconds);
    const StoredSample* const sample =
        column.walker.sample() != nullptr ? column.walker.sample() : column.before;
    if (sample == nullptr)
        return {};
    const double number = decodeNumber(sample->data, *column.parameter);
    if (column.parameter->rule == DecodingRule::BitField)
        return QString::number(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
    return std::isfinite(number) ? textOf(m_profile, *column.parameter, sample->data, number)
                                 : QString();
}

} // namespace KOLT
