#pragma once

#include "graph/RangePyramid.h"
#include "graph/SampleMemory.h"
#include "record/MessageSeries.h"

#include <QColor>
#include <QString>

#include <cstdint>
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

    /// Red, green, blue and their dark mixtures, again from the start after six.
    static QColor defaultColor(int index);

    /// Takes samples whose times stand in a series, which must outlive their use here: one value
    /// for each, and the positions of those that come after a gap, ascending.
    void setSamples(const MessageSeries& series, SampleValues values,
                    std::vector<std::uint32_t> gaps, bool isAscending);
    void reserve(std::size_t samples);
    /// A mark of 0 says that samples are missing before this one.
    void append(double time, double value, int mark);
    /// Drops samples and columns.
    void clear();

    std::size_t size() const { return m_values.size(); }

    bool isEmpty() const { return m_values.empty(); }

    double firstTime() const { return timeOf(0); }

    double lastTime() const { return timeOf(size() - 1); }

    /// Rebuilds the columns of the window [start, end]: from the sample before it to the first one
    /// at or behind its end. O(columns * log samples).
    void rebuild(double start, double end, double pixelSeconds);

    const std::vector<GraphColumn>& columns() const { return m_columns; }

    /// Sample and hold: the value of the last sample before `time`, of the first one at its very
    /// time. None outside of the samples.
    std::optional<double> valueAt(double time) const;

    /// Lowest and highest value of what is drawn; none without a number among them.
    std::optional<std::pair<double, double>> visibleRange() const;

    /// Of the samples within [from, to]; none when there is no number among them.
    /// O(log samples + samples / 4096) after the first call.
    std::optional<RangeStatistic> statistic(double from, double to) const;

private:
    double timeOf(std::size_t index) const
    {
        return m_series != nullptr ? (*m_series)[index].seconds() : m_times[index];
    }

    /// The first position for which the predicate is false; it must be true, then false.
    template <typename Predicate>
    std::size_t partitionPoint(Predicate&& predicate) const;
    /// Number of samples before the time; the first position at or after it.
    std::size_t positionAt(double time) const;
    void addColumn(std::size_t from, std::size_t to);
    bool hasGap(std::size_t from, std::size_t to) const;
    std::size_t columnEnd(std::size_t from, std::size_t limit, double pixelSeconds) const;

    const MessageSeries* m_series = nullptr; ///< holds the times, where it is set
    SampleValues m_times;                    ///< otherwise
    SampleValues m_values;
    std::vector<std::uint32_t> m_gaps; ///< positions with a mark of 0, ascending
    bool m_isAscending = true;
    mutable RangePyramid m_pyramid;
    std::vector<GraphColumn> m_columns;
    std::size_t m_step = 1; ///< samples of the column before, the first guess for the next
};

} // namespace KOLT
