#include "export/CsvWriter.h"

#include "base/Csv.h"
#include "export/CsvCells.h"
#include "export/ExportFile.h"
#include "profile/ValueDecoder.h"

#include <algorithm>

namespace KOLT {

namespace {

constexpr std::size_t blockBytes = 1U << 20;
constexpr auto byteOrderMark = "\xEF\xBB\xBF";
constexpr int secondsDecimals = 3;

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
    const CsvFormat format(m_profile, m_options);
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
    const CsvFormat format(m_profile, m_options);
    const ExportClock clock(m_dataSet.dateTime);
    CsvCells cells(m_dataSet, m_parameters, format);
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
