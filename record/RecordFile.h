#pragma once

#include "record/ByteReader.h"
#include "record/MessageMap.h"

#include <QDateTime>
#include <QString>

#include <functional>

class QFile;

namespace KOLT {

class SampleReader;

/// The header of a record file. The recording's date-time has no time zone; it is stored as UTC so
/// that it is never converted.
struct RecordInfo
{
    QDateTime dateTime;
    bool dateInvalid = false;  ///< the header has no valid date: the file starts a cycle
    bool dateRepaired = false; ///< dateTime was computed from the following file
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

/// Called while samples are read, with the bytes of samples read so far from this file.
using ReadProgress = std::function<void(qint64 bytes)>;

/// One record file of the engine management unit (docs/formats/record-file.md).
///
/// Files are untrusted: fields beyond a short header are empty, bytes after the last whole sample
/// are ignored, and a file that became shorter after listing gives the samples that remain. Each
/// failure prints a line with the file's path.
class RecordFile
{
public:
    /// Stores the path and reads the header and the first and last time stamps, in constant time.
    /// False if the file cannot be opened; the header is empty then.
    bool readRecordInfo(const QString& path);

    /// Appends all samples of the file to the map. False if the file cannot be opened or there is
    /// not enough memory; the map is unchanged then. Also false if reading fails half-way or the
    /// file is shorter than its size promised; the samples read so far are kept then.
    bool readRecordData(MessageMap& messages, const ReadProgress& progress = {});

    const QString& path() const { return m_path; }

    const RecordInfo& info() const { return m_info; }

    void setDateInvalid() { m_info.dateInvalid = true; }

    /// Moves the date by minutes, in place of those of an earlier call, also when the header is
    /// read again with the data.
    void setClockOffset(int minutes);

    /// Sets the date-time computed for a file without a valid date. readRecordData() keeps it.
    void repairDate(const QDateTime& dateTime);

private:
    void readHeader(std::span<const unsigned char> header);
    void readSampleTimes(QFile& file, std::span<const unsigned char> start);
    bool readSamples(SampleReader& reader, MessageMap& messages,
                     const ReadProgress& progress) const;

    QString m_path;
    RecordInfo m_info;
    int m_clockOffset = 0; ///< minutes
};

} // namespace KOLT
