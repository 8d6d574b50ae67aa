#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

/// What the archive tells of the recordings in it. The archive is a plain folder tree:
///
///     <unit serial>/<year>/<date time of the cycle> <start of its first file's hash>/REC....CAN
///                                                                                 /manifest.json
namespace KOLT::Library {

struct ArchivedFile
{
    QString name;
    QString sha256; ///< 64 hexadecimal digits, lower case
    qint64 bytes = 0;
};

/// One engine cycle in a folder of its own.
struct ArchivedCycle
{
    QString folder;            ///< below the archive, with '/'; identifies the cycle
    quint32 unit = 0;          ///< serial number of the unit, from the header of its first file
    QString engine;            ///< engine serial number of the header; may be empty
    QString engineType;        ///< of the header; may be empty
    QString ecuType;           ///< of the header; may be empty
    QDateTime dateTime;        ///< of the cycle, as UTC; invalid if no file had a date
    QList<ArchivedFile> files; ///< in name order; without those in "copies/"
};

} // namespace KOLT::Library
