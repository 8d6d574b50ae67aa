#include "record/RecordFileWriter.h"

#include "record/RecordFormat.h"

#include <algorithm>
#include <cmath>

namespace KOLT::RecordFileWriter {

namespace {

constexpr double ticksPerSecond = 1e9 / RecordFormat::nanosecondsPerTick;

/// A block of fixed size that is filled at given offsets; other bytes stay zero.
template <int size>
class Block
{
public:
    explicit Block(FileOrder order)
        : m_order(order)
    {
    }

    void put8(int offset, std::uint8_t value) { m_bytes[static_cast<std::size_t>(offset)] = value; }

    void put16(int offset, std::uint16_t value) { put(offset, 2, value); }

    void put32(int offset, std::uint32_t value) { put(offset, 4, value); }

    void putTicks(int offset, std::uint64_t ticks)
    {
        put32(offset, static_cast<std::uint32_t>(ticks >> 32));
        put32(offset + 4, static_cast<std::uint32_t>(ticks & 0xFFFFFFFFU));
    }

    void putText(int offset, const QByteArray& text, int width)
    {
        const auto length = std::min<qsizetype>(text.size(), width);
        std::copy_n(text.begin(), length, m_bytes.begin() + offset);
    }

    void appendTo(QByteArray& file) const
    {
        file.append(reinterpret_cast<const char*>(m_bytes.data()), size);
    }

private:
    void put(int offset, int width, std::uint32_t value)
    {
        for (int i = 0; i < width; ++i) {
            const int place = m_order == FileOrder::LittleEndian ? i : width - 1 - i;
            put8(offset + i, static_cast<std::uint8_t>((value >> (8 * place)) & 0xFFU));
        }
    }

    std::array<std::uint8_t, size> m_bytes{};
    FileOrder m_order;
};

} // namespace

std::uint64_t ticksFromSeconds(double seconds)
{
    if (!(seconds > 0.0))
        return 0;
    return static_cast<std::uint64_t>(std::llround(seconds * ticksPerSecond));
}

void appendHeader(QByteArray& file, const RecordHeader& header, FileOrder order)
{
    using namespace RecordFormat;
    Block<headerBytes> block(order);
    block.put16(0, byteOrderMark);
    block.put16(dateOffset, static_cast<std::uint16_t>(header.year));
    block.put8(dateOffset + 2, header.month);
    block.put8(dateOffset + 3, header.day);
    block.put8(dateOffset + 4, header.hour);
    block.put8(dateOffset + 5, header.minute);
    block.put8(dateOffset + 6, header.second);
    block.putTicks(headerTimeOffset, header.ticks);
    block.put32(busTypeOffset, header.busType);
    block.put32(ecuSerialOffset, header.ecuSerialNumber);

    int offset = textsOffset;
    for (const QByteArray* text : {&header.softwarePartA, &header.ecuType, &header.engineSerial,
                                   &header.engineType, &header.softwarePartB}) {
        block.putText(offset, *text, partNumberWidth);
        offset += partNumberWidth;
    }
    block.putText(offset, header.emuVersion, emuVersionWidth);
    block.appendTo(file);
}

void appendSample(QByteArray& file, const RecordSample& sample, FileOrder order)
{
    using namespace RecordFormat;
    Block<sampleBytes> block(order);
    for (int i = 0; i < static_cast<int>(sample.data.size()); ++i)
        block.put8(i, sample.data[static_cast<std::size_t>(i)]);
    block.put8(8, sample.byte8);
    block.put8(9, sample.byte9);
    block.put16(kindOffset, sample.kind);
    block.put32(identifierOffset, sample.identifier);
    block.put32(16, sample.word16);
    block.putTicks(sampleTimeOffset, sample.ticks);
    block.appendTo(file);
}

} // namespace KOLT::RecordFileWriter
