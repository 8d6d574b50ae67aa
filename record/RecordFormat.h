#pragma once

#include <cstdint>

/// Layout of a record file: a header, then samples back to back (docs/formats/record-file.md).
namespace KOLT::RecordFormat {

constexpr int headerBytes = 128;
constexpr int sampleBytes = 28;

/// First two bytes of a little-endian file, read as a little-endian number.
constexpr std::uint16_t byteOrderMark = 0xABBA;

/// Offsets in the header.
constexpr int dateOffset = 12; ///< year (2), month, day, hour, minute, second
constexpr int headerTimeOffset = 20;
constexpr int busTypeOffset = 28;
constexpr int ecuSerialOffset = 32;
constexpr int textsOffset = 36;

/// Widths of the header's texts, in file order from `textsOffset`.
constexpr int partNumberWidth = 13;
constexpr int emuVersionWidth = 7;

/// Offsets in a sample.
constexpr int kindOffset = 10;
constexpr int identifierOffset = 12;
constexpr int sampleTimeOffset = 20;

/// The top bit of an identifier is not part of it.
constexpr std::uint32_t identifierMask = 0x7FFFFFFF;

/// Identifiers under which all samples of kind 0 and of kind 1 are also found.
constexpr std::uint32_t kind0Series = 0x7FFFFFFF;
constexpr std::uint32_t kind1Series = 0x7FFFFFFE;

/// A time stamp counts ticks of 31.25 ns in two words of 32 bits.
constexpr double nanosecondsPerTick = 31.25;
constexpr double secondsPerHighWord = 134.217728;

/// Seconds of a time stamp. Keep the order of the factors: low * 31.25 is exact.
constexpr double secondsOf(std::uint32_t high, std::uint32_t low)
{
    return low * nanosecondsPerTick * 1e-9 + high * secondsPerHighWord;
}

/// Tenths of a second, rounded half up: the time key that all views share. Time stamps stay far
/// below the 1e17 s at which the cast would overflow.
constexpr std::int64_t tenthsOf(double seconds)
{
    return static_cast<std::int64_t>(seconds * 10.0 + 0.5); // NOLINT(bugprone-incorrect-roundings)
}

} // namespace KOLT::RecordFormat
