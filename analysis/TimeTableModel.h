#pragma once

#include "analysis/TimeTable.h"

#include <QAbstractTableModel>

namespace KOLT {

/// The data table as an item model: a column of times, then one per parameter.
///
/// Values are decoded when a view asks for them, so the cost does not depend on the number of rows.
/// A value carried over from an earlier row is dimmed. A value with a threshold has its colour as
/// decoration, and outside the normal range also a tint of it as background.
class TimeTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int timeColumn = 0;

    /// The text of a cell or heading for a table of tab-separated texts: on one line, and with a
    /// column of its own for the clock time.
    static constexpr int copyRole = Qt::UserRole;

    enum class Direction { Back, Forward };

    explicit TimeTableModel(const Profile& profile, QObject* parent = nullptr);

    /// Data set and parameters must stay valid until the next call or clear().
    void setTable(const DataSet& dataSet, std::vector<const ProfileParameter*> parameters);
    void clear();

    /// The same samples have other texts now, as after a change of the unit system.
    void tellNewTexts();

    /// Whether the column of times has the clock time beside the counter.
    void setClockShown(bool isShown);

    /// Never for a recording without a date.
    bool isClockShown() const { return m_isClockShown && m_start.isValid(); }

    const TimeTable& table() const { return m_table; }

    /// Sets the current moment. Its row shows the values as of the moment, without samples that
    /// follow within the tenth. No signal is sent: the caller repaints the row. Returns the row, or
    /// -1 if there are no rows.
    int setMoment(double seconds);

    /// No row is limited to a moment any more.
    void clearMoment() { m_momentRow = -1; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /// The nearest row in a direction in which the text of the column changes; -1 if there is none,
    /// and for the column of times.
    int changedRow(const QModelIndex& from, Direction direction) const;

private:
    QString timeText(std::size_t row, QLatin1Char separator) const;
    QVariant value(std::size_t row, std::size_t column, int role) const;
    QString heading(const ProfileParameter& parameter) const;

    const Profile& m_profile;
    TimeTable m_table;
    QDateTime m_start; ///< clock time at counter 0
    bool m_isClockShown = false;
    double m_moment = 0.0;
    int m_momentRow = -1;
};

} // namespace KOLT
