#pragma once

#include "library/ledger/EngineLedger.h"

#include <QColor>
#include <QRectF>
#include <QStringList>

#include <vector>

class QPainter;

namespace KOLT {

/// What is drawn of an engine's ledger: bars of the hours of each month, with its flights, and for
/// each quantity how long it was in its limit bands.
struct LedgerChart
{
    static constexpr int mostMonths = 24;
    static constexpr int mostBands = 12;

    struct Month
    {
        QDate month;
        double hours = 0.0;
        int flights = 0;
    };

    std::vector<Month> months; ///< without holes, at most mostMonths, up to the last one
    std::vector<Library::LedgerBand> bands; ///< at most mostBands, the worst first

    bool isEmpty() const { return months.empty() && bands.empty(); }
};

LedgerChart ledgerChart(const Library::EngineLedger& ledger);

/// Round numbers from 0 to at least `largest`, for an axis: 0, 2, 4, 6.
std::vector<double> axisTicks(double largest);

/// Widths of the parts of a bar in whole pixels. What is not 0 is at least two pixels wide, at the
/// cost of the widest part.
std::array<int, 3> barWidths(const std::array<double, 3>& seconds, int width);

struct ChartColors
{
    QColor text;
    QColor line;
    QColor bar;
    std::array<QColor, 3> bands; ///< by ThresholdState

    static ChartColors ofWindow();
    static ChartColors ofPaper();
};

/// In the painter's font.
void paintMonths(QPainter& painter, const QRectF& area, const LedgerChart& chart,
                 const ChartColors& colors);
void paintBands(QPainter& painter, const QRectF& area, const LedgerChart& chart,
                const ChartColors& colors);

/// How high the bands are in this font.
double bandsHeight(const LedgerChart& chart, double lineHeight);

} // namespace KOLT
