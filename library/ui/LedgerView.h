#pragma once

#include "library/ui/LedgerChart.h"

#include <QWidget>

namespace KOLT {

/// The pictures of a ledger one above the other.
class LedgerView : public QWidget
{
    Q_OBJECT

public:
    explicit LedgerView(QWidget* parent = nullptr);

    void setChart(LedgerChart chart);

    const LedgerChart& chart() const { return m_chart; }

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

    /// As on paper, with that width; for the clipboard and for documents.
    static QImage picture(const LedgerChart& chart, int width, double scale, const QFont& font);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    LedgerChart m_chart;
};

} // namespace KOLT
