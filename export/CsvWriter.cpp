#include "export/CsvWriter.h"

#include "base/Csv.h"
#include "export/ExportClock.h"
#include "export/ExportFile.h"
#include "export/NumberText.h"
#include "profile/ValueDecoder.h"
#include "record/SampleWalker.h"

#include <QIODevice>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>

namespace KOLT {

namespace {

constexpr std::size_t blockBytes = 1U << 20;
constexpr auto byteOrderMark = "\xEF\xBB\xBF";
constexpr int secondsDecimals = 3;

/// Turns values into the text of cells.
class CellFormat
{
public:
    CellFormat(const Profile& profile, const CsvOptions& options)
        : m_profile(profile)
        , m_separator(options.separator)
        , m_hasComma(options.decimalComma)
    {
    }

    char separator() const { return m_separator; }

    void append(std::string& text, double number, int decimals) const
    {
        const std::size_t start = text.size();
        appendFixed(text, number, decimals);
        setDecimalSign(text, start);
    }

    /// Date and time of day; the decimal sign applies to the seconds too.
    void append(std::string& text, const ExportClock& clock, double seconds) const
    {
        const std::size_t start = text.size();
        clock.appendTo(text, seconds, m_separator);
        setDecimalSign(text, start);
    }

    /// The value as the data table shows it; `number` was decoded from `data`.
    void append(std::string& text, const ProfileParameter& parameter, const MessageData& data,
                double number) const
    {
        if (parameter.rule == DecodingRule::Float && std::isfinite(number)) {
            append(text, m_profile.convertUnit(parameter, number), parameter.precision);
            return;
        }
        if (parameter.rule == DecodingRule::Integer &&
            parameter.dataType != static_cast<int>(DataType::ULong)) {
            appendFixed(text, number, 0);
            return;
        }
        QString other = textOf(m_profile, parameter, data, number);
        if (m_hasComma && parameter.rule == DecodingRule::Integer)
            other.replace(QLatin1Char('.'), QLatin1Char(','));
        text += csvField(other, QLatin1Char(m_separator)).toStdString();
    }

private:
    void setDecimalSign(std::string& text, std::size_t start) const
    {
        if (m_hasComma)
            std::replace(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), '.', ',');
    }

    const Profile& m_profile;
    char m_separator;
    bool m_hasComma;
};

/// The cells of one row after another, in ascending time. Parameters of one message share a walk
/// over its samples, and a cell is decoded only when its sample changes.
class HeldCells
{
public:
    HeldCells(const DataSet& dataSet, const std::vector<const ProfileParameter*>& parameters,
              const CellFormat& format)
        : m_format(format)
    {
        std::map<int, std::size_t> messageOfId;
        for (const ProfileParameter* parameter : parameters) {
            const auto [place, isNew] = messageOfId.emplace(parameter->id, m_messages.size());
            if (isNew)
                m_messages.push_back({SampleWalker(seriesOf(dataSet.messages, *parameter)), {}});
            m_messages[place->second].columns.push_back(m_columns.size());
            // Text of a scaled ULONG is exact beyond the precision of its number.
            const bool isTextOfNumber =
                parameter->rule == DecodingRule::BitField || parameter->rule == DecodingRule::Float;
            m_columns.push_back(
                {parameter, std::string(1, format.separator()), {}, isTextOfNumber, 0});
            setHead(m_columns.back());
        }
        for (const auto& [id, place] : messageOfId) {
            const auto held = dataSet.before.find(static_cast<std::uint32_t>(id));
            if (held != dataSet.before.end())
                decode(m_messages[place], held->second.data);
        }
    }

    void appendTo(std::string& line, double seconds)
    {
        for (Message& message : m_messages) {
            const StoredSample* const before = message.walker.sample();
            if (message.walker.advanceTo(seconds) &&
                (before == nullptr || before->data != message.walker.sample()->data))
                decode(message, message.walker.sample()->data);
        }
        appendTexts(line);
    }

private:
    static constexpr std::size_t headBytes = 16;

    struct Message
    {
        SampleWalker walker;
        std::vector<std::size_t> columns;
    };

    struct Column
    {
        const ProfileParameter* parameter;
        std::string text;                   ///< the separator, then the cell
        std::array<char, headBytes> head{}; ///< a copy of the text's first bytes, of fixed size
        bool isTextOfNumber;                ///< equal numbers have equal texts
        std::uint64_t bits;                 ///< bit pattern of the number in `text`
    };

    void decode(const Message& message, const MessageData& data)
    {
        for (const std::size_t index : message.columns) {
            Column& column = m_columns[index];
            const double number = decodeNumber(data, *column.parameter);
            const auto bits = std::bit_cast<std::uint64_t>(number); // 0 and -0 differ
            if (column.isTextOfNumber && bits == column.bits && column.text.size() > 1)
                continue;
            column.bits = bits;
            column.text.resize(1);
            m_format.append(column.text, *column.parameter, data, number);
            setHead(column);
        }
    }

    static void setHead(Column& column)
    {
        std::copy_n(column.text.data(), std::min(column.text.size(), headBytes),
                    column.head.data());
    }

    /// Copies 16 bytes per cell and advances by the cell's length: nearly all texts are short, and
    /// copies of fixed size are much faster than appending each.
    void appendTexts(std::string& line) const
    {
        const std::size_t start = line.size();
        std::size_t most = headBytes;
        for (const Column& column : m_columns)
            most += column.text.size();
        line.resize(start + most);
        char* next = line.data() + start;
        for (const Column& column : m_columns) {
            std::copy_n(column.head.data(), headBytes, next);
            if (column.text.size() > headBytes)
                std::copy(column.text.begin() + headBytes, column.text.end(), next + headBytes);
            next += column.text.size();
        }
        line.resize(static_cast<std::size_t>(next - line.data()));
    }

    const CellFormat& m_format;
    std::vector<Column> m_columns;
    std::vector<Message> m_messages;
};

bool writeAll(QIODevice& device, const std::string& text)
{
    // A full disk accepts a part; the error is only set by writing the rest.
    const auto size = static_cast<qint64>(text.size());
    for (qint64 done = 0; done < size;) {
        const qint64 taken = device.write(text.data() + done, size - done);
        if (taken <= 0)
            return false;
        done += taken;
    }
    return true;
}

/// Cannot overflow: sampleSpan() leaves out damaged times.
qint64 rowsOf(const SampleSpan& span, int resolution)
{
    return static_cast<qint64>(span.seconds() * 1000.0 / resolution + SampleWalker::tolerance) + 1;
}

} // namespace

CsvWriter::CsvWriter(const Profile& profile, const DataSet& dataSet, const CsvOptions& options)
    : CsvWriter(profile, dataSet, options, sampleSpan(dataSet))
{
}

CsvWriter::CsvWriter(const Profile& profile, const DataSet& dataSet, const CsvOptions& options,
                     const std::optional<SampleSpan>& span)
    : m_profile(profile)
    , m_dataSet(dataSet)
    , m_options(options)
    , m_span(span.value_or(SampleSpan()))
    , m_rowCount(span ? rowsOf(*span, options.resolution) : 0)
{
    for (const ProfileParameter& parameter : profile.parameters()) {
        if (options.allParameters || parameter.selected)
            m_parameters.push_back(&parameter);
    }
}

double CsvWriter::secondsOf(qint64 row) const
{
    return m_span.first + static_cast<double>(row * m_options.resolution) / 1000.0;
}

std::string CsvWriter::header() const
{
    QStringList titles{QStringLiteral("Date"), QStringLiteral("Time"), QStringLiteral("Seconds")};
    for (const ProfileParameter* parameter : m_parameters) {
        const QString& unit = m_profile.unitLabel(*parameter);
        titles << (unit.isEmpty() ? parameter->fullName
                                  : QStringLiteral("%1 [%2]").arg(parameter->fullName, unit));
    }
    return byteOrderMark + csvLine(titles, QLatin1Char(m_options.separator)).toStdString();
}

double CsvWriter::estimatedBytes() const
{
    constexpr std::size_t probes = 16;
    constexpr double prefixBytes = 36.0; // date, clock, seconds, line end
    const CellFormat format(m_profile, m_options);
    const double span = m_span.seconds();
    double rowBytes = prefixBytes;
    for (const ProfileParameter* parameter : m_parameters) {
        rowBytes += 1.0; // the separator
        const MessageSeries& series = seriesOf(m_dataSet.messages, *parameter);
        if (series.empty())
            continue;
        std::string text;
        for (std::size_t i = 0; i < probes; ++i) {
            const MessageData& data = series[series.size() * i / probes].data;
            format.append(text, *parameter, data, decodeNumber(data, *parameter));
        }
        const bool isHeld = span <= 0.0 || m_dataSet.before.contains(series[0].id);
        const double held = isHeld ? 1.0 : (m_span.last - series[0].seconds()) / span;
        rowBytes += static_cast<double>(text.size()) / probes * std::clamp(held, 0.0, 1.0);
    }
    return static_cast<double>(header().size()) + static_cast<double>(m_rowCount) * rowBytes;
}

ExportStatus CsvWriter::write(QIODevice& device, const ExportProgress& progress) const
{
    if (m_rowCount == 0 || m_rowCount > maxRows || problemOf(m_options) != CsvProblem::None)
        return ExportStatus::Failed;
    const CellFormat format(m_profile, m_options);
    const ExportClock clock(m_dataSet.dateTime);
    HeldCells cells(m_dataSet, m_parameters, format);
    ExportMeter meter(progress, static_cast<std::size_t>(m_rowCount));
    std::string block = header();
    for (qint64 row = 0; row < m_rowCount; ++row) {
        const double seconds = secondsOf(row);
        format.append(block, clock, seconds);
        block += m_options.separator;
        format.append(block, seconds, secondsDecimals);
        cells.appendTo(block, seconds);
        block += "\r\n";
        if (block.size() >= blockBytes) {
            if (!writeAll(device, block))
                return ExportStatus::Failed;
            block.clear();
        }
        if (!meter.step())
            return ExportStatus::Cancelled;
    }
    return finishExport(device, writeAll(device, block));
}

} // namespace KOLT
