#pragma once

#include "analysis/TimeTable.h"

#include <vector>

class QGridLayout;
class QLabel;
class QWidget;

namespace KOLT {

class Profile;

/// The floating panel with the values of the chosen parameters, which are those that the data table
/// shows for the same time.
class MapValuePanel
{
public:
    /// The panel becomes a child of `parent`, hidden until there are rows. `profile` must outlive
    /// this.
    MapValuePanel(const Profile& profile, QWidget* parent);

    QWidget& widget() const { return *m_panel; }

    /// The height that all rows need.
    int fullHeight() const;

    /// Makes a row for each selected parameter. The data set must stay valid until the next call or
    /// dropData(); null for none.
    void setData(const DataSet* dataSet);

    /// The rows stay as they are.
    void dropData() { m_table = {}; }

    void showTime(double seconds);

private:
    struct Row
    {
        const ProfileParameter* parameter = nullptr;
        QLabel* name = nullptr;
        QLabel* value = nullptr;
    };

    void addRow(const ProfileParameter& parameter);
    void showValue(const Row& row, const StoredSample* sample);

    const Profile& m_profile;
    QWidget* m_panel;
    QGridLayout* m_grid;
    std::vector<Row> m_rows;
    TimeTable m_table;
};

} // namespace KOLT
