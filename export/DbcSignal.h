#pragma once

#include "profile/Profile.h"

#include <QByteArray>

#include <optional>
#include <set>

namespace KOLT {

/// Where and how a DBC file says that a value lies in a message. Bits count from the lowest of the
/// first byte on; all signals are little-endian.
struct DbcSignal
{
    int startBit = 0;
    int bits = 0;
    bool isSigned = false;
    bool isFloat = false;
    double factor = 1.0;
    double offset = 0.0;
    double lowest = 0.0; ///< of the scaled value; both 0: not told
    double highest = 0.0;
};

/// None for types that are not decoded, for bit fields without bits, and for scales that are no
/// numbers. Scales include the conversion to imperial units if the profile shows these.
std::optional<DbcSignal> dbcSignalOf(const Profile& profile, const ProfileParameter& parameter);

/// Identifiers of a DBC file that differ from each other: letters, digits and underscores, at most
/// 32 characters.
class DbcNames
{
public:
    QByteArray of(const QString& text);

private:
    std::set<QByteArray> m_taken; ///< in lower case, as some tools do not tell letters by case
};

/// The shortest text that reads back as the same number.
QByteArray dbcNumber(double number);

/// A string in quotes, in Latin-1. The format has no way to write quotes within one.
QByteArray dbcString(const QString& text);

} // namespace KOLT
