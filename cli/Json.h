#pragma once

#include "record/Flight.h"

#include <QDateTime>
#include <QJsonObject>
#include <QJsonValue>

#include <optional>

/// The parts of the output that several verbs have in common.
namespace KOLT::Cli {

/// "yyyy-MM-ddThh:mm:ss"; null if it is invalid.
QJsonValue jsonDateTime(const QDateTime& dateTime);

template <typename Number>
QJsonValue orNull(const std::optional<Number>& number)
{
    return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}

/// A flight with its figures.
QJsonObject jsonFlight(const Flight& flight);

/// Prints the object to the standard output; returns what went wrong.
QString printJson(const QJsonObject& object);

} // namespace KOLT::Cli
