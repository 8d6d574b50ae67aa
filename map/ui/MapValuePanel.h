#pragma once

#include "analysis/TimeTable.h"

#include <vector>

class QGridLayout;
class QRect;
class QScrollArea;
class QWidget;

namespace KOLT {

class OutlinedLabel;
class Profile;

/// The floating panel with the values of the chosen parameters, which are those that the data table
/// shows for the same time. Where not all rows fit it scrolls; otherwise the mouse reaches the map
/// below.
class MapValuePanel
{
public:
    /// The panel becomes a child of `parent`, hidden until there are rows. `profile` must outlive
    /// this.
    MapValuePanel(const Profile& profile, QWidget* parent);

    QWidget& widget() const { return *m_panel; }

    /// Gives the panel the height that its rows need, at most that of the area. Hides it in an
    /// area where no name or no row could be read, and returns whether that is so.
    bool place(const QRect& area);

    /// A folded panel is hidden.
    void setFolded(bool isFolded);

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
        OutlinedLabel* name = nullptr;
        OutlinedLabel* value = nullptr;
    };

    void createScroll();
    void updateVisibility();
    void addRow(const ProfileParameter& parameter);
    void showValue(const Row& row, const StoredSample* sample);

    const Profile& m_profile;
    QWidget* m_panel;
    QScrollArea* m_scroll;
    QWidget* m_content;
    QGridLayout* m_grid;
    bool m_isFolded = false;
    bool m_hasRoom = true;
    std::vector<Row> m_rows;
    TimeTable m_table;
};

} // namespace KOLT
