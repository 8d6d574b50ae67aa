#pragma once

#include <QTableView>

namespace KOLT {

class TimeTableDelegate;

/// A table whose first column stays in sight when it is scrolled sideways, with a line across the
/// row of the current time.
class WidgetTimeTable : public QTableView
{
    Q_OBJECT

public:
    explicit WidgetTimeTable(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    /// Row of the current time, -1 for none. Makes it the current row, without selecting it, and
    /// brings it to the middle when it is out of sight.
    void setTimeRow(int row);

    /// Makes every column as wide as its heading and its values need; O(columns).
    void fitColumns();

signals:
    /// The copy key was pressed in the table.
    void signalCopy();
    /// The row that is current already was clicked, or any was double-clicked or confirmed with
    /// Return.
    void signalPicked(int row);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    int sizeHintForColumn(int column) const override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void createFrozenColumn();
    void fitRows();
    void placeFrozenColumn();
    void updateRow(int row);
    void bringInSight(int row);

    TimeTableDelegate* m_delegate;
    QTableView* m_frozen;  ///< the first column once more, over the table's own
    int m_pressedRow = -1; ///< the row that was current when the mouse went down
};

} // namespace KOLT
