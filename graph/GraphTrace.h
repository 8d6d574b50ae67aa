#pragma once

#include "graph/RangePyramid.h"
#include "graph/SampleTimes.h"

#include <QColor>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace KOLT {

/// The samples of one pixel column of a trace.
struct GraphColumn
{
    int fill = 2;       ///< 2 after one sample, 3 after two, 4 after three or more
    double time = 0.0;  ///< of the first sample, in seconds
    double first = 0.0; ///< value of the first sample
    double low = 0.0;   ///< lowest of the first, third and later values
    double high = 0.0;  ///< highest of the second and later values
    double last = 0.0;  ///< value of the last sample from the third on, otherwise the first
    int mark = 1;       ///< 0 when a sample after a gap is among them
    // What is drawn: low and high leave a downward spike in second place out.
    double lowest = 0.0;
    double highest = 0.0;
    double end = 0.0; ///< value of the last sample

    bool operator==(const GraphColumn&) const = default;
};

/// Adds a sample to the last column, or begins another when it lies more than `pixelSeconds` behind
/// the start of the last one. This rule defines what columns are; rebuilding long traces gives the
/// same columns without looking at every sample.
void mergeSample(std::vector<GraphColumn>& columns, double pixelSeconds, double time, double value,
                 int mark);

/// What lies between two moments.
struct RangeStatistic
{
    double minimum = 0.0;
    double maximum = 0.0;
    double mean = 0.0; ///< of the samples
};

/// A value as traces hold it: what is infinite has no place on a scale, and counts as no number.
inline double plottable(double value)
{
    return value + value * 0.0; // 0 times infinity is none
}

/// One parameter's samples over time, and the columns of the visible part.
///
/// Times are seconds on the unit's counter. They should ascend; where they do not, everything still
/// works, at the cost of a walk over the samples. NaN values take no part in ranges.
class GraphTrace
{
public:
    QString name = QStringLiteral("NoName");
    QString unit = QStringLiteral("-");
    QColor color = Qt::white;
    bool isVisible = true;
    int decimals = 2;    ///< of the trace's labels
    double lower = -0.5; ///< value range of its band
    double upper = 1.5;
    double bandOffset = 0.0; ///< pixels from the bottom of the widget
    double bandHeight = 0.0; ///< pixels

    GraphTrace() = default;
    GraphTrace(GraphTrace&&) = default; ///< copies would append to one list of times
    GraphTrace& operator=(GraphTrace&&) = default;

    /// Red, green, blue and their dark mixtures, again from the start after six.
    static QColor defaultColor(int index);

    /// Takes samples, one value for each of the times, which traces of one message share.
    void setSamples(std::shared_ptr<SampleTimes> times, SampleValues values);

    /// Takes the samples of another trace, which is empty then.
    void takeSamples(GraphTrace& other);

    const std::shared_ptr<SampleTimes>& times() const { return m_times; }

    void reserve(std::size_t samples);
    /// A mark of 0 says that samples are missing before this one. Only for a trace whose times are
    /// its own.
    void append(double time, double value, int mark);
    /// Drops samples and columns.
    void clear();

    std::size_t size() const { return m_values.size(); }

    bool isEmpty() const { return m_values.empty(); }

    double firstTime() const { return m_times->at(0); }

    double lastTime() const { return m_times->at(size() - 1); }

    /// Rebuilds the columns of the window [start, end]: from the sample before it to the first one
    /// at or behind its end. O(columns * log samples).
    void rebuild(double start, double end, double pixelSeconds);

    const std::vector<GraphColumn>& columns() const { return m_columns; }

    /// Sample and hold: the value of the last sample before `time`, of the first one at its very
    /// time. None outside of the samples.
    std::optional<double> valueAt(double time) const;

    /// Lowest and highest value of what is drawn within the window; none without a number among
    /// them.
    std::optional<std::pair<double, double>> visibleRange() const;

    /// Of the samples within [from, to]; none when there is no number among them.
    /// O(log samples + samples / 4096) after the first call.
    std::optional<RangeStatistic> statistic(double from, double to) const;

private:
    void addColumn(const SampleTimes::Run& run, std::size_t to);

    std::shared_ptr<SampleTimes> m_times = std::make_shared<SampleTimes>();
    SampleValues m_values;
    mutable RangePyramid m_pyramid;
    std::vector<GraphColumn> m_columns;
    double m_start = 0.0; ///< of the window that the columns are of
    double m_end = 0.0;
};

} // namespace KOLT
