#include "library/ui/LedgerChart.h"

#include "record/ClockTime.h"
#include "ui/LookColors.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace KOLT {

using namespace Library;

namespace {

constexpr double secondsPerHour = 3600.0;
constexpr double gap = 6.0;
constexpr int leastPart = 2;
constexpr double barPart = 0.7;   ///< of a month's width
constexpr double mostLines = 4.0; ///< of a bar's width, in lines of text

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::LedgerChart)
};

ChartColors colorsWith(const QColor& text, const QColor& line, const QColor& bar)
{
    // Those of the states are the same in both looks.
    return {text, line, bar, {QColor(0x00c853), QColor(0xffab00), QColor(0xff1744)}};
}

/// Where the bars are: the axis' labels stand left of it, the months' below it.
QRectF plotOf(const QPainter& painter, const QRectF& area)
{
    const QFontMetricsF metrics = painter.fontMetrics();
    const double left = metrics.horizontalAdvance(QStringLiteral("0000")) + gap;
    return area.adjusted(left, 2.2 * metrics.height(), -gap, -1.4 * metrics.height());
}

void paintAxis(QPainter& painter, const QRectF& plot, const std::vector<double>& ticks,
               const ChartColors& colors)
{
    const double height = painter.fontMetrics().height();
    for (const double tick : ticks) {
        const double y = plot.bottom() - plot.height() * tick / ticks.back();
        painter.setPen(colors.line);
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(colors.text);
        painter.drawText(QRectF(0.0, y - height, plot.left() - gap, 2.0 * height),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(tick));
    }
}

} // namespace

LedgerChart ledgerChart(const EngineLedger& ledger)
{
    LedgerChart chart;
    chart.bands = ledgerBands(ledger.engine);
    if (chart.bands.size() > LedgerChart::mostBands)
        chart.bands.resize(LedgerChart::mostBands);
    QDate first;
    QDate last;
    for (const MonthRow& row : ledger.months) {
        if (!row.month.isValid())
            continue;
        first = first.isValid() ? std::min(first, row.month) : row.month;
        last = last.isValid() ? std::max(last, row.month) : row.month;
    }
    if (!first.isValid())
        return chart;
    first = std::max(first, last.addMonths(1 - LedgerChart::mostMonths));
    for (QDate month = first; month <= last; month = month.addMonths(1)) {
        const auto row = std::ranges::find(ledger.months, month, &MonthRow::month);
        chart.months.push_back({month, 0.0, 0});
        if (row != ledger.months.end())
            chart.months.back() = {month, row->sums.runSeconds / secondsPerHour, row->sums.flights};
    }
    return chart;
}

std::vector<double> axisTicks(double largest)
{
    constexpr int most = 5;
    const double wanted = std::max(largest, 1e-3) / most;
    const double power = std::pow(10.0, std::floor(std::log10(wanted)));
    double step = 10.0 * power;
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= wanted) {
            step = factor * power;
            break;
        }
    }
    std::vector<double> ticks;
    for (int i = 0; ticks.empty() || ticks.back() < largest; ++i)
        ticks.push_back(step * i);
    if (ticks.size() == 1)
        ticks.push_back(step);
    return ticks;
}

std::array<int, 3> barWidths(const std::array<double, 3>& seconds, int width)
{
    std::array<int, 3> widths{};
    const double total = seconds[0] + seconds[1] + seconds[2];
    if (!(total > 0.0) || width < 3 * leastPart)
        return widths;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        widths[i] = static_cast<int>(std::lround(seconds[i] / total * width));
        if (seconds[i] > 0.0)
            widths[i] = std::max(widths[i], leastPart);
    }
    *std::ranges::max_element(widths) += width - std::accumulate(widths.begin(), widths.end(), 0);
    return widths;
}

ChartColors ChartColors::ofWindow()
{
    return colorsWith(lookColor(Tone::Text), lookColor(Tone::Line), lookColor(Tone::Accent));
}

ChartColors ChartColors::ofPaper()
{
    return colorsWith(Qt::black, QColor(0xc0c0c0), QColor(0x2f6fb0));
}

void paintMonths(QPainter& painter, const QRectF& area, const LedgerChart& chart,
                 const ChartColors& colors)
{
    const QFontMetricsF metrics = painter.fontMetrics();
    painter.setPen(colors.text);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignTop,
                     Text::tr("Hours of each month, and its flights"));
    const QRectF plot = plotOf(painter, area);
    if (chart.months.empty() || plot.width() < 1.0 || plot.height() < 1.0)
        return;
    double largest = 0.0;
    for (const LedgerChart::Month& month : chart.months)
        largest = std::max(largest, month.hours);
    const std::vector<double> ticks = axisTicks(largest);
    paintAxis(painter, plot, ticks, colors);
    const double width = plot.width() / static_cast<double>(chart.months.size());
    const double label = metrics.horizontalAdvance(QStringLiteral("00/00")) + gap;
    const int every = std::max(1, static_cast<int>(std::ceil(label / width)));
    double x = plot.left();
    int number = 0;
    for (const LedgerChart::Month& month : chart.months) {
        const double height = plot.height() * month.hours / ticks.back();
        const double bar = std::min(width * barPart, mostLines * metrics.height());
        painter.fillRect(QRectF(x + (width - bar) / 2.0, plot.bottom() - height, bar, height),
                         colors.bar);
        painter.setPen(colors.text);
        const QString flights = QString::number(month.flights);
        if (month.flights > 0 && metrics.horizontalAdvance(flights) < width) {
            painter.drawText(
                QRectF(x, plot.bottom() - height - metrics.height(), width, metrics.height()),
                Qt::AlignCenter, flights);
        }
        if (number++ % every == 0) {
            painter.drawText(
                QRectF(x + width / 2.0 - label, plot.bottom(), 2.0 * label, 1.3 * metrics.height()),
                Qt::AlignCenter, month.month.toString(QStringLiteral("MM/yy")));
        }
        x += width;
    }
}

double bandsHeight(const LedgerChart& chart, double lineHeight)
{
    return lineHeight * (1.6 + 1.3 * static_cast<double>(chart.bands.size()));
}

void paintBands(QPainter& painter, const QRectF& area, const LedgerChart& chart,
                const ChartColors& colors)
{
    const QFontMetricsF metrics = painter.fontMetrics();
    painter.setPen(colors.text);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignTop,
                     Text::tr("Time beyond a warning, beyond a limit"));
    double names = 0.0;
    double times = 0.0;
    for (const LedgerBand& band : chart.bands)
        names = std::max(names, metrics.horizontalAdvance(band.quantity));
    const auto beyond = [](const LedgerBand& band) {
        return QStringLiteral("%1  %2").arg(durationText(band.seconds[1]),
                                            durationText(band.seconds[2]));
    };
    for (const LedgerBand& band : chart.bands)
        times = std::max(times, metrics.horizontalAdvance(beyond(band)));
    names = std::min(names, area.width() / 3.0);
    double y = area.top() + 1.5 * metrics.height();
    for (const LedgerBand& band : chart.bands) {
        const double height = metrics.height();
        painter.setPen(colors.text);
        painter.drawText(QRectF(area.left(), y, names, height), Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(band.quantity, Qt::ElideRight, names));
        painter.drawText(QRectF(area.right() - times, y, times, height),
                         Qt::AlignRight | Qt::AlignVCenter, beyond(band));
        const int width = static_cast<int>(area.width() - names - times - 2.0 * gap);
        double x = area.left() + names + gap;
        const std::array<int, 3> widths = barWidths(band.seconds, width);
        for (std::size_t state = 0; state < widths.size(); ++state) {
            painter.fillRect(QRectF(x, y + 0.15 * height, widths[state], 0.7 * height),
                             colors.bands[state]);
            x += widths[state];
        }
        y += 1.3 * height;
    }
}

} // namespace KOLT
