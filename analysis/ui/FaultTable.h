#pragma once

#include "analysis/FaultListModel.h"

#include <QTableView>

namespace KOLT {

class ColumnMemory;

/// The list of the times in which faults were set. Highlights the last one at or before the current
/// time, unless the user has selected several rows.
class FaultTable : public QTableView
{
    Q_OBJECT

public:
    explicit FaultTable(QWidget* parent = nullptr);

    void setSettings(const ListSettings& settings) { m_settings = settings; }

    /// The faults and the data set must stay valid until the next call.
    void setFaults(const std::vector<const FaultHistory*>& faults, const DataSet* dataSet);
    void showTime(double seconds);
    /// Highlights an occurrence, if it is listed.
    void showOccurrence(const FaultEntry& occurrence);
    /// Sizes rows and columns by the font.
    void fit();

signals:
    /// The user picked a row.
    void signalTime(double seconds);
    void signalShowInGraph(const KOLT::GraphTarget& target);

private:
    void createMenu();
    void highlight(int row);
    void slotCurrentRow(const QModelIndex& current);
    void report(int row);
    void showInGraph();
    void copy() const;
    void save();

    FaultListModel m_model;
    ColumnMemory* m_widths = nullptr;
    const DataSet* m_dataSet = nullptr;
    ListSettings m_settings;
    bool m_isFollowing = false; ///< the program is changing the current row
};

} // namespace KOLT
