#include "profile/ProfileReader.h"

#include "base/Diagnostics.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int messageBytes = 8;
constexpr int maxPrecision = 15;
constexpr int defaultPrecision = 6;

QString textAttribute(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name));
}

int intAttribute(const QDomElement& element, const char* name, int fallback = 0)
{
    bool ok = false;
    const int value = textAttribute(element, name).toInt(&ok);
    return ok ? value : fallback;
}

double doubleAttribute(const QDomElement& element, const char* name, double fallback = 0.0)
{
    bool ok = false;
    const double value = textAttribute(element, name).toDouble(&ok);
    return ok ? value : fallback;
}

/// A number of at least 0; none without the attribute. Anything else is reported.
std::optional<double> amountAttribute(const QDomElement& element, const char* name)
{
    const QString text = textAttribute(element, name);
    if (text.isEmpty())
        return {};
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (ok && std::isfinite(value) && value >= 0.0)
        return value;
    Diagnostics::print("Profile::loadProfil <%s>: %s \"%s\" is no number from 0 on\n",
                       qUtf8Printable(textAttribute(element, "name")), name, qUtf8Printable(text));
    return {};
}

QColor colorAttribute(const QDomElement& element, const char* name)
{
    const QColor color = QColor::fromString(textAttribute(element, name));
    return color.isValid() ? color : QColor(Qt::white);
}

ThresholdState stateOf(const QString& text)
{
    if (text == QLatin1String("WARNING"))
        return ThresholdState::Warning;
    return text == QLatin1String("LIMIT") ? ThresholdState::Limit : ThresholdState::Ok;
}

ErrorType errorTypeOf(const QString& text)
{
    if (text == QLatin1String("Info"))
        return ErrorType::Info;
    if (text == QLatin1String("Warning"))
        return ErrorType::Warning;
    return text == QLatin1String("Fault") ? ErrorType::Fault : ErrorType::None;
}

QString conversionKey(const QString& unitMetric, const QString& unitImperial)
{
    return unitMetric + QLatin1Char('_') + unitImperial;
}

/// The list of that name; the first use of a name creates the list with a new identifier.
template <typename List>
List& listNamed(const QString& name, QHash<QString, int>& ids, std::map<int, List>& lists)
{
    const int id = ids.value(name, static_cast<int>(lists.size()));
    ids.insert(name, id);
    List& list = lists[id];
    list.name = name;
    return list;
}

/// -1 for an empty name: parameters without the attribute must not get a list without a name.
int idOfList(const QHash<QString, int>& ids, const QString& name)
{
    return name.isEmpty() ? -1 : ids.value(name, -1);
}

} // namespace

template <typename Function>
void ProfileReader::forEach(const QDomElement& parent, const QString& name,
                            Function&& function) const
{
    for (QDomElement child = parent.firstChildElement(name); !child.isNull();
         child = child.nextSiblingElement(name)) {
        if (Profile::matchesVariant(m_profile.m_activeVariant, textAttribute(child, "variant")))
            function(child);
    }
}

void ProfileReader::read(const QDomElement& root)
{
    m_profile.m_version = textAttribute(root, "version");
    m_profile.m_profileId = textAttribute(root, "profileId");
    m_profile.m_name = textAttribute(root, "name");
    m_profile.m_comment = textAttribute(root, "comment");

    const auto readList = [&](const char* listName, const char* entryName, auto member) {
        forEach(root, QLatin1String(listName), [&](const QDomElement& list) {
            forEach(list, QLatin1String(entryName),
                    [&](const QDomElement& entry) { (this->*member)(entry); });
        });
    };
    readList("UnitConversions", "Unit", &ProfileReader::readUnit);
    readList("EnumList", "Enum", &ProfileReader::readEnum);
    readList("ThresholdList", "Threshold", &ProfileReader::readThreshold);
    readList("Device", "ErrorMatrix", &ProfileReader::readErrorMatrix);
    forEach(root, QStringLiteral("Device"), [&](const QDomElement& device) { readDevice(device); });
    registerParameters();
}

std::vector<Variant> ProfileReader::readVariants(const QDomElement& root)
{
    std::vector<Variant> variants;
    const auto name = QStringLiteral("Variant");
    for (QDomElement list = root.firstChildElement(QStringLiteral("Variants")); !list.isNull();
         list = list.nextSiblingElement(QStringLiteral("Variants"))) {
        for (QDomElement element = list.firstChildElement(name); !element.isNull();
             element = element.nextSiblingElement(name)) {
            variants.push_back({textAttribute(element, "name"), textAttribute(element, "id"),
                                colorAttribute(element, "color"),
                                textAttribute(element, "engineType")});
        }
    }
    return variants;
}

void ProfileReader::readUnit(const QDomElement& element)
{
    const QString key =
        conversionKey(textAttribute(element, "unitMetric"), textAttribute(element, "unitImperial"));
    m_profile.m_conversions[key] = {doubleAttribute(element, "factor", 1.0),
                                    doubleAttribute(element, "offset")};
}

void ProfileReader::readEnum(const QDomElement& element)
{
    static int serial = 0;
    EnumList& list = listNamed(textAttribute(element, "name"), m_enumIds, m_profile.m_enumLists);
    forEach(element, QStringLiteral("Value"), [&](const QDomElement& entry) {
        const int value = intAttribute(entry, "val");
        list.entries[value] = {value, textAttribute(entry, "label"), ++serial};
    });
}

void ProfileReader::readThreshold(const QDomElement& element)
{
    Threshold& threshold =
        listNamed(textAttribute(element, "name"), m_thresholdIds, m_profile.m_thresholds);
    threshold.id = m_thresholdIds.value(threshold.name);
    threshold.holdSeconds = amountAttribute(element, "holdSeconds").value_or(threshold.holdSeconds);
    if (const auto hysteresis = amountAttribute(element, "hysteresis"))
        threshold.hysteresis = hysteresis;
    forEach(element, QStringLiteral("Value"), [&](const QDomElement& entry) {
        const ThresholdStep step{
            doubleAttribute(entry, "val"),
            {colorAttribute(entry, "color").rgb(), stateOf(textAttribute(entry, "state"))}};
        const auto earlier = std::ranges::find(threshold.steps, step.value, &ThresholdStep::value);
        if (earlier == threshold.steps.end())
            threshold.steps.push_back(step);
        else
            *earlier = step;
    });
}

void ProfileReader::readErrorMatrix(const QDomElement& element)
{
    m_profile.m_errorMatrices.push_back(
        {intAttribute(element, "id"), textAttribute(element, "name"), {}});
}

void ProfileReader::readDevice(const QDomElement& element)
{
    const Device device{
        static_cast<int>(m_profile.m_devices.size()), textAttribute(element, "name"), {}};
    m_profile.m_devices.push_back(device);
    forEach(element, QStringLiteral("Parameter"),
            [&](const QDomElement& parameter) { readParameter(parameter, device); });
}

void ProfileReader::readParameter(const QDomElement& element, const Device& device)
{
    ProfileParameter& parameter = m_profile.m_parameters.emplace_back();
    parameter.name = textAttribute(element, "name");
    parameter.fullName = device.name + QLatin1Char('/') + parameter.name;
    parameter.device = device.index;
    parameter.unitMetric = textAttribute(element, "unitMetric");
    parameter.unitImperial = textAttribute(element, "unitImperial");
    parameter.viewId = textAttribute(element, "viewId");
    parameter.id = intAttribute(element, "id");
    parameter.startByte = intAttribute(element, "startByte");
    parameter.startBit = intAttribute(element, "startBit");
    parameter.endBit = intAttribute(element, "endBit");
    parameter.offset = doubleAttribute(element, "offset");
    parameter.factor = doubleAttribute(element, "factor", 1.0);
    const int precision = intAttribute(element, "precision", defaultPrecision);
    parameter.precision =
        precision >= 0 && precision <= maxPrecision ? precision : defaultPrecision;
    parameter.dataType = dataTypeCode(textAttribute(element, "dataType"));
    parameter.koltDataType = textAttribute(element, "koltDataType");
    parameter.enumId = idOfList(m_enumIds, textAttribute(element, "enumId"));
    parameter.thresholdId = idOfList(m_thresholdIds, textAttribute(element, "thresholdId"));
    parameter.errorType = errorTypeOf(textAttribute(element, "errorType"));
    parameter.quantity = textAttribute(element, "quantity").trimmed();
    resolve(parameter);
}

void ProfileReader::resolve(ProfileParameter& parameter) const
{
    const DataTypeInfo& type = dataTypeInfo(parameter.dataType);
    parameter.rule = type.rule;
    if (type.rule != DecodingRule::NotImplemented &&
        (parameter.startByte < 0 || parameter.startByte > messageBytes - type.width)) {
        parameter.rule = DecodingRule::NotImplemented;
        Diagnostics::print("Profile::loadProfil <%s>: startByte %d reaches outside the message\n",
                           qUtf8Printable(parameter.fullName), parameter.startByte);
    }
    parameter.role = roleOf(parameter.koltDataType);
    parameter.enumList = m_profile.enumList(parameter.enumId);
    parameter.threshold = m_profile.threshold(parameter.thresholdId);
    const auto conversion =
        m_profile.m_conversions.find(conversionKey(parameter.unitMetric, parameter.unitImperial));
    if (conversion != m_profile.m_conversions.end())
        parameter.conversion = &conversion->second;
}

void ProfileReader::registerParameters()
{
    QHash<int, std::vector<ErrorMatrix*>> matrices;
    for (ErrorMatrix& matrix : m_profile.m_errorMatrices)
        matrices[matrix.id].push_back(&matrix);

    for (const ProfileParameter& parameter : m_profile.m_parameters) {
        m_profile.m_parametersById[parameter.id].push_back(&parameter);
        if (parameter.role != Role::None)
            m_profile.m_parametersByRole[parameter.role].push_back(&parameter);
        if (!m_profile.m_parametersByFullName.contains(parameter.fullName))
            m_profile.m_parametersByFullName.insert(parameter.fullName, &parameter);
        if (const auto found = matrices.constFind(parameter.id); found != matrices.constEnd()) {
            for (ErrorMatrix* matrix : *found)
                matrix->members.push_back(&parameter);
        }
        m_profile.m_devices[static_cast<std::size_t>(parameter.device)].parameters.push_back(
            &parameter);
    }
    for (Device& device : m_profile.m_devices) {
        std::ranges::stable_sort(device.parameters, {},
                                 [](const ProfileParameter* p) { return p->name.toUtf8(); });
    }
}

} // namespace KOLT
