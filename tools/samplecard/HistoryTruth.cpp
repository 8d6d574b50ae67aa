#include "tools/samplecard/HistoryTruth.h"

#include <QJsonDocument>
#include <QSaveFile>

namespace KOLT::SampleCard {

namespace {

QString key(const char* name)
{
    return QLatin1String(name);
}

} // namespace

void HistoryTruth::add(const HistoryCycle& cycle, const HistoryFacts& facts)
{
    const QString engineName = QLatin1String(cycle.plan.identity.engine);
    const std::uint32_t unitName = cycle.plan.identity.unit;
    const QString time = cycle.plan.clock.toString(Qt::ISODate);
    Engine& engine = m_engines[engineName];
    if (engine.lastUnit != unitName) {
        engine.lastUnit = unitName;
        engine.units.append(QJsonObject{{key("unit"), qint64{unitName}}, {key("from"), time}});
    }
    Sum& sum = cycle.hasCard ? engine.recorded : engine.withoutCard;
    ++sum.cycles;
    ++sum.starts;
    sum.flights += facts.flights;
    sum.runSeconds += facts.runSeconds;
    sum.fuel += facts.fuel;

    const double hours = facts.hoursBefore + facts.runSeconds / 3600.0;
    Unit& unit = m_units.try_emplace(unitName, Unit{facts.hoursBefore, facts.startsBefore, 0.0, 0})
                     .first->second;
    unit.hours = hours;
    unit.starts = facts.startsBefore + 1;

    m_cycles.append(QJsonObject{{key("unit"), qint64{unitName}},
                                {key("engine"), engineName},
                                {key("dateTime"), time},
                                {key("recorded"), cycle.hasCard},
                                {key("files"), QJsonArray::fromStringList(facts.files)},
                                {key("flights"), facts.flights},
                                {key("runSeconds"), facts.runSeconds},
                                {key("fuel"), facts.fuel},
                                {key("unitHours"), hours},
                                {key("unitStarts"), unit.starts}});
}

QJsonObject HistoryTruth::json(const Sum& sum)
{
    return {{key("cycles"), sum.cycles},
            {key("starts"), sum.starts},
            {key("flights"), sum.flights},
            {key("runSeconds"), sum.runSeconds},
            {key("hours"), sum.runSeconds / 3600.0},
            {key("fuel"), sum.fuel}};
}

bool HistoryTruth::write(const QString& path) const
{
    QJsonArray engines;
    for (const auto& [name, engine] : m_engines) {
        engines.append(QJsonObject{{key("engine"), name},
                                   {key("units"), engine.units},
                                   {key("recorded"), json(engine.recorded)},
                                   {key("withoutCard"), json(engine.withoutCard)}});
    }
    QJsonArray units;
    for (const auto& [name, unit] : m_units) {
        units.append(QJsonObject{{key("unit"), qint64{name}},
                                 {key("hoursFirst"), unit.hoursFirst},
                                 {key("startsFirst"), unit.startsFirst},
                                 {key("hours"), unit.hours},
                                 {key("starts"), unit.starts}});
    }
    const QJsonObject truth{
        {key("engines"), engines}, {key("units"), units}, {key("cycles"), m_cycles}};
    QSaveFile file(path);
    const QByteArray bytes = QJsonDocument(truth).toJson();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace KOLT::SampleCard
