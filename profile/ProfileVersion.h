#pragma once

#include <QString>
#include <QStringList>

/// Profile files beside each other: which is newer, and what differs.
namespace KOLT {

struct ProfileVersion
{
    QString profileId;
    QString version;
};

/// The attributes of a file's root, without loading the rest; empty when it is no profile.
ProfileVersion profileVersion(const QString& path);

/// Compares part by part, as numbers: "2.10" is newer than "2.9", and "2.1" than "2".
bool isNewerVersion(const QString& version, const QString& than);

/// What is added, removed or changed in `to`, one line for each kind of entry: "Parameters changed
/// (2): ECU A/RPM, ECU B/RPM". Empty when nothing is that the program uses.
QStringList profileChanges(const QString& from, const QString& to);

} // namespace KOLT
