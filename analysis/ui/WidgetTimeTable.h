#pragma once

#include <QMap>
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

    /// The widths that the user has chosen, by the first line of the heading.
    const QMap<QString, int>& chosenWidths() const { return m_chosenWidths; }

    /// To be followed by fitColumns(), unless there are no columns yet.
    void setChosenWidths(const QMap<QString, int>& widths) { m_chosenWidths = widths; }

    /// A shade of the ground on which the texts of a cell can be read; those of values that are
    /// older than their row are dimmed.
    static QColor tint(const QColor& color, bool isDimmed);

signals:
    /// The user has chosen a column's width.
    void signalWidth();
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
    QString nameOf(int column) const;
    void noteWidth(int column, int width);
    void fitRows();
    void placeFrozenColumn();
    void updateRow(int row);
    void bringInSight(int row);

    QMap<QString, int> m_chosenWidths;
    bool m_isFitting = false; ///< widths are changed by program
    TimeTableDelegate* m_delegate;
    QTableView* m_frozen; ///< a second view of the first column, on top of the table
};

} // namespace KOLT
