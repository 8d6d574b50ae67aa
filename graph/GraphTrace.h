#pragma once

#include "graph/RangePyramid.h"
#include "graph/SampleTimes.h"

#include <QColor>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace KOLT {

enum class ColumnFill : int { OneSample = 2, TwoSamples = 3, MoreSamples = 4 };

/// Summary of a trace's samples in one pixel column.
struct GraphColumn
{
    ColumnFill fill = ColumnFill::OneSample;
    double time = 0.0;  ///< of the first sample, in seconds
    double first = 0.0; ///< value of the first sample
    double low = 0.0;   ///< lowest of the first, third and later values
    double high = 0.0;  ///< highest of the second and later values
    double last = 0.0;  ///< value of the last sample from the third on, otherwise the first
    SampleMark mark = SampleMark::Joined; ///< AfterGap if one of the samples is
    // For drawing: `low` misses a downward spike in the second sample.
    double lowest = 0.0; ///< of all samples; NaN only if no sample is a number
    double highest = 0.0;
    double end = 0.0; ///< value of the last sample

    bool operator==(const GraphColumn&) const = default;
};

/// Adds a sample to the last column, or starts a new one if the sample is more than `pixelSeconds`
/// after the start of the last one. This rule defines the columns; GraphTrace::rebuild() yields the
/// same ones without visiting every sample.
void mergeSample(std::vector<GraphColumn>& columns, double pixelSeconds, double time, double value,
                 SampleMark mark = SampleMark::Joined);

/// Statistic of the samples between two times.
struct RangeStatistic
{
    double minimum = 0.0;
    double maximum = 0.0;
    double mean = 0.0; ///< of the samples, not weighted by time
};

/// A value as traces store it: infinity becomes NaN, as it fits on no scale.
inline double plottable(double value)
{
    return value + value * 0.0; // infinity * 0 is NaN
}

/// Maps values to heights in pixels from the bottom of the widget.
struct GraphScale
{
    double lower = -0.5; ///< value at the lower end
    double upper = 1.5;
    double offset = 0.0; ///< height of the lower end
    double height = 0.0;

    double yOf(double value) const { return offset + (value - lower) * height / (upper - lower); }

    double valueAt(double y) const
    {
        return height > 0.0 ? lower + (y - offset) * (upper - lower) / height : lower;
    }
};

/// One parameter's samples over time, and the pixel columns of the visible window.
///
/// Times are seconds on the unit's counter. Times that do not ascend are supported, but rebuild()
/// and valueAt() are then O(samples) and there is no statistic. NaN is ignored in ranges.
class GraphTrace
{
public:
    QString name = QStringLiteral("NoName");
    QString unit = QStringLiteral("-");
    QColor color = Qt::white;
    int style = 0; ///< counts through the colours, then through patterns of dashes
    bool isVisible = true;
    int decimals = 2; ///< in texts
    GraphScale scale; ///< of the trace's band

    GraphTrace() = default;
    /// Not copyable: copies would append to the same list of times.
    GraphTrace(GraphTrace&&) = default;
    GraphTrace& operator=(GraphTrace&&) = default;

    static constexpr int colorCount = 6;
    /// The colour of a new trace; repeats after six.
    static QColor defaultColor(int index);
    /// Sets the number of the style and its colour.
    void setStyle(int number);

    /// Replaces the samples, one value per time. Traces of one message share the times.
    void setSamples(std::shared_ptr<SampleTimes> times, SampleValues values);

    /// Moves the samples here from another trace, which is then empty.
    void takeSamples(GraphTrace& other);

    const std::shared_ptr<SampleTimes>& times() const { return m_times; }

    void reserve(std::size_t samples);
    /// Only for a trace that does not share its times.
    void append(double time, double value, SampleMark mark = SampleMark::Joined);
    /// Drops samples and columns.
    void clear();

    std::size_t size() const { return m_values.size(); }

    bool isEmpty() const { return m_values.empty(); }

    double firstTime() const { return m_times->at(0); }

    double lastTime() const { return m_times->at(size() - 1); }

    /// Rebuilds the columns of the window [start, end], from the last sample before it to the first
    /// one at or after its end. O(columns * log samples).
    void rebuild(double start, double end, double pixelSeconds);

    const std::vector<GraphColumn>& columns() const { return m_columns; }

    /// Sample and hold: the value of the last sample before `time`, or of the first sample at
    /// exactly its time. None before the first and after the last sample.
    std::optional<double> valueAt(double time) const;

    /// Lowest and highest value drawn within the window; none without a number.
    std::optional<std::pair<double, double>> visibleRange() const;

    /// Lowest and highest value of the samples within the window; of those beside it if only a line
    /// between two of them is in sight.
    std::optional<std::pair<double, double>> extremes() const;

    /// Of the samples within [from, to]; none without a number among them.
    /// O(log samples + samples / 4096) after the first call.
    std::optional<RangeStatistic> statistic(double from, double to) const;

private:
    bool isFirstBeside() const;
    bool isLastBeside() const;
    /// Of the columns [first, last).
    std::optional<std::pair<double, double>> rangeOf(std::size_t first, std::size_t last) const;
    void addColumn(const SampleTimes::Run& run, std::size_t to);

    std::shared_ptr<SampleTimes> m_times = std::make_shared<SampleTimes>();
    SampleValues m_values;
    mutable RangePyramid m_pyramid;
    std::vector<GraphColumn> m_columns;
    double m_start = 0.0; ///< window of the columns
    double m_end = 0.0;
};

} // namespace KOLT
