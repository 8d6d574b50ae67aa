#include "record/RecordFile.h"

#include "base/Diagnostics.h"
#include "base/System.h"
#include "record/SampleReader.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <new>
#include <optional>

namespace KOLT {

namespace {

using namespace RecordFormat;

constexpr std::size_t timeBytes = 8;

/// The time stamp at an offset; none if it extends beyond `bytes`.
std::optional<double> secondsAt(std::span<const unsigned char> bytes, std::size_t offset,
                                ByteOrder order)
{
    if (bytes.size() < offset + timeBytes)
        return std::nullopt;
    const ByteReader reader(bytes, order);
    return secondsOf(reader.u32(offset), reader.u32(offset + 4));
}

/// Whether there is memory for that many more samples. Without this check the system would end the
/// program while it reads a huge or sparse file.
bool fitMemory(std::size_t samples)
{
    // The last chunk of each series is partly unused: some percent for a large file.
    constexpr double slack = 1.25;
    const double wanted = slack * static_cast<double>(samples) * sizeof(StoredSample);
    constexpr double fallback = std::numeric_limits<std::uint32_t>::max();
    return wanted < System::availableMemory().value_or(fallback);
}

QDateTime moved(const QDateTime& dateTime, int minutes)
{
    constexpr qint64 secondsPerMinute = 60;
    return dateTime.addSecs(minutes * secondsPerMinute);
}

/// Latin-1 up to the first zero byte; empty if the field extends beyond `bytes`.
QString textAt(std::span<const unsigned char> bytes, std::size_t offset, std::size_t width)
{
    if (bytes.size() < offset + width)
        return {};
    const auto field = bytes.subspan(offset, width);
    const auto end = std::ranges::find(field, 0);
    return QString::fromLatin1(reinterpret_cast<const char*>(field.data()), end - field.begin());
}

QDateTime dateTimeAt(const ByteReader& reader)
{
    const QDate date(static_cast<std::int16_t>(reader.u16(dateOffset)), reader.u8(dateOffset + 2),
                     reader.u8(dateOffset + 3));
    const QTime time(reader.u8(dateOffset + 4), reader.u8(dateOffset + 5),
                     reader.u8(dateOffset + 6));
    if (!date.isValid())
        return {};
    return {date, time.isValid() ? time : QTime(0, 0), Qt::UTC};
}

/// Reads up to `bytes.size()` bytes at `offset` and returns those read.
std::span<const unsigned char> readAt(QFile& file, qint64 offset, std::span<unsigned char> bytes)
{
    if (!file.seek(offset))
        return {};
    const qint64 count =
        file.read(reinterpret_cast<char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    return bytes.first(static_cast<std::size_t>(std::max<qint64>(0, count)));
}

template <ByteOrder order>
void appendSample(std::span<const unsigned char, sampleBytes> bytes, MessageMap& messages)
{
    const ByteReader reader(bytes, order);
    StoredSample* const sample =
        messages.append(reader.u32(identifierOffset) & identifierMask, reader.u32(sampleTimeOffset),
                        reader.u32(sampleTimeOffset + 4));
    if (sample == nullptr)
        return;
    std::copy_n(bytes.begin(), sample->data.size(), sample->data.begin());
    sample->byte8 = bytes[8];
    sample->byte9 = bytes[9];
    sample->kind = reader.u16(kindOffset);
    sample->word16 = reader.u32(16);
}

template <ByteOrder order>
void appendSamples(std::span<const unsigned char> bytes, MessageMap& messages)
{
    for (; bytes.size() >= sampleBytes; bytes = bytes.subspan(sampleBytes))
        appendSample<order>(bytes.first<sampleBytes>(), messages);
}

} // namespace

bool RecordFile::readRecordInfo(const QString& path)
{
    m_path = path;
    m_info = {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        Diagnostics::print("RecordFile::readRecordInfo: Could not open %s\n", qUtf8Printable(path));
        Diagnostics::print("Error: %s\n", qUtf8Printable(file.errorString()));
        return false;
    }
    m_info.sampleCount = SampleReader::samplesIn(file.size());
    // One read for the header and the first sample, which follows it.
    std::array<unsigned char, headerBytes + sampleBytes> buffer{};
    const auto start = readAt(file, 0, buffer);
    readHeader(start.first(std::min<std::size_t>(headerBytes, start.size())));
    readSampleTimes(file, start);
    return true;
}

void RecordFile::readHeader(std::span<const unsigned char> header)
{
    const bool isLittle = ByteReader(header, ByteOrder::Little).u16(0) == byteOrderMark;
    m_info.byteOrder = isLittle ? ByteOrder::Little : ByteOrder::Big;
    const ByteReader reader(header, m_info.byteOrder);
    if (!m_info.dateInvalid)
        m_info.dateTime = moved(dateTimeAt(reader), m_clockOffset);
    m_info.busType = reader.u32(busTypeOffset);
    m_info.ecuSerialNumber = reader.u32(ecuSerialOffset);

    std::size_t offset = textsOffset;
    for (QString* text : {&m_info.softwarePartA, &m_info.ecuType, &m_info.engineSerial,
                          &m_info.engineType, &m_info.softwarePartB}) {
        *text = textAt(header, offset, partNumberWidth);
        offset += partNumberWidth;
    }
    m_info.emuVersion = textAt(header, offset, emuVersionWidth);
}

void RecordFile::readSampleTimes(QFile& file, std::span<const unsigned char> start)
{
    const ByteReader header(start, m_info.byteOrder);
    m_info.startSeconds = secondsOf(header.u32(headerTimeOffset), header.u32(headerTimeOffset + 4));
    m_info.stopSeconds = m_info.startSeconds;
    if (m_info.sampleCount == 0)
        return;
    m_info.startSeconds = secondsAt(start, headerBytes + sampleTimeOffset, m_info.byteOrder)
                              .value_or(m_info.startSeconds);
    const qint64 last = headerBytes + (qint64{m_info.sampleCount} - 1) * sampleBytes;
    std::array<unsigned char, timeBytes> stamp{};
    m_info.stopSeconds =
        secondsAt(readAt(file, last + sampleTimeOffset, stamp), 0, m_info.byteOrder)
            .value_or(m_info.startSeconds);
}

bool RecordFile::readRecordData(MessageMap& messages, const ReadProgress& progress)
{
    SampleReader reader;
    if (!reader.open(m_path))
        return false;
    const int listed = m_info.sampleCount;
    m_info.sampleCount = reader.sampleCount();
    if (m_info.sampleCount < listed)
        Diagnostics::print("RecordFile::readRecordData: %s has %d samples, %d were listed\n",
                           qUtf8Printable(m_path), m_info.sampleCount, listed);
    readHeader(reader.header());

    const std::uint32_t before = messages.nextSequence();
    try {
        if (fitMemory(static_cast<std::size_t>(m_info.sampleCount)))
            return readSamples(reader, messages, progress);
    } catch (const std::bad_alloc&) {
        messages.truncate(before);
    }
    Diagnostics::print("RecordFile::readRecordData: Not enough memory for %s\n",
                       qUtf8Printable(m_path));
    return false;
}

bool RecordFile::readSamples(SampleReader& reader, MessageMap& messages,
                             const ReadProgress& progress) const
{
    for (auto samples = reader.next(); !samples.empty(); samples = reader.next()) {
        if (m_info.byteOrder == ByteOrder::Little)
            appendSamples<ByteOrder::Little>(samples, messages);
        else
            appendSamples<ByteOrder::Big>(samples, messages);
        if (progress)
            progress(reader.doneBytes());
    }
    return reader.isComplete();
}

void RecordFile::repairDate(const QDateTime& dateTime)
{
    m_info.dateTime = dateTime;
    m_info.dateRepaired = dateTime.isValid();
}

void RecordFile::setClockOffset(int minutes)
{
    m_info.dateTime = moved(m_info.dateTime, minutes - m_clockOffset);
    m_clockOffset = minutes;
}

} // namespace KOLT
