#pragma once

#include "analysis/TimeTable.h"
#include "map/AircraftTrack.h"
#include "map/MapMarks.h"
#include "map/MapViewState.h"
#include "map/TrackColors.h"
#include "ui/DataPage.h"

#include <QWidget>

class QAction;
class QButtonGroup;
class QComboBox;
class QGridLayout;
class QLabel;

namespace KOLT {

class Profile;
class WidgetMap;
struct MapSettings;

/// The map page: the map with the aircraft at the current time, and two panels above it, one with
/// commands, one with the values of the chosen parameters. The values are those that the data table
/// shows for the same time.
class DialogDataMap : public QWidget, public DataPage
{
    Q_OBJECT

public:
    DialogDataMap(const Profile& profile, const MapSettings& settings, QWidget* parent = nullptr);

    WidgetMap& widget() { return *m_map; }

    const MapViewState& viewState() const { return m_state; }

    void setSettings(const MapSettings& settings);

signals:
    /// The user clicked on the track or a mark: the time of that place.
    void signalTime(double seconds);
    /// A message for the status bar.
    void signalMessage(const QString& text);

public slots:
    void slotCommandToggled(int id, bool isChecked);
    void slotUpdateMode();

protected:
    void dropData() override;
    void showData(Changes changes) override;
    void showTime() override;
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void slotColoring(int index);

private:
    enum Command { CenterAircraft };

    struct ValueRow
    {
        const ProfileParameter* parameter = nullptr;
        QLabel* name = nullptr;
        QLabel* value = nullptr;
    };

    void createToolBar();
    void dropTrack();
    void showTrack();
    void showMarks();
    void fillColorings();
    void createValueRows();
    void refreshValues();
    void placePanels();

    const Profile& m_profile;
    MapViewState m_state;
    WidgetMap* m_map = nullptr;
    QWidget* m_toolPanel = nullptr;
    QAction* m_follow = nullptr;
    QAction* m_shading = nullptr;
    QButtonGroup* m_commands = nullptr;
    QComboBox* m_coloring = nullptr;
    QWidget* m_valuePanel = nullptr;
    QGridLayout* m_values = nullptr;
    std::vector<ValueRow> m_rows;
    TimeTable m_table;
    AircraftTrack m_aircraft;
    const DataSet* m_fitted = nullptr; ///< the data set that the view was fitted to
};

} // namespace KOLT
