#pragma once

#include "analysis/OverviewTable.h"
#include "ui/StateMark.h"

#include <QTreeWidget>
#include <QWidget>

#include <map>

class QLabel;
class QProgressBar;
class QPushButton;

namespace KOLT {

class ColumnMemory;

/// The mark of a cycle or flight with this worst exceedance.
StateMark markOf(const std::optional<Exceedance>& worst);

/// The cycles of the open folder with the figures of each day, in front of the other pages until
/// something is chosen. It shows an overview that is worked out elsewhere, row by row.
class OverviewPage : public QWidget
{
    Q_OBJECT

public:
    explicit OverviewPage(const Profile& profile, QWidget* parent = nullptr);

    /// Shows all rows as far as they are known. The overview must stay until the next call; null
    /// empties the page.
    void setOverview(const CardOverview* overview);

    /// Shows the rows that were completed since the last call, and how far the work is.
    void showProgress();

    /// Whether rows are being filled; otherwise the work can be taken up again, or is done.
    void setRunning(bool isRunning);

    /// The unit system has changed.
    void refreshUnits();

    /// Gives the rows the focus.
    void focusRows();

signals:
    /// Open the cycle; with flight index -1 all of it.
    void signalOpen(int cycle, int flight);
    void signalCancel();
    void signalContinue();
    /// Import the card into the library.
    void signalImport();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fill();
    void createTree();
    QTreeWidgetItem* addItem(QTreeWidgetItem* parent, const OverviewTable::Row& row);
    void setRow(QTreeWidgetItem& item, const OverviewTable::Row& row);
    void completeCycle(const CycleOverview& cycle);
    void refreshSums();
    void fitColumns();
    void showState();
    void open(const QTreeWidgetItem* item);

    const Profile& m_profile;
    const CardOverview* m_overview = nullptr;
    std::size_t m_shown = 0; ///< complete rows that are shown so
    std::size_t m_shownTrust = 0;
    bool m_isRunning = false;
    std::vector<QTreeWidgetItem*> m_dayItems;
    std::map<int, QTreeWidgetItem*> m_cycleItems; ///< by number
    QTreeWidgetItem* m_totalItem = nullptr;       ///< null for a single day
    QTreeWidget* m_tree = nullptr;
    ColumnMemory* m_widths = nullptr;
    QLabel* m_state = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_button = nullptr; ///< cancels, or goes on
};

} // namespace KOLT
