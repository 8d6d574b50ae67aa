#pragma once

#include "map/AircraftTrack.h"
#include "map/MapMarks.h"
#include "map/MapSettings.h"
#include "map/MapViewState.h"
#include "map/TrackColors.h"
#include "map/ui/FlightPanel.h"
#include "map/ui/MapValuePanel.h"
#include "ui/DataPage.h"

#include <QWidget>

class QAction;
class QButtonGroup;
class QComboBox;
class QLabel;
class QToolBar;
class QToolButton;

namespace KOLT {

class Profile;
class WidgetMap;

/// The map page: the map with the aircraft at the current time, and panels above it: commands,
/// where the flight is, the values of the chosen parameters, and a note while there are no tiles.
/// The values are those that the data table shows for the same time.
class DialogDataMap : public QWidget, public DataPage
{
    Q_OBJECT

public:
    DialogDataMap(const Profile& profile, const MapSettings& settings, QWidget* parent = nullptr);

    WidgetMap& widget() { return *m_map; }

    const MapViewState& viewState() const { return m_state; }

    void setSettings(const MapSettings& settings);
    /// Shows the whole track, as after a load.
    void fitTrack();

    const MapSettings& settings() const { return m_settings; }

    /// Notes on the data, to be marked until the next call.
    void setNotes(std::vector<NoteMark> notes);

signals:
    /// The user clicked on the track or a mark: the time of that place.
    void signalTime(double seconds);
    /// The user folded the value panel or unfolded it, or switched the notes.
    void signalSettings(const KOLT::MapSettings& settings);
    /// The user asked for the settings of the map.
    void signalOpenSettings();
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

    void createToolBar();
    void createViewCommands(QToolBar& bar);
    void createNotesCommand(QToolBar& bar);
    void createFoldButton();
    void createNote();
    void showNote(bool areTilesLacking);
    void placeNote(int& top);
    bool placeValues(int top);
    void foldValues(bool areShown);
    void raiseInto(QWidget& panel, int& top);
    void dropTrack();
    void showTrack();
    void findMarks();
    void showMarks();
    void fillColorings();
    void createValueRows();
    void placePanels();

    const Profile& m_profile;
    MapSettings m_settings;
    MapViewState m_state;
    WidgetMap* m_map = nullptr;
    QWidget* m_toolPanel = nullptr;
    QAction* m_follow = nullptr;
    QAction* m_shading = nullptr;
    QAction* m_notesShown = nullptr;
    int m_toolsWidth = 0; ///< of the commands with that for notes
    QButtonGroup* m_commands = nullptr;
    QComboBox* m_coloring = nullptr;
    QToolButton* m_fold = nullptr;
    MapValuePanel m_values;
    FlightPanel m_flight;
    QLabel* m_note = nullptr; ///< that there are no tiles
    QString m_noteReason;
    bool m_areTilesLacking = false;
    bool m_isFlightHidden = true;
    std::vector<QRectF> m_covered; ///< by the panels and the texts at the bottom
    AircraftTrack m_aircraft;
    std::vector<MapMark> m_marks; ///< of the data, without notes
    std::vector<NoteMark> m_notes;
    const DataSet* m_fitted = nullptr; ///< the data set that the view was fitted to
};

} // namespace KOLT
