#pragma once

#include "record/ByteReader.h"
#include "record/MessageMap.h"

#include <QDateTime>
#include <QString>

#include <functional>

class QFile;

namespace KOLT {

/// What the header of a record file says. Date-times carry no time zone: they are the recording's
/// own and never converted (they are held as UTC so that nothing shifts them).
struct RecordInfo
{
    QDateTime dateTime;
    bool dateInvalid = false;  ///< the header has no valid date: the file opens an engine cycle
    bool dateRepaired = false; ///< dateTime was worked out from the following file
    double startSeconds = 0.0;
    double stopSeconds = 0.0;
    int sampleCount = 0;
    std::uint32_t busType = 0;
    std::uint32_t ecuSerialNumber = 0;
    QString softwarePartA;
    QString ecuType;
    QString engineSerial;
    QString engineType;
    QString softwarePartB;
    QString emuVersion;
    ByteOrder byteOrder = ByteOrder::Big;
};

/// Called while samples are read, with the bytes read so far of this file.
using ReadProgress = std::function<void(qint64 bytes)>;

/// One record file of the engine management unit (docs/formats/record-file.md).
///
/// Files are untrusted: a short header leaves fields empty, what lies behind the last whole sample
/// is ignored, and a file that lost its end between listing and loading gives what is left. Every
/// failure is one printed line with the file's path.
class RecordFile
{
public:
    /// Reads the header and the first and last time stamp, whatever the size of the file, and
    /// remembers the path. False when the file cannot be opened; the header is then empty.
    bool readRecordInfo(const QString& path);

    /// Appends all samples of the remembered file to the map. False when the file cannot be opened
    /// or memory does not suffice, nothing of it is then stored; and when reading fails on the way
    /// or the file ends before its size said, what came before is then kept.
    bool readRecordData(MessageMap& messages, const ReadProgress& progress = {});

    const QString& path() const { return m_path; }

    const RecordInfo& info() const { return m_info; }

    void setDateInvalid() { m_info.dateInvalid = true; }

    /// Gives a file without a valid date the one that was worked out for it; it stays with the
    /// record when its samples are read.
    void repairDate(const QDateTime& dateTime);

private:
    void readHeader(std::span<const unsigned char> header);
    void readSampleTimes(QFile& file, std::span<const unsigned char> start);
    bool readSamples(QFile& file, MessageMap& messages, const ReadProgress& progress) const;

    QString m_path;
    RecordInfo m_info;
};

} // namespace KOLT
