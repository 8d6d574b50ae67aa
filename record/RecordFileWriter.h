#pragma once

#include <QByteArray>

#include <array>
#include <cstdint>

/// Puts record files together as the recording unit does (docs/formats/record-file.md), for case
/// files (CaseFile.h), the sample card and the benchmarks. Tests put records together independently
/// (tests/support/RecordBytes.h).
namespace KOLT::RecordFileWriter {

enum class FileOrder { LittleEndian, BigEndian };

/// A header without a date stands for a unit that had no clock yet.
struct RecordHeader
{
    std::int16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    std::uint64_t ticks = 0;
    std::uint32_t busType = 0;
    std::uint32_t ecuSerialNumber = 0;
    QByteArray softwarePartA; ///< this and the next four: Latin-1, up to 13 characters
    QByteArray ecuType;
    QByteArray engineSerial;
    QByteArray engineType;
    QByteArray softwarePartB;
    QByteArray emuVersion; ///< up to 7 characters
};

struct RecordSample
{
    std::array<std::uint8_t, 8> data{}; ///< as on the bus, whatever the file's byte order
    std::uint8_t byte8 = 0;
    std::uint8_t byte9 = 0;
    std::uint16_t kind = 0;
    std::uint32_t identifier = 0; ///< written unchanged, including the top bit
    std::uint32_t word16 = 0;
    std::uint64_t ticks = 0;
};

/// Ticks of the unit's clock, rounded to nearest; 0 for negative times and NaN.
std::uint64_t ticksFromSeconds(double seconds);

/// Texts longer than their field are truncated.
void appendHeader(QByteArray& file, const RecordHeader& header,
                  FileOrder order = FileOrder::LittleEndian);
void appendSample(QByteArray& file, const RecordSample& sample,
                  FileOrder order = FileOrder::LittleEndian);

} // namespace KOLT::RecordFileWriter
