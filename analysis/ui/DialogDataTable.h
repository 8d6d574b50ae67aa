#pragma once

#include "analysis/TimeTableModel.h"
#include "ui/DataPage.h"

#include <QWidget>

class QAction;
class QLabel;

namespace KOLT {

class ContentOrNote;
class WidgetTimeTable;

/// The page with the time table of the chosen parameters.
///
/// Marks the row of the current time and keeps it in sight without touching the user's selection.
/// The user moves the time by picking a row, or by jumping to the next change of a column.
class DialogDataTable : public QWidget, public DataPage
{
    Q_OBJECT

public:
    /// Beyond this many cells nothing is copied, as the window would stand still.
    static constexpr qint64 maxCopiedCells = 200'000;

    explicit DialogDataTable(const Profile& profile, QWidget* parent = nullptr);

signals:
    /// The user picked a row; the moment at which all of it is known, in seconds on the scale of
    /// the data set.
    void signalTime(double seconds);

protected:
    void dropData() override;
    void showData() override;
    void showTime() override;

private:
    QAction* createAction(const QString& text, const QString& icon, const QKeySequence& shortcut,
                          const QString& tip);
    void createView();
    void copySelection();
    void jumpToChange(bool forward);
    void pick(int row);
    void slotCurrentRow(const QModelIndex& current, const QModelIndex& previous);
    void showRowCount();

    const Profile& m_profile;
    TimeTableModel m_model;
    WidgetTimeTable* m_view = nullptr;
    QLabel* m_hint = nullptr;
    ContentOrNote* m_shown = nullptr;
    QAction* m_copy = nullptr;
    QAction* m_nextChange = nullptr;
    QAction* m_previousChange = nullptr;
    bool m_isFollowing = false; ///< the current row is moved by the program
};

} // namespace KOLT
