#include "export/DbcWriter.h"

#include "export/DbcSignal.h"
#include "profile/ProfileLine.h"

#include <set>

namespace KOLT {

namespace {

constexpr int lastStandardId = 0x7FF;
constexpr int lastExtendedId = 0x1FFFFFFF;
constexpr quint32 extendedMark = 0x80000000U;
constexpr auto nobody = "Vector__XXX"; // fixed by the format

/// Sections of a DBC file; their order is fixed by the format.
struct Sections
{
    QByteArray messages;
    QByteArray comments;
    QByteArray values;
    QByteArray types;
};

/// Collects the messages of a profile.
class Draft
{
public:
    explicit Draft(const Profile& profile)
        : m_profile(profile)
    {
        for (const Device& device : profile.devices())
            m_nodes.push_back(m_nodeNames.of(device.name));
    }

    DbcFile finish();

private:
    void addMessage(int id, const std::vector<const ProfileParameter*>& parameters);
    void addSignal(const QByteArray& number, const QByteArray& name, const DbcSignal& signal,
                   const ProfileParameter& parameter);
    void leaveOut(const ProfileParameter& parameter, const QString& reason);
    QByteArray messageName(int id, int device);
    QString commentOf(const ProfileParameter& parameter) const;
    QString unitOf(const ProfileParameter& parameter) const;

    const Profile& m_profile;
    DbcNames m_nodeNames;
    DbcNames m_messageNames;
    std::vector<QByteArray> m_nodes;
    Sections m_sections;
    DbcFile m_file;
};

void Draft::leaveOut(const ProfileParameter& parameter, const QString& reason)
{
    m_file.leftOut << QStringLiteral("%1: %2").arg(parameter.fullName, reason);
}

QByteArray Draft::messageName(int id, int device)
{
    const QString text = m_profile.devices()[static_cast<std::size_t>(device)].name.left(20);
    return m_messageNames.of(text + QStringLiteral("_%1").arg(id, 3, 16, QLatin1Char('0')));
}

/// What the raw value scaled is, which for positions is not yet in degrees.
QString Draft::unitOf(const ProfileParameter& parameter) const
{
    return parameter.isPosition() ? QStringLiteral("DDDMM.mmmm") : m_profile.unitLabel(parameter);
}

QString Draft::commentOf(const ProfileParameter& parameter) const
{
    QString comment = parameter.fullName;
    if (parameter.isPosition())
        comment += QStringLiteral("\nDegrees * 100 + minutes. KOLT converts to degrees and leaves "
                                  "out jumps.");
    else if (parameter.rule == DecodingRule::Integer &&
             (parameter.factor != 1.0 || parameter.offset != 0.0))
        comment += QStringLiteral("\nKOLT truncates to a whole number and keeps the low bits of "
                                  "the type.");
    return comment;
}

void Draft::addSignal(const QByteArray& number, const QByteArray& name, const DbcSignal& signal,
                      const ProfileParameter& parameter)
{
    m_sections.messages += " SG_ " + name + " : " + QByteArray::number(signal.startBit) + '|' +
                           QByteArray::number(signal.bits) + "@1" + (signal.isSigned ? '-' : '+') +
                           " (" + dbcNumber(signal.factor) + ',' + dbcNumber(signal.offset) +
                           ") [" + QByteArray::number(signal.lowest, 'g', 12) + '|' +
                           QByteArray::number(signal.highest, 'g', 12) + "] " +
                           dbcString(unitOf(parameter)) + ' ' + nobody + '\n';
    const QByteArray key = number + ' ' + name;
    m_sections.comments += "CM_ SG_ " + key + ' ' + dbcString(commentOf(parameter)) + ";\n";
    if (signal.isFloat)
        m_sections.types += "SIG_VALTYPE_ " + key + " : 1;\n"; // 32-bit IEEE
    QByteArray labels;
    if (parameter.rule == DecodingRule::BitField && parameter.enumList != nullptr) {
        for (const auto& [value, entry] : parameter.enumList->entries) {
            const auto raw = static_cast<quint32>(value);
            if (signal.bits == 32 || raw < (1U << signal.bits))
                labels += ' ' + QByteArray::number(raw) + ' ' + dbcString(entry.label.simplified());
        }
    }
    if (!labels.isEmpty())
        m_sections.values += "VAL_ " + key + labels + " ;\n";
    ++m_file.signalCount;
}

void Draft::addMessage(int id, const std::vector<const ProfileParameter*>& parameters)
{
    if (id < 0 || id > lastExtendedId) {
        for (const ProfileParameter* parameter : parameters)
            leaveOut(*parameter, QStringLiteral("its identifier has more than 29 bits"));
        return;
    }
    const QByteArray number = QByteArray::number(
        id > lastStandardId ? static_cast<quint32>(id) | extendedMark : static_cast<quint32>(id));
    const int device = parameters.front()->device;
    DbcNames names;
    m_sections.messages += "BO_ " + number + ' ' + messageName(id, device) + ": 8 " +
                           m_nodes[static_cast<std::size_t>(device)] + '\n';
    for (const ProfileParameter* parameter : parameters) {
        if (const auto signal = dbcSignalOf(m_profile, *parameter))
            addSignal(number, names.of(parameter->name), *signal, *parameter);
        else
            leaveOut(*parameter, QStringLiteral("its type or scale cannot be described"));
    }
    m_sections.messages += '\n';
    for (const ErrorMatrix& matrix : m_profile.errorMatrices()) {
        if (matrix.id == id)
            m_sections.comments += "CM_ BO_ " + number + ' ' + dbcString(matrix.name) + ";\n";
    }
}

DbcFile Draft::finish()
{
    std::set<int> ids;
    for (const ProfileParameter& parameter : m_profile.parameters())
        ids.insert(parameter.id);
    for (const int id : ids)
        addMessage(id, m_profile.parametersById(id));
    QByteArray nodes;
    QByteArray nodeComments;
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        nodes += ' ' + m_nodes[i];
        nodeComments +=
            "CM_ BU_ " + m_nodes[i] + ' ' + dbcString(m_profile.devices()[i].name) + ";\n";
    }
    m_file.content = "VERSION " + dbcString(m_profile.version()) +
                     "\n\nNS_ :\n\nBS_:\n\nBU_:" + nodes + "\n\n" + m_sections.messages + "CM_ " +
                     dbcString(profileLine(m_profile)) + ";\n" + nodeComments +
                     m_sections.comments + m_sections.values + m_sections.types;
    return std::move(m_file);
}

} // namespace

DbcFile dbcOf(const Profile& profile)
{
    return Draft(profile).finish();
}

} // namespace KOLT
