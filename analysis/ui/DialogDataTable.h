#pragma once

#include "analysis/TimeTableModel.h"
#include "ui/DataPage.h"

#include <QWidget>

class QAction;
class QLabel;

namespace KOLT {

class ContentOrNote;
class WidgetTimeTable;

/// The "Data" page: a table of the selected parameters over time.
///
/// Marks the row of the current time and keeps it visible without changing the user's selection.
/// The user moves the time by picking a row, or by jumping to the next change in a column.
class DialogDataTable : public QWidget, public DataPage
{
    Q_OBJECT

public:
    /// More cells are not copied, as that would block the window.
    static constexpr qint64 maxCopiedCells = 200'000;

    explicit DialogDataTable(const Profile& profile, QWidget* parent = nullptr);

    /// Whether the clock time stands beside the counter.
    void setClockShown(bool isShown);

signals:
    /// The user picked a row. The time of its latest sample, so that the row is shown complete.
    void signalTime(double seconds);
    /// The user wants the clock time, or not any more.
    void signalClockShown(bool isShown);

protected:
    void dropData() override;
    void showData(Changes changes) override;
    void showTime() override;

private:
    QAction* createAction(const QString& text, const QString& icon, const QKeySequence& shortcut,
                          const QString& tip);
    void createView();
    void copySelection();
    void jumpToChange(TimeTableModel::Direction direction);
    void pick(int row);
    void slotCurrentRow(const QModelIndex& current, const QModelIndex& previous);
    void showRowCount();

    const Profile& m_profile;
    TimeTableModel m_model;
    WidgetTimeTable* m_view = nullptr;
    QLabel* m_hint = nullptr;
    ContentOrNote* m_shown = nullptr;
    QAction* m_copy = nullptr;
    QAction* m_clock = nullptr;
    QAction* m_nextChange = nullptr;
    QAction* m_previousChange = nullptr;
    bool m_isFollowing = false; ///< the program is changing the current row
};

} // namespace KOLT
