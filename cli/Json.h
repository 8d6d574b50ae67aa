#pragma once

#include "record/Flight.h"

#include <QDateTime>
#include <QJsonObject>
#include <QJsonValue>

/// The parts of the output that several verbs have in common.
namespace KOLT::Cli {

/// "yyyy-MM-ddThh:mm:ss"; null if it is invalid.
QJsonValue jsonDateTime(const QDateTime& dateTime);

/// A flight with its figures.
QJsonObject jsonFlight(const Flight& flight);

/// Prints the object to the standard output; returns what went wrong.
QString printJson(const QJsonObject& object);

} // namespace KOLT::Cli
