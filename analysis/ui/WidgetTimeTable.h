#pragma once

#include <QTableView>

namespace KOLT {

class TimeTableDelegate;

/// A table whose first column does not scroll sideways, with a line across the row of the current
/// time.
class WidgetTimeTable : public QTableView
{
    Q_OBJECT

public:
    explicit WidgetTimeTable(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    /// Sets the row of the current time, -1 for none. Makes it the current row without selecting
    /// it, and scrolls it to the middle if it is not visible.
    void setTimeRow(int row);

    /// Fits every column to its heading and to a sample of its values; O(columns).
    void fitColumns();

signals:
    /// The copy key was pressed.
    void signalCopy();
    /// The current row was clicked again, or any row was double-clicked or confirmed with Return.
    void signalPicked(int row);

protected:
    int sizeHintForColumn(int column) const override;
    void resizeEvent(QResizeEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void createFrozenColumn();
    void fitRows();
    void placeFrozenColumn();
    void updateRow(int row);
    void bringInSight(int row);

    TimeTableDelegate* m_delegate;
    QTableView* m_frozen; ///< a second view of the first column, on top of the table
};

} // namespace KOLT
