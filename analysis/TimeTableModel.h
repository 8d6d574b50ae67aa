#pragma once

#include "analysis/TimeTable.h"

#include <QAbstractTableModel>

namespace KOLT {

/// The data table as an item model: the clock time, then one column for each chosen parameter.
///
/// Values are decoded when a view asks for them, so that millions of rows cost no more than those
/// in sight. A value that an earlier row brought is dimmed. Graded values carry the colour of their
/// threshold as decoration, and beyond a limit a tint of it as background.
class TimeTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int timeColumn = 0;

    explicit TimeTableModel(const Profile& profile, QObject* parent = nullptr);

    /// Data set and parameters must outlive the model's use of them: until the next call.
    void setTable(const DataSet& dataSet, std::vector<const ProfileParameter*> parameters);
    void clear();

    const TimeTable& table() const { return m_table; }

    /// The moment that is looked at. Its row shows what was known then, and not what came later
    /// within its tenth; whoever shows the model repaints the row. Returns the row, -1 without any.
    int setMoment(double seconds);

    /// All rows are shown as a whole.
    void clearMoment() { m_momentRow = -1; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /// The next (or previous) row in which the column's value changes; -1 when there is none, and
    /// for the column of times.
    int changedRow(const QModelIndex& from, bool forward) const;

private:
    QVariant value(std::size_t row, std::size_t column, int role) const;

    const Profile& m_profile;
    TimeTable m_table;
    double m_moment = 0.0;
    int m_momentRow = -1;
};

} // namespace KOLT
