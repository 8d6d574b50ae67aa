#include "tools/samplecard/PlantedList.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace KOLT::SampleCard {

namespace {

QString fromView(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonObject entry(int cycle, double from, double to)
{
    return {{QStringLiteral("cycle"), cycle},
            {QStringLiteral("from"), from},
            {QStringLiteral("to"), to}};
}

} // namespace

void PlantedList::add(int cycle, const CycleSimulation& simulation, const CycleWriter& writer)
{
    for (const IncidentReport& incident : simulation.incidents()) {
        if (incident.parameter.empty())
            continue;
        QJsonObject object = entry(cycle, incident.from, incident.to);
        object.insert(QStringLiteral("parameter"), fromView(incident.parameter));
        object.insert(QStringLiteral("peak"), incident.peak);
        m_planted.append(object);
    }
    const auto addKind = [&](const char* kind, double from, double to, const QString& file) {
        QJsonObject object = entry(cycle, from, to);
        object.insert(QStringLiteral("kind"), QLatin1String(kind));
        object.insert(QStringLiteral("files"), QJsonArray{file});
        m_planted.append(object);
    };
    for (const CycleWriter::Break& gap : writer.breaks())
        addKind(gap.isCut ? "truncated-file" : "hole", gap.from, gap.to, gap.file);
    if (simulation.openTakeOff() > 0.0)
        addKind("unfinished-flight", simulation.openTakeOff(), writer.lastSeconds(),
                writer.lastFile());
}

bool PlantedList::write(const QString& path) const
{
    QSaveFile file(path);
    const QByteArray json = QJsonDocument(m_planted).toJson();
    return file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit();
}

} // namespace KOLT::SampleCard
