#pragma once

#include "graph/Graph.h"
#include "graph/ui/GraphCommandBar.h"
#include "ui/DataPage.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QLabel;

namespace KOLT {

class ContentOrNote;
class DialogGraphSetup;
class MarkerPanel;
class Profile;
class ProfileParameter;
class TraceLoader;
class WidgetGraphBase;
class WindowControl;

/// The "Graph" page: the oscilloscope with its command bar. The graph's settings are those of the
/// oscilloscope; the page reports each change of them.
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
    bool isFeeding() const;

    /// Shows this window with these markers, and selects the trace of the parameter, if it has one.
    /// A hidden page does so when it is shown. Set the time before: the next one may move the
    /// window, as the cursor mode says. The user's span for the next recording stays.
    void showSpan(const TimeRange& window, const TimeRange& markers,
                  const QString& fullName = QString());

    /// Notes on the data, to be marked until the next call.
    void setNotes(std::vector<NoteMark> notes);

signals:
    void signalCursor(float seconds, double value);
    /// The user moved a trace: the full names of all parameters in their new order.
    void signalOrder(const QStringList& fullNames);
    void signalSettings(const KOLT::GraphSettings& settings);

protected:
    void dropData() override;
    void showData(Changes changes) override;
    void showTime() override;

private slots:
    void slotCommandPress(int id);
    void slotCommandRelease(int id);
    void slotTimeout();
    void slotManMode();
    void slotGraphSetup();
    void slotMoveParameter(int trace, int row);

private:
    struct Span
    {
        TimeRange window;
        TimeRange markers;
        QString fullName; ///< of the parameter to select
    };

    void connectGraph();
    void connectBar();
    void clearTraces();
    /// After a change of the settings.
    void applySettings();
    void reportSettings();
    GraphSettings& editSettings();
    void showSetup();
    void copyPicture();
    void applySpan(const Span& span);
    /// Shows the events; finds them once per data set, and only when they are switched on.
    void feedEvents();
    void showWhatIsCut();
    void showProgress();
    std::vector<const ProfileParameter*> parameters() const;

    const Profile& m_profile;
    WidgetGraphBase* m_graph = nullptr;
    GraphCommandBar* m_bar = nullptr;
    MarkerPanel* m_markers = nullptr;
    DialogGraphSetup* m_setup = nullptr;
    TraceLoader* m_loader = nullptr;
    std::unique_ptr<WindowControl> m_window;
    ContentOrNote* m_shown = nullptr;
    QLabel* m_cut = nullptr;    ///< shown if there are more parameters than traces
    bool m_hasEvents = false;   ///< the graph shows the events of the data
    bool m_isNewData = true;    ///< the data have not been shown yet
    std::optional<Span> m_span; ///< to be shown
    QTimer m_holdTimer;
    int m_heldCommand = GraphCommandBar::NoCommand;
};

} // namespace KOLT
