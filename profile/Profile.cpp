#include "profile/Profile.h"

#include "base/Diagnostics.h"
#include "base/XmlFile.h"
#include "profile/ProfileReader.h"

#include <QRegularExpression>

#include <algorithm>

namespace KOLT {

namespace {

const auto rootName = QStringLiteral("KorvanProfile");

/// Returned by reference from look-ups that find nothing.
const std::vector<const ProfileParameter*> noParameters;

} // namespace

bool Profile::loadProfil(const QString& path, const QString& activeVariant)
{
    Diagnostics::print("Profile::loadProfil <%s> <%s>\n", qUtf8Printable(path),
                       qUtf8Printable(activeVariant));
    clear();
    QDomDocument document;
    if (readXmlFile(path, document) != XmlStatus::Ok)
        return false;
    const QDomElement root = document.documentElement();
    if (root.tagName() != rootName)
        return false;
    m_path = path;
    m_activeVariant = activeVariant;
    ProfileReader(*this).read(root);
    return true;
}

bool Profile::loadVariants(const QString& path)
{
    m_variants.clear();
    QDomDocument document;
    if (readXmlFile(path, document) != XmlStatus::Ok) {
        Diagnostics::print("Profile::loadVariants Error could not load <%s>\n",
                           qUtf8Printable(path));
        return false;
    }
    const QDomElement root = document.documentElement();
    if (root.tagName() != rootName) {
        Diagnostics::print("Profile::loadVariants Not a KorvanProfile\n");
        return false;
    }
    m_variants = ProfileReader::readVariants(root);
    return true;
}

bool Profile::hasVariant(const QString& name) const
{
    return m_variants.empty() || std::ranges::count(m_variants, name, &Variant::name) > 0;
}

QString Profile::variantOrFirst(const QString& name) const
{
    return hasVariant(name) ? name : m_variants.front().name;
}

QString Profile::engineType() const
{
    const auto found = std::ranges::find(m_variants, m_activeVariant, &Variant::name);
    return found == m_variants.end() ? QString() : found->engineType;
}

void Profile::clear()
{
    static std::uint64_t loads = 0;
    m_revision = ++loads;
    m_path.clear();
    m_version.clear();
    m_profileId.clear();
    m_name.clear();
    m_comment.clear();
    m_activeVariant.clear();
    m_parametersById.clear();
    m_parametersByRole.clear();
    m_parametersByFullName.clear();
    m_errorMatrices.clear();
    m_devices.clear();
    m_parameters.clear();
    m_conversions.clear();
    m_enumLists.clear();
    m_thresholds.clear();
}

const std::vector<const ProfileParameter*>& Profile::parametersById(int id) const
{
    const auto found = m_parametersById.find(id);
    return found == m_parametersById.end() ? noParameters : found->second;
}

const ProfileParameter* Profile::parameterByFullName(const QString& fullName) const
{
    return m_parametersByFullName.value(fullName, nullptr);
}

const std::vector<const ProfileParameter*>& Profile::parametersByRole(Role role) const
{
    const auto found = m_parametersByRole.find(role);
    return found == m_parametersByRole.end() ? noParameters : found->second;
}

const ProfileParameter* Profile::parameterByRole(Role role) const
{
    const auto& parameters = parametersByRole(role);
    return parameters.empty() ? nullptr : parameters.front();
}

const EnumList* Profile::enumList(int id) const
{
    const auto found = m_enumLists.find(id);
    return found == m_enumLists.end() ? nullptr : &found->second;
}

const Threshold* Profile::threshold(int id) const
{
    const auto found = m_thresholds.find(id);
    return found == m_thresholds.end() ? nullptr : &found->second;
}

std::vector<const ProfileParameter*> Profile::selectedParameters() const
{
    std::vector<const ProfileParameter*> selected;
    for (const Device& device : m_devices) {
        for (const ProfileParameter* parameter : device.parameters) {
            if (parameter->selected)
                selected.push_back(parameter);
        }
    }
    if (!m_displayOrder.isEmpty()) {
        const auto place = [this](const ProfileParameter* parameter) {
            const qsizetype index = m_displayOrder.indexOf(parameter->fullName);
            return index < 0 ? m_displayOrder.size() : index;
        };
        std::ranges::stable_sort(selected, {}, place);
    }
    return selected;
}

double Profile::convertUnit(const ProfileParameter& parameter, double value) const
{
    if (m_unitSystem == UnitSystem::Metric || parameter.conversion == nullptr)
        return value;
    return value * parameter.conversion->factor + parameter.conversion->offset;
}

bool Profile::isConverted(const ProfileParameter& parameter) const
{
    return m_unitSystem == UnitSystem::Imperial && parameter.rule == DecodingRule::Float &&
           parameter.conversion != nullptr;
}

const QString& Profile::unitLabel(const ProfileParameter& parameter) const
{
    return isConverted(parameter) ? parameter.unitImperial : parameter.unitMetric;
}

bool Profile::matchesVariant(const QString& activeVariant, const QString& attribute)
{
    if (attribute.isEmpty() || activeVariant.isEmpty() || attribute == activeVariant)
        return true;
    const QStringList parts = attribute.split(QLatin1Char(','), Qt::SkipEmptyParts);
    Diagnostics::print("variant <%s> size %d\n", qUtf8Printable(attribute),
                       static_cast<int>(parts.size()));
    bool anyIncluded = false;
    bool included = false;
    for (const QString& part : parts) {
        const QString name = part.trimmed();
        if (name.startsWith(QLatin1Char('!'))) {
            if (name.mid(1) == activeVariant)
                return false;
        } else {
            anyIncluded = true;
            included = included || name == activeVariant;
        }
    }
    return included || !anyIncluded;
}

bool Profile::matchesEngine(const QString& engineType, const QString& patterns)
{
    // The toolkit's wildcards are for paths, where "*" ends at a slash.
    const auto plain = [](const QString& text) {
        return text.trimmed().replace(QLatin1Char('/'), QLatin1Char('_'));
    };
    const auto matches = [&](const QString& part) {
        const QRegularExpression pattern(
            QRegularExpression::wildcardToRegularExpression(plain(part)),
            QRegularExpression::CaseInsensitiveOption);
        return pattern.match(plain(engineType)).hasMatch();
    };
    const QStringList parts = patterns.split(QLatin1Char(','), Qt::SkipEmptyParts);
    return parts.isEmpty() || std::ranges::any_of(parts, matches);
}

} // namespace KOLT
