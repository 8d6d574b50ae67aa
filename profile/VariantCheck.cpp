#include "profile/VariantCheck.h"

#include "profile/DataType.h"
#include "profile/Role.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <utility>

namespace KOLT {

namespace {

struct Check
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProfileCheck)
};

constexpr int byteBits = 8;

/// Without these there are no flights, figures or track.
constexpr std::array wantedRoles{"Latitude",  "Longitude", "Altitude", "GroundSpeed", "Track",
                                 "ThrottleA", "FuelA",     "FuelB",    "EngineSpeed"};

} // namespace

VariantCheck::VariantCheck(const QDomElement& root, const CheckedElements& elements,
                           QString variant, Add add)
    : m_root(root)
    , m_elements(elements)
    , m_variant(std::move(variant))
    , m_add(std::move(add))
{
    for (const CheckedElement& parameter : elements.parameters()) {
        if (CheckedElements::isIn(parameter.element, m_variant))
            m_parameters.push_back(parameter);
    }
}

void VariantCheck::run() const
{
    checkSteps();
    checkNames();
    checkBitFields();
    checkRoles();
    checkQuantities();
}

void VariantCheck::checkSteps() const
{
    std::map<QString, double> last; // lists of one name are one
    for (const CheckedElement& list : m_elements.thresholds()) {
        for (const QDomElement& step : list.children("Value")) {
            if (!CheckedElements::isIn(step, m_variant))
                continue;
            const double value = step.attribute(QStringLiteral("val")).toDouble();
            const auto [before, isFirst] = last.try_emplace(list.text("name"), value);
            const auto text = [](double number) { return QString::number(number, 'g', 10); };
            if (!isFirst && value == before->second)
                m_add(step, Check::tr("The threshold list \"%1\" has the step %2 twice.")
                                .arg(list.text("name"), text(value)));
            else if (!isFirst && value < before->second)
                m_add(step, Check::tr("In the threshold list \"%1\" the step %2 follows %3: steps "
                                      "have to ascend.")
                                .arg(list.text("name"), text(value), text(before->second)));
            before->second = value;
        }
    }
}

void VariantCheck::checkNames() const
{
    std::map<QString, const CheckedElement*> first;
    for (const CheckedElement& parameter : m_parameters) {
        const auto [other, isNew] = first.emplace(parameter.fullName, &parameter);
        if (!isNew)
            m_add(parameter.element, Check::tr("%1 is defined in line %2 already.")
                                         .arg(parameter.fullName)
                                         .arg(other->second->element.lineNumber()));
    }
}

void VariantCheck::checkBitFields() const
{
    std::map<std::pair<int, int>, const CheckedElement*> owners; // by message and bit
    for (const CheckedElement& parameter : m_parameters) {
        const DataTypeInfo& type = dataTypeInfo(dataTypeCode(parameter.text("dataType")));
        if (type.rule != DecodingRule::BitField)
            continue;
        const int last = std::min(parameter.number("endBit"), type.width * byteBits - 1);
        const CheckedElement* other = nullptr;
        for (int bit = std::max(0, parameter.number("startBit")); bit <= last; ++bit) {
            const int place = parameter.number("startByte") * byteBits + bit;
            const auto [owner, isFree] =
                owners.try_emplace({parameter.number("id"), place}, &parameter);
            if (!isFree && other == nullptr)
                other = owner->second;
        }
        if (other != nullptr)
            m_add(parameter.element, Check::tr("%1 overlaps with %2 in line %3.")
                                         .arg(parameter.fullName, other->fullName)
                                         .arg(other->element.lineNumber()));
    }
}

void VariantCheck::checkRoles() const
{
    std::map<QString, const CheckedElement*> first;
    for (const CheckedElement& parameter : m_parameters) {
        const QString role = parameter.text("koltDataType");
        if (roleOf(role) == Role::None || roleOf(role) == Role::WarningLamp)
            continue;
        const auto [other, isNew] = first.emplace(role, &parameter);
        if (!isNew)
            m_add(parameter.element,
                  Check::tr("%1 has the role %2 like %3 in line %4, which is used.")
                      .arg(parameter.fullName, role, other->second->fullName)
                      .arg(other->second->element.lineNumber()));
    }
    for (const char* role : wantedRoles) {
        if (first.contains(QLatin1String(role)))
            continue;
        const QString name = QLatin1String(role);
        m_add(m_root, m_variant.isEmpty()
                          ? Check::tr("No parameter has the role %1.").arg(name)
                          : Check::tr("In the variant %1 no parameter has the role %2.")
                                .arg(m_variant, name));
    }
}

void VariantCheck::checkQuantities() const
{
    std::map<QString, const CheckedElement*> first;
    for (const CheckedElement& parameter : m_parameters) {
        const QString quantity = parameter.text("quantity").trimmed();
        // A lamp only announces what others measure.
        if (quantity.isEmpty() || roleOf(parameter.text("koltDataType")) == Role::WarningLamp)
            continue;
        const auto [other, isNew] = first.emplace(quantity, &parameter);
        const QString unit = other->second->text("unitMetric");
        if (!isNew && parameter.text("unitMetric") != unit)
            m_add(
                parameter.element,
                Check::tr("%1 has the unit \"%2\", but others of the quantity \"%3\" have \"%4\".")
                    .arg(parameter.fullName, parameter.text("unitMetric"), quantity, unit));
    }
}

} // namespace KOLT
