#include "library/ui/LedgerView.h"

#include <QImage>
#include <QPainter>

namespace KOLT {

namespace {

constexpr double margin = 6.0;
constexpr int monthLines = 9; ///< height of the months, in lines of text
constexpr int leastColumns = 40;

void paintBoth(QPainter& painter, const QRectF& area, const LedgerChart& chart,
               const ChartColors& colors)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF inner = area.adjusted(margin, margin, -margin, -margin);
    const double bands =
        chart.bands.empty() ? 0.0 : bandsHeight(chart, painter.fontMetrics().height());
    const double months = inner.height() - bands - (bands > 0.0 ? margin : 0.0);
    paintMonths(painter, {inner.left(), inner.top(), inner.width(), months}, chart, colors);
    if (bands > 0.0)
        paintBands(painter, {inner.left(), inner.bottom() - bands, inner.width(), bands}, chart,
                   colors);
}

double heightOf(const LedgerChart& chart, double line)
{
    return monthLines * line + bandsHeight(chart, line) + 3.0 * margin;
}

} // namespace

LedgerView::LedgerView(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("ledgerView"));
    setAccessibleName(tr("Months and limit bands"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void LedgerView::setChart(LedgerChart chart)
{
    m_chart = std::move(chart);
    updateGeometry();
    update();
}

QSize LedgerView::minimumSizeHint() const
{
    const QFontMetricsF metrics(font());
    return {static_cast<int>(leastColumns * metrics.averageCharWidth()),
            static_cast<int>(heightOf(m_chart, metrics.height()))};
}

QSize LedgerView::sizeHint() const
{
    return minimumSizeHint() * 1.3;
}

QImage LedgerView::picture(const LedgerChart& chart, int width, double scale, const QFont& font)
{
    const double height = heightOf(chart, QFontMetricsF(font).height());
    QImage image((QSizeF(width, height) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    paintBoth(painter, {0.0, 0.0, static_cast<double>(width), height}, chart,
              ChartColors::ofPaper());
    return image;
}

void LedgerView::paintEvent(QPaintEvent* /*event*/)
{
    if (m_chart.isEmpty())
        return;
    QPainter painter(this);
    paintBoth(painter, rect(), m_chart, ChartColors::ofWindow());
}

} // namespace KOLT
