#include "profile/ProfileCheck.h"

#include "base/XmlFile.h"
#include "profile/CheckedElements.h"
#include "profile/DataType.h"
#include "profile/VariantCheck.h"

#include <QCoreApplication>
#include <QDomElement>

#include <algorithm>
#include <set>
#include <utility>

namespace KOLT {

namespace {

struct Check
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProfileCheck)
};

constexpr int messageBytes = 8;
constexpr int byteBits = 8;

class Checker
{
public:
    explicit Checker(const QDomElement& root)
        : m_root(root)
        , m_elements(root)
    {
    }

    std::vector<ProfileFinding> run()
    {
        for (const CheckedElement& parameter : m_elements.parameters())
            checkParameter(parameter);
        checkVariantNames();
        checkNumbers();
        checkThresholds();
        checkReferences();
        checkMatrices();
        checkUnits();
        for (const QString& variant : m_elements.variants())
            VariantCheck(
                m_root, m_elements, variant,
                [this](const QDomElement& element, const QString& text) { add(element, text); })
                .run();
        std::ranges::stable_sort(m_findings, {}, &ProfileFinding::line);
        return std::move(m_findings);
    }

private:
    void add(const QDomElement& element, const QString& text)
    {
        // What is wrong in several variants is told once.
        const ProfileFinding finding{element.lineNumber(), text};
        const auto isSame = [&](const ProfileFinding& other) {
            return other.line == finding.line && other.text == finding.text;
        };
        if (std::ranges::none_of(m_findings, isSame))
            m_findings.push_back(finding);
    }

    void checkParameter(const CheckedElement& parameter);
    void checkBits(const CheckedElement& parameter, const DataTypeInfo& type);
    void checkVariantNames();
    void checkNumbers();
    void checkThresholds();
    void checkReferences();
    void checkMatrices();
    void checkUnits();

    QDomElement m_root;
    CheckedElements m_elements;
    std::vector<ProfileFinding> m_findings;
};

void Checker::checkParameter(const CheckedElement& parameter)
{
    const QString typeName = parameter.text("dataType");
    const int code = dataTypeCode(typeName);
    const DataTypeInfo& type = dataTypeInfo(code);
    if (code == 0 && typeName != QLatin1String("NODATA")) {
        add(parameter.element,
            Check::tr("%1 has the unknown data type \"%2\".").arg(parameter.fullName, typeName));
        return;
    }
    if (type.rule == DecodingRule::NotImplemented) {
        add(parameter.element, Check::tr("%1 has the data type %2, which is not implemented.")
                                   .arg(parameter.fullName, typeName));
        return;
    }
    const int start = parameter.number("startByte");
    if (start < 0 || start + type.width > messageBytes)
        add(parameter.element,
            Check::tr("%1 takes the bytes %2 to %3, but a message has the bytes 0 to 7.")
                .arg(parameter.fullName)
                .arg(start)
                .arg(start + type.width - 1));
    if (type.rule == DecodingRule::BitField)
        checkBits(parameter, type);
}

void Checker::checkBits(const CheckedElement& parameter, const DataTypeInfo& type)
{
    const int first = parameter.number("startBit");
    const int last = parameter.number("endBit");
    if (first < 0 || last < first || last >= type.width * byteBits)
        add(parameter.element, Check::tr("%1 takes the bits %2 to %3, but %4 has the bits 0 to %5.")
                                   .arg(parameter.fullName)
                                   .arg(first)
                                   .arg(last)
                                   .arg(parameter.text("dataType"))
                                   .arg(type.width * byteBits - 1));
}

void Checker::checkVariantNames()
{
    m_elements.forAll([&](const QDomElement& element) {
        const QString attribute = element.attribute(QStringLiteral("variant"));
        for (QString name : attribute.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            name = name.trimmed();
            if (name.startsWith(QLatin1Char('!')))
                name.remove(0, 1);
            if (!m_elements.variants().contains(name))
                add(element, Check::tr("There is no variant \"%1\".").arg(name));
        }
    });
}

void Checker::checkNumbers()
{
    static const std::set<QString> whole{QStringLiteral("id"), QStringLiteral("startByte"),
                                         QStringLiteral("startBit"), QStringLiteral("endBit"),
                                         QStringLiteral("precision")};
    static const std::set<QString> any{QStringLiteral("factor"), QStringLiteral("offset"),
                                       QStringLiteral("holdSeconds"), QStringLiteral("hysteresis")};
    m_elements.forAll([&](const QDomElement& element) {
        const QDomNamedNodeMap attributes = element.attributes();
        const bool isVariant = element.tagName() == QLatin1String("Variant");
        for (int i = 0; i < attributes.count(); ++i) {
            const QString name = attributes.item(i).nodeName();
            const QString value = attributes.item(i).nodeValue();
            const bool isStep = name == QLatin1String("val");
            bool ok = true;
            if (!isVariant && whole.contains(name))
                value.toInt(&ok);
            else if (any.contains(name) || isStep)
                value.toDouble(&ok);
            const bool isAmount =
                name == QLatin1String("holdSeconds") || name == QLatin1String("hysteresis");
            if (!ok || (isAmount && !(value.toDouble() >= 0.0)))
                add(element, Check::tr("%1 cannot be \"%2\".").arg(name, value));
        }
    });
}

void Checker::checkThresholds()
{
    static const QStringList states{QStringLiteral("OK"), QStringLiteral("WARNING"),
                                    QStringLiteral("LIMIT")};
    static const QStringList errorTypes{QString(), QStringLiteral("Info"),
                                        QStringLiteral("Warning"), QStringLiteral("Fault")};
    for (const CheckedElement& list : m_elements.thresholds()) {
        for (const QDomElement& step : list.children("Value")) {
            const QString state = step.attribute(QStringLiteral("state"), states.first());
            if (!states.contains(state))
                add(step,
                    Check::tr("The state \"%1\" is none of OK, WARNING and LIMIT.").arg(state));
        }
    }
    for (const CheckedElement& parameter : m_elements.parameters()) {
        if (!errorTypes.contains(parameter.text("errorType")))
            add(parameter.element, Check::tr("%1 has the unknown error type \"%2\".")
                                       .arg(parameter.fullName, parameter.text("errorType")));
    }
}

void Checker::checkReferences()
{
    const auto check = [&](const char* attribute, const std::vector<CheckedElement>& lists,
                           const QString& kind) {
        std::set<QString> defined;
        std::set<QString> used;
        for (const CheckedElement& list : lists)
            defined.insert(list.text("name"));
        for (const CheckedElement& parameter : m_elements.parameters()) {
            const QString name = parameter.text(attribute);
            used.insert(name);
            if (!name.isEmpty() && !defined.contains(name))
                add(parameter.element, Check::tr("%1 uses the %2 \"%3\", which is not defined.")
                                           .arg(parameter.fullName, kind, name));
        }
        for (const CheckedElement& list : lists) {
            if (!used.contains(list.text("name")) || list.text("name").isEmpty())
                add(list.element,
                    Check::tr("No parameter uses the %1 \"%2\".").arg(kind, list.text("name")));
        }
    };
    check("enumId", m_elements.enumerations(), Check::tr("enumeration"));
    check("thresholdId", m_elements.thresholds(), Check::tr("threshold list"));
}

void Checker::checkMatrices()
{
    for (const CheckedElement& matrix : m_elements.matrices()) {
        const bool isUsed = std::ranges::any_of(m_elements.parameters(), [&](const auto& one) {
            return one.number("id") == matrix.number("id");
        });
        if (!isUsed)
            add(matrix.element, Check::tr("No parameter belongs to the fault matrix \"%1\".")
                                    .arg(matrix.text("name")));
    }
}

void Checker::checkUnits()
{
    const auto pairOf = [](const CheckedElement& element) {
        return std::pair(element.text("unitMetric"), element.text("unitImperial"));
    };
    std::set<std::pair<QString, QString>> defined;
    std::set<std::pair<QString, QString>> used;
    for (const CheckedElement& unit : m_elements.units())
        defined.insert(pairOf(unit));
    for (const CheckedElement& parameter : m_elements.parameters()) {
        const auto pair = pairOf(parameter);
        used.insert(pair);
        if (pair.first != pair.second && !defined.contains(pair))
            add(parameter.element, Check::tr("%1 has no conversion from \"%2\" to \"%3\".")
                                       .arg(parameter.fullName, pair.first, pair.second));
    }
    for (const CheckedElement& unit : m_elements.units()) {
        const auto pair = pairOf(unit);
        if (!used.contains(pair))
            add(unit.element, Check::tr("No parameter uses the conversion from \"%1\" to \"%2\".")
                                  .arg(pair.first, pair.second));
    }
}

} // namespace

std::vector<ProfileFinding> checkProfile(const QString& path)
{
    QDomDocument document;
    switch (parseXmlFile(path, document)) {
    case XmlStatus::Ok:
        break;
    case XmlStatus::NotOpened:
        return {{1, Check::tr("The file cannot be read.")}};
    case XmlStatus::NotParsed:
        return {{1, Check::tr("The file is not XML.")}};
    }
    const QDomElement root = document.documentElement();
    if (root.tagName() != QLatin1String("KorvanProfile"))
        return {{root.lineNumber(),
                 Check::tr("The file is no profile: its root is \"%1\".").arg(root.tagName())}};
    return Checker(root).run();
}

} // namespace KOLT
