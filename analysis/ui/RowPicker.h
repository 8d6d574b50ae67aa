#pragma once

#include <QObject>

class QAbstractItemView;

namespace KOLT {

/// What users do to a table of moments, beyond making another row the current one.
class RowPicker : public QObject
{
    Q_OBJECT

public:
    /// Watches the view, which owns the picker.
    explicit RowPicker(QAbstractItemView* view);

signals:
    /// The current row was clicked again, or any row was double-clicked or confirmed with Return.
    void signalPicked(int row);
    /// The copy key was pressed. The main window uses this key for another command.
    void signalCopy();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractItemView& m_view;
    int m_pressedRow = -1; ///< the row that was current when the mouse went down
};

} // namespace KOLT
