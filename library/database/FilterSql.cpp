#include "library/database/FilterSql.h"

#include "library/database/CycleStore.h"

namespace KOLT::Library {

namespace {

/// A pattern for LIKE with what is searched anywhere in it. Both databases lower only the letters
/// of ASCII.
QString containing(const QString& text)
{
    QString pattern = QStringLiteral("%");
    for (const QChar letter : text) {
        if (letter == QLatin1Char('%') || letter == QLatin1Char('_') || letter == QLatin1Char('\\'))
            pattern += QLatin1Char('\\');
        pattern += letter.unicode() < 0x80 ? letter.toLower() : letter;
    }
    return pattern + QLatin1Char('%');
}

constexpr QLatin1String isLike("LIKE ? ESCAPE '\\'");

void addCycle(const LibraryFilter& filter, Condition& condition)
{
    if (filter.unit)
        condition.add(QStringLiteral("c.unit = ?"), {qint64{*filter.unit}});
    if (filter.engine)
        condition.add(QStringLiteral("c.engine = ?"), {boundText(*filter.engine)});
    if (filter.from.isValid())
        condition.add(QStringLiteral("c.day >= ?"), {dayText(filter.from)});
    if (filter.to.isValid()) // an empty day is before all others
        condition.add(QStringLiteral("c.day <= ? AND c.day <> ''"), {dayText(filter.to)});
    if (!filter.serial.isEmpty())
        condition.add(QStringLiteral("(CAST(c.unit AS TEXT) %1 OR LOWER(c.engine) %1)").arg(isLike),
                      {containing(filter.serial), containing(filter.serial)});
    if (!filter.folders)
        return;
    if (filter.folders->isEmpty()) {
        condition.add(QStringLiteral("1 = 0"));
        return;
    }
    QStringList places;
    QVariantList values;
    for (const QString& folder : *filter.folders) {
        places << QStringLiteral("?");
        values << folder;
    }
    condition.add(QStringLiteral("c.folder IN (%1)").arg(places.join(QLatin1Char(','))), values);
}

/// Begins a condition that there is an episode or a fault, which ")" ends. For cycles they are
/// found once, for flights one after the other, as most questions need only the newest few.
QString among(bool isFlight, const QString& table)
{
    return isFlight ? QStringLiteral("c.%1s > 0 AND EXISTS (SELECT 1 FROM %1 x "
                                     "WHERE x.cycle = c.id AND x.flight = f.number AND ")
                          .arg(table)
                    : QStringLiteral("c.id IN (SELECT x.cycle FROM %1 x WHERE ").arg(table);
}

void addEpisode(const LibraryFilter& filter, bool isFlight, Condition& condition)
{
    if (filter.quantity.isEmpty())
        return;
    QString sql =
        among(isFlight, QStringLiteral("episode")) + QStringLiteral("LOWER(x.quantity) ") + isLike;
    QVariantList values{containing(filter.quantity)};
    if (filter.exceeded) {
        sql += QStringLiteral(" AND x.state >= ?");
        values << static_cast<int>(*filter.exceeded);
    }
    condition.add(sql + QLatin1Char(')'), values);
}

void addFault(const LibraryFilter& filter, bool isFlight, Condition& condition)
{
    if (!filter.fault.isEmpty())
        condition.add(among(isFlight, QStringLiteral("fault")) +
                          QStringLiteral("LOWER(x.parameter) ") + isLike + QLatin1Char(')'),
                      {containing(filter.fault)});
}

void addDuration(const LibraryFilter& filter, Condition& condition)
{
    if (filter.shortest)
        condition.add(QStringLiteral("f.air_seconds >= ?"), {*filter.shortest});
    if (filter.longest)
        condition.add(QStringLiteral("f.air_seconds <= ?"), {*filter.longest});
}

} // namespace

void Condition::add(const QString& more, const QVariantList& moreValues)
{
    sql += QStringLiteral(" AND ") + more;
    values += moreValues;
}

bool asksForFlights(const LibraryFilter& filter)
{
    return filter.exceeded || !filter.quantity.isEmpty() || !filter.fault.isEmpty() ||
           filter.shortest || filter.longest;
}

Condition cycleCondition(const LibraryFilter& filter)
{
    Condition condition{QStringLiteral("1 = 1"), {}};
    addCycle(filter, condition);
    if (filter.exceeded)
        condition.add(QStringLiteral("c.worst >= ?"), {static_cast<int>(*filter.exceeded)});
    addEpisode(filter, false, condition);
    addFault(filter, false, condition);
    if (filter.shortest || filter.longest) {
        Condition flight{QStringLiteral("1 = 1"), {}};
        addDuration(filter, flight);
        condition.add(
            QStringLiteral("c.id IN (SELECT f.cycle FROM flight f WHERE %1)").arg(flight.sql),
            flight.values);
    }
    return condition;
}

Condition flightCondition(const LibraryFilter& filter)
{
    Condition condition{QStringLiteral("1 = 1"), {}};
    addCycle(filter, condition);
    if (filter.exceeded)
        condition.add(QStringLiteral("c.worst >= ? AND f.worst >= ?"),
                      {static_cast<int>(*filter.exceeded), static_cast<int>(*filter.exceeded)});
    addEpisode(filter, true, condition);
    addFault(filter, true, condition);
    addDuration(filter, condition);
    return condition;
}

} // namespace KOLT::Library
