#include "export/CandumpWriter.h"

#include "export/ExportFile.h"
#include "record/CardContainer.h"

#include <queue>

#include <algorithm>
#include <array>
#include <functional>
#include <string>

namespace KOLT {

namespace {

constexpr std::size_t blockBytes = 1U << 16;
constexpr std::uint32_t lastStandardId = 0x7FF;
constexpr std::uint32_t lastExtendedId = 0x1FFFFFFF;
constexpr std::uint64_t ticksPerMicrosecond = 32;
constexpr std::int64_t microsecondsPerSecond = 1'000'000;

/// Calls function(sample) for all samples in recorded order until it returns false. Merges the
/// series, of which each is in that order.
template <typename Function>
void forEachAsRecorded(const MessageMap& messages, Function&& function)
{
    struct Cursor
    {
        const MessageSeries* series;
        std::size_t next;
        std::uint32_t sequence;

        bool operator>(const Cursor& other) const { return sequence > other.sequence; }
    };

    std::priority_queue<Cursor, std::vector<Cursor>, std::greater<>> cursors;
    for (const auto& [id, series] : messages.all()) {
        if (!series.empty())
            cursors.push({&series, 0, series[0].sequence});
    }
    while (!cursors.empty()) {
        Cursor cursor = cursors.top();
        cursors.pop();
        // Mostly another series is next, but a unit may send the same message many times in a row.
        do {
            if (!function((*cursor.series)[cursor.next]))
                return;
            if (++cursor.next == cursor.series->size())
                break;
            cursor.sequence = (*cursor.series)[cursor.next].sequence;
        } while (cursors.empty() || cursor.sequence < cursors.top().sequence);
        if (cursor.next < cursor.series->size())
            cursors.push(cursor);
    }
}

void appendHex(std::string& line, std::uint32_t value, int digits)
{
    constexpr auto symbols = "0123456789ABCDEF";
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        line += symbols[(value >> shift) & 0xFU];
}

void appendDecimal(std::string& line, std::int64_t value, int digits)
{
    std::array<char, 20> text{};
    std::size_t start = text.size();
    for (; value > 0 || digits > 0; value /= 10, --digits)
        text[--start] = static_cast<char>('0' + value % 10);
    line.append(text.data() + start, text.size() - start);
}

/// The clock at counter 0 in microseconds since 1970; none where a log could not tell it.
std::optional<std::int64_t> startOf(const DataSet& dataSet)
{
    if (!dataSet.dateTime.isValid())
        return std::nullopt;
    const QDateTime start(dataSet.dateTime.date(), dataSet.dateTime.time(), Qt::UTC);
    const std::int64_t milliseconds = start.toMSecsSinceEpoch();
    return milliseconds < 0 ? std::nullopt : std::optional(milliseconds * 1000);
}

/// Writes the lines of a log in blocks.
class Log
{
public:
    Log(QIODevice& device, std::int64_t start, const std::vector<BusSpan>& buses)
        : m_device(device)
        , m_start(start)
        , m_buses(buses)
    {
    }

    bool append(const StoredSample& sample)
    {
        const auto ticks = (sample.ticks() + ticksPerMicrosecond / 2) / ticksPerMicrosecond;
        const std::int64_t time = m_start + static_cast<std::int64_t>(ticks);
        m_block += '(';
        appendDecimal(m_block, time / microsecondsPerSecond, 10);
        m_block += '.';
        appendDecimal(m_block, time % microsecondsPerSecond, 6);
        m_block += ") ";
        m_block += interfaceAt(sample.sequence);
        m_block += ' ';
        appendHex(m_block, sample.id, sample.id > lastStandardId ? 8 : 3);
        m_block += '#';
        for (const unsigned char byte : sample.data)
            appendHex(m_block, byte, 2);
        m_block += '\n';
        return m_block.size() < blockBytes || flush();
    }

    bool flush()
    {
        const bool isWritten = writeAll(m_device, m_block);
        m_block.clear();
        return isWritten;
    }

private:
    const std::string& interfaceAt(std::uint32_t sequence)
    {
        const bool isNext =
            m_nextBus < m_buses.size() && m_buses[m_nextBus].firstSequence <= sequence;
        while (m_nextBus < m_buses.size() && m_buses[m_nextBus].firstSequence <= sequence)
            ++m_nextBus;
        if (isNext || m_interface.empty())
            m_interface =
                "can" + std::to_string(m_nextBus > 0 ? m_buses[m_nextBus - 1].busType : 0U);
        return m_interface;
    }

    QIODevice& m_device;
    std::int64_t m_start;
    const std::vector<BusSpan>& m_buses;
    std::size_t m_nextBus = 0;
    std::string m_interface;
    std::string m_block;
};

} // namespace

std::vector<BusSpan> busesOf(const CardContainer& card, const DataSet& dataSet)
{
    std::vector<BusSpan> buses;
    for (const LoadedFile& file : dataSet.files) {
        const auto found = card.files().find(file.name);
        buses.push_back(
            {file.firstSequence, found == card.files().end() ? 0U : found->second.info().busType});
    }
    return buses;
}

ExportStatus writeCandump(QIODevice& device, const DataSet& dataSet,
                          const std::vector<BusSpan>& buses, CandumpSummary& summary,
                          const ExportProgress& progress)
{
    const std::optional<std::int64_t> start = startOf(dataSet);
    summary = {};
    summary.hasClock = start.has_value();
    Log log(device, start.value_or(0), buses);
    ExportMeter meter(progress, dataSet.messages.sampleCount());
    bool isWritten = true;
    forEachAsRecorded(dataSet.messages, [&](const StoredSample& sample) {
        if (sample.id > lastExtendedId) {
            ++summary.leftOut;
        } else {
            isWritten = log.append(sample);
            ++summary.written;
        }
        return isWritten && meter.step();
    });
    if (meter.isCancelled())
        return ExportStatus::Cancelled;
    return finishExport(device, isWritten && log.flush());
}

} // namespace KOLT
