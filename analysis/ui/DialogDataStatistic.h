#pragma once

#include "record/Flight.h"
#include "ui/DataPage.h"

#include <QWidget>

class QLabel;
class QTextEdit;

namespace KOLT {

/// The "Tow Statistic" page: the figures of the loaded flight, in metric units. Ignores the time.
class DialogDataStatistic : public QWidget, public DataPage
{
    Q_OBJECT

public:
    explicit DialogDataStatistic(QWidget* parent = nullptr);

    /// The figures as a rich-text table.
    static QString textOf(const Flight& flight);

protected:
    void dropData() override {}

    void showData(Changes changes) override;

    void showTime() override {}

private:
    QTextEdit* m_text;
    QLabel* m_hint = nullptr; ///< how flight time is counted; shown with a flight only
};

} // namespace KOLT
