#pragma once

#include "library/ledger/LogbookRecords.h"

#include <QJsonObject>

/// Items of the logbook as JSON. Reading returns nothing for an object that is no such item; what
/// is missing or of another type has its default then.
namespace KOLT::Library {

/// Of the format that is written; objects with a higher one are not read.
inline constexpr int logbookFormat = 1;

void putItem(QJsonObject& object, const WrittenItem& item);
WrittenItem itemFrom(const QJsonObject& object);

void put(QJsonObject& object, const Note& note);
void put(QJsonObject& object, const MaintenanceLimit& limit);
void put(QJsonObject& object, const AircraftName& aircraft);
void put(QJsonObject& object, const EngineFacts& engine);
void put(QJsonObject& object, const WrittenInstallation& installation);

/// False if the object does not say what it is about.
bool get(const QJsonObject& object, Note& note);
bool get(const QJsonObject& object, MaintenanceLimit& limit);
bool get(const QJsonObject& object, AircraftName& aircraft);
bool get(const QJsonObject& object, EngineFacts& engine);
bool get(const QJsonObject& object, WrittenInstallation& installation);

} // namespace KOLT::Library
