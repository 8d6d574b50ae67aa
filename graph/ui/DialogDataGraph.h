#pragma once

#include "graph/Graph.h"
#include "ui/DataPage.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <memory>

class QButtonGroup;
class QHBoxLayout;
class QLabel;
class QToolButton;

namespace KOLT {

class ContentOrNote;
class DialogGraphSetup;
class Profile;
class TraceFeeder;
class WidgetGraphBase;

/// The "Graph" page: the oscilloscope with its command bar. Owns the graph's settings and reports
/// each change of them.
///
/// Traces of long recordings are filled step by step while the window stays responsive; all are
/// listed at once, empty until filled.
class DialogDataGraph : public QWidget, public DataPage
{
    Q_OBJECT

public:
    DialogDataGraph(const Profile& profile, const GraphSettings& settings,
                    QWidget* parent = nullptr);
    ~DialogDataGraph() override;

    const WidgetGraphBase& widget() const { return *m_graph; }

    /// Whether traces are still being filled.
    bool isFeeding() const { return m_feedTimer.isActive(); }

signals:
    void signalCursor(float seconds, double value);
    /// The user moved a trace: the full names of all parameters in their new order.
    void signalOrder(const QStringList& fullNames);
    void signalSettings(const KOLT::GraphSettings& settings);

protected:
    void dropData() override;
    void showData() override;
    void showTime() override;

private slots:
    void slotCommandPress(int id);
    void slotCommandRelease(int id);
    void slotTimeout();
    void slotTimeoutFeed();
    void slotManMode();
    void slotGraphSetup();
    void slotMoveParameter(int trace, int row);

private:
    enum Command {
        ZoomIn,
        ZoomOut,
        ZoomAll,
        ZoomMarker,
        ClearAll,
        AutomaticMode,
        SplitMode,
        SingleMode,
        Reset,
        Setup,
        Snapshot,
        NoCommand = 99
    };

    void clearTraces();
    void createBar();
    QToolButton* addButton(const QString& icon, const QString& tip);
    void addCommand(Command id, const QString& icon, const QString& tip, bool isCheckable,
                    bool isShown);
    void applySettings();
    void setTimeSpan(double seconds);
    void showSetup();
    void saveSnapshot();
    void copyPicture();
    void zoomToAll();
    void pageTo(double seconds);
    /// Shows the events; finds them once per data set, and only when they are switched on.
    void feedEvents();
    void showWhatIsCut();
    std::vector<const ProfileParameter*> parameters() const;

    const Profile& m_profile;
    GraphSettings m_settings;
    WidgetGraphBase* m_graph = nullptr;
    DialogGraphSetup* m_setup = nullptr;
    QButtonGroup* m_buttons = nullptr;
    QHBoxLayout* m_bar = nullptr;
    ContentOrNote* m_shown = nullptr;
    QLabel* m_progress = nullptr;
    QLabel* m_cut = nullptr; ///< shown if there are more parameters than traces
    std::unique_ptr<TraceFeeder> m_feeder;
    QTimer m_feedTimer;
    QElapsedTimer m_sinceShown;    ///< since the last repaint while filling
    bool m_hasEvents = false;      ///< the graph shows the events of the data
    bool m_isNewData = true;       ///< the data have not been shown yet
    bool m_mustPlaceWindow = true; ///< even if the cursor already is at the page's time
    QTimer m_holdTimer;
    int m_heldCommand = NoCommand;
};

} // namespace KOLT
