#include "library/ledger/LogbookJson.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace KOLT::Library {

namespace {

constexpr double maxHours = 1e6;
constexpr int maxMonths = 1200;

constexpr std::array<const char*, 4> aboutNames{"engine", "cycle", "flight", "moment"};

QLatin1String key(const char* name)
{
    return QLatin1String(name);
}

QString text(const QJsonObject& object, const char* name)
{
    return object.value(key(name)).toString();
}

std::optional<double> number(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object.value(key(name));
    if (!value.isDouble() || !std::isfinite(value.toDouble()))
        return {};
    return value.toDouble();
}

/// A number of hours that can be worked with.
std::optional<double> hours(const QJsonObject& object, const char* name)
{
    const std::optional<double> value = number(object, name);
    return value && std::abs(*value) <= maxHours ? value : std::nullopt;
}

quint32 serial(const QJsonObject& object, const char* name)
{
    const double value = number(object, name).value_or(0.0);
    return value >= 1.0 && value <= 4294967295.0 ? static_cast<quint32>(value) : 0;
}

QDateTime time(const QJsonObject& object, const char* name)
{
    return QDateTime::fromString(text(object, name), Qt::ISODateWithMs).toUTC();
}

QDate date(const QJsonObject& object, const char* name)
{
    return QDate::fromString(text(object, name), Qt::ISODate);
}

/// Leaves out what is not known, also where the object had it before.
template <typename T>
void putOptional(QJsonObject& object, const char* name, const std::optional<T>& value)
{
    if (value)
        object.insert(key(name), *value);
    else
        object.remove(key(name));
}

void putTime(QJsonObject& object, const char* name, const QDateTime& value)
{
    putOptional(object, name,
                value.isValid() ? std::optional(value.toUTC().toString(Qt::ISODateWithMs))
                                : std::nullopt);
}

void putDate(QJsonObject& object, const char* name, const QDate& value)
{
    putOptional(object, name,
                value.isValid() ? std::optional(value.toString(Qt::ISODate)) : std::nullopt);
}

} // namespace

void putItem(QJsonObject& object, const WrittenItem& item)
{
    object.insert(key("format"), logbookFormat);
    object.insert(key("id"), item.id);
    object.insert(key("author"), item.author);
    putTime(object, "changed", item.changed);
    putOptional(object, "removed", item.isRemoved ? std::optional(true) : std::nullopt);
}

WrittenItem itemFrom(const QJsonObject& object)
{
    return {text(object, "id"),
            text(object, "author"),
            time(object, "changed"),
            object.value(key("removed")).toBool(),
            {}};
}

void put(QJsonObject& object, const Note& note)
{
    object.insert(key("about"), key(aboutNames.at(static_cast<std::size_t>(note.about))));
    object.insert(key("engine"), note.engine);
    object.insert(key("text"), note.text);
    if (note.about == Note::About::Engine)
        return;
    const NotePlace& place = note.place;
    object.insert(key("unit"), qint64{place.unit});
    object.insert(key("file"), place.fileName);
    object.insert(key("fileKey"), place.fileKey);
    object.insert(key("sha256"), place.fileSha256);
    putTime(object, "dateTime", place.dateTime);
    putOptional(object, "seconds", place.seconds);
}

bool get(const QJsonObject& object, Note& note)
{
    note.item = itemFrom(object);
    const QString about = text(object, "about");
    const auto* const name = std::find_if(aboutNames.begin(), aboutNames.end(),
                                          [&](const char* one) { return about == key(one); });
    note.about = static_cast<Note::About>(name - aboutNames.begin());
    note.engine = text(object, "engine");
    note.text = text(object, "text");
    note.place = {serial(object, "unit"), text(object, "file"),     text(object, "fileKey"),
                  text(object, "sha256"), time(object, "dateTime"), number(object, "seconds")};
    if (name == aboutNames.end())
        return false;
    if (note.about == Note::About::Engine)
        return !note.engine.isEmpty();
    const bool needsTime = note.about != Note::About::Cycle;
    return !note.place.fileKey.isEmpty() && (note.place.seconds || !needsTime);
}

void put(QJsonObject& object, const MaintenanceLimit& limit)
{
    object.insert(key("engine"), limit.engine);
    object.insert(key("title"), limit.title);
    putOptional(object, "everyHours", limit.everyHours);
    putOptional(object, "everyMonths", limit.everyMonths);
    object.insert(key("lastHours"), limit.lastHours);
    putDate(object, "lastDate", limit.lastDate);
}

bool get(const QJsonObject& object, MaintenanceLimit& limit)
{
    limit.item = itemFrom(object);
    limit.engine = text(object, "engine");
    limit.title = text(object, "title");
    limit.everyHours = hours(object, "everyHours");
    if (limit.everyHours && *limit.everyHours <= 0.0)
        limit.everyHours.reset();
    const double months = number(object, "everyMonths").value_or(0.0);
    if (months >= 1.0 && months <= maxMonths)
        limit.everyMonths = static_cast<int>(months);
    limit.lastHours = hours(object, "lastHours").value_or(0.0);
    limit.lastDate = date(object, "lastDate");
    return !limit.engine.isEmpty() && (limit.everyHours || limit.everyMonths);
}

void put(QJsonObject& object, const AircraftName& aircraft)
{
    object.insert(key("unit"), qint64{aircraft.unit});
    object.insert(key("name"), aircraft.name);
}

bool get(const QJsonObject& object, AircraftName& aircraft)
{
    aircraft.item = itemFrom(object);
    aircraft.unit = serial(object, "unit");
    aircraft.name = text(object, "name");
    return aircraft.unit != 0;
}

void put(QJsonObject& object, const EngineFacts& engine)
{
    object.insert(key("engine"), engine.engine);
    putOptional(object, "hoursBefore", engine.hoursBefore);
}

bool get(const QJsonObject& object, EngineFacts& engine)
{
    engine.item = itemFrom(object);
    engine.engine = text(object, "engine");
    engine.hoursBefore = hours(object, "hoursBefore");
    return !engine.engine.isEmpty();
}

void put(QJsonObject& object, const WrittenInstallation& installation)
{
    object.insert(key("engine"), installation.engine);
    object.insert(key("unit"), qint64{installation.unit});
    putDate(object, "from", installation.from);
    putDate(object, "to", installation.to);
}

bool get(const QJsonObject& object, WrittenInstallation& installation)
{
    installation.item = itemFrom(object);
    installation.engine = text(object, "engine");
    installation.unit = serial(object, "unit");
    installation.from = date(object, "from");
    installation.to = date(object, "to");
    return !installation.engine.isEmpty() && installation.unit != 0;
}

} // namespace KOLT::Library
