#pragma once

#include "analysis/FaultFinder.h"
#include "analysis/GraphTarget.h"
#include "analysis/ListSettings.h"

#include <QAbstractTableModel>

namespace KOLT {

/// One time in which a fault was set. Valid as long as the fault matrices that it is from.
struct FaultEntry
{
    const FaultHistory* history = nullptr;
    const FaultInterval* interval = nullptr;

    GraphTarget target() const;
};

QString errorClassText(ErrorType type);

/// The occurrences of faults as an item model, in order of time.
class FaultListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Fault, Begin, Duration, End, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// The faults must stay valid until the next call.
    void setFaults(const std::vector<const FaultHistory*>& faults);

    const FaultEntry& occurrence(int row) const { return m_rows[static_cast<std::size_t>(row)]; }

    /// The row of the last occurrence that began at or before the time, else the first; -1 if there
    /// is none.
    int rowAt(double seconds) const;
    /// The row of an occurrence of one of the faults; -1 if there is none.
    int rowOf(const FaultEntry& occurrence) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /// All rows as CSV, with a line of headings.
    QString csv(const DataSet& dataSet, const ListSettings& settings) const;

private:
    std::vector<FaultEntry> m_rows;
};

} // namespace KOLT
