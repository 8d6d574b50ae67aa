#include "graph/ui/DialogDataGraph.h"

#include "analysis/Findings.h"
#include "graph/TraceFeeder.h"
#include "graph/ui/DialogGraphSetup.h"
#include "graph/ui/WidgetGraph.h"
#include "graph/ui/WidgetGraphES.h"
#include "ui/ContentOrNote.h"

#include <QButtonGroup>
#include <QLabel>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <span>
#include <utility>

namespace KOLT {

namespace {

constexpr int holdMilliseconds = 50;
constexpr std::chrono::milliseconds feedBudget(15); ///< per step
constexpr int showMilliseconds = 100; ///< between repaints while traces are being filled

/// Whether OpenGL contexts here have the fixed-function pipeline. Determined once.
bool hasFixedFunction()
{
    static const bool answer = [] {
        QOpenGLContext context;
        QOffscreenSurface surface;
        surface.create();
        if (!context.create() || !context.makeCurrent(&surface))
            return true; // the widget will report the error
        const QSurfaceFormat format = context.format();
        const bool isCore = format.profile() == QSurfaceFormat::CoreProfile;
        return !context.isOpenGLES() && !isCore;
    }();
    return answer;
}

/// Numbered like the rows of the limit page, which lists the same events in this order.
std::vector<EventLine> linesOf(std::span<const Event> events)
{
    std::vector<EventLine> lines;
    lines.reserve(events.size());
    for (const Event& event : events)
        lines.push_back({static_cast<int>(lines.size()) + 1, event.seconds});
    return lines;
}

} // namespace

DialogDataGraph::DialogDataGraph(const Profile& profile, const GraphSettings& settings,
                                 QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
    , m_settings(settings)
{
    auto* const page = new QWidget(this);
    createBar();
    if (hasFixedFunction())
        m_graph = new WidgetGraph(page);
    else
        m_graph = new WidgetGraphES(page);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(m_bar);
    m_cut = new QLabel(page);
    m_cut->setIndent(4);
    m_cut->setWordWrap(true); // otherwise its text would widen the page
    m_cut->hide();
    layout->addWidget(m_cut);
    layout->addWidget(m_graph, 1);
    m_shown = new ContentOrNote(this, page);

    m_setup = new DialogGraphSetup(m_settings, this);
    connect(m_setup, &DialogGraphSetup::signalChanged, this, [this] {
        // Applying the settings applies their span too, but the dialog cannot change it.
        const double start = m_graph->graph().windowStart;
        const double end = m_graph->graph().windowEnd;
        slotGraphSetup();
        m_graph->setWindow(start, end);
    });
    connect(m_graph, &WidgetGraphBase::signalCursor, this, [this](float seconds, double value) {
        keepTime(static_cast<double>(seconds));
        emit signalCursor(seconds, value);
    });
    connect(m_graph, &WidgetGraphBase::signalManMode, this, &DialogDataGraph::slotManMode);
    connect(m_graph, &WidgetGraphBase::signalZoomed, this, [this] {
        m_settings.timeSpan = m_graph->graph().span();
        emit signalSettings(m_settings);
    });
    connect(m_graph, &WidgetGraphBase::signalCursorReleased, this, &DialogDataGraph::showTime);
    connect(m_graph, &WidgetGraphBase::signalMoveParameter, this,
            &DialogDataGraph::slotMoveParameter);
    m_feeder = std::make_unique<TraceFeeder>(m_graph->editGraph());
    connect(&m_feedTimer, &QTimer::timeout, this, &DialogDataGraph::slotTimeoutFeed);
    connect(&m_holdTimer, &QTimer::timeout, this, &DialogDataGraph::slotTimeout);
    m_holdTimer.start(holdMilliseconds);
    m_graph->setTimeSpan(m_settings.timeSpan);
    m_graph->setSettings(m_settings);
    slotManMode();
    showData();
}

DialogDataGraph::~DialogDataGraph() = default;

std::vector<const ProfileParameter*> DialogDataGraph::parameters() const
{
    std::vector<const ProfileParameter*> chosen = m_profile.selectedParameters();
    if (chosen.size() > static_cast<std::size_t>(Graph::maxTraces))
        chosen.resize(static_cast<std::size_t>(Graph::maxTraces));
    return chosen;
}

void DialogDataGraph::clearTraces()
{
    m_feeder->cancel();
    m_feedTimer.stop();
    m_progress->hide();
    m_graph->releaseCursor(); // it was held at a time of the old data
    m_graph->setTraceCount(1);
    m_graph->editGraph().setVisible(0, false);
    m_graph->refresh();
}

void DialogDataGraph::dropData()
{
    clearTraces();
    m_graph->clearEventLines();
    m_hasEvents = false;
    m_isNewData = true;
}

void DialogDataGraph::showData()
{
    const std::vector<const ProfileParameter*> chosen = parameters();
    const bool hasTraces = dataSet() != nullptr && !chosen.empty();
    if (!hasTraces) {
        m_shown->showNote(
            dataSet() == nullptr
                ? tr("Choose a cycle or a flight on the left to see its traces.")
                : tr("No parameters are selected. Check some in the list on the left and press "
                     "\"Confirm Selection\"."));
        clearTraces();
        return;
    }
    m_shown->showContent();
    showWhatIsCut();
    m_feeder->begin(m_profile, chosen, *dataSet());
    m_graph->setExtent(dataSet()->startSeconds, dataSet()->stopSeconds);
    if (std::exchange(m_isNewData, false)) {
        Graph& graph = m_graph->editGraph();
        graph.markerLeft = dataSet()->startSeconds;
        graph.markerRight = dataSet()->startSeconds;
        m_mustPlaceWindow = true;
    }
    m_sinceShown.start();
    m_feedTimer.start(0);
    feedEvents();
    slotTimeoutFeed(); // fills short recordings at once
}

void DialogDataGraph::feedEvents()
{
    if (m_hasEvents || !m_settings.hasEvents || dataSet() == nullptr)
        return;
    m_graph->setEventLines(linesOf(*eventsOf(m_profile, *dataSet())));
    m_hasEvents = true;
}

void DialogDataGraph::slotTimeoutFeed()
{
    const bool isDone = m_feeder->feed(feedBudget);
    if (isDone)
        m_feedTimer.stop();
    if (isDone || m_sinceShown.elapsed() > showMilliseconds) {
        m_graph->refresh();
        m_sinceShown.start();
    }
    m_progress->setVisible(!isDone);
    m_progress->setText(
        tr("Reading traces: %1 of %2").arg(m_feeder->filled()).arg(m_feeder->total()));
}

void DialogDataGraph::showWhatIsCut()
{
    const std::size_t selected = m_profile.selectedParameters().size();
    m_cut->setVisible(selected > static_cast<std::size_t>(Graph::maxTraces));
    m_cut->setText(
        tr("Only the first %1 of %2 parameters are shown.").arg(Graph::maxTraces).arg(selected));
}

void DialogDataGraph::showTime()
{
    // After the user placed the cursor, the page's time comes back: nothing may move then.
    const bool isThere =
        static_cast<float>(time()) == static_cast<float>(m_graph->graph().cursorTime);
    if (!std::exchange(m_mustPlaceWindow, false) && isThere)
        return;
    m_graph->setCursorTime(time());
    if (!m_graph->graph().isCursorHeld && !m_graph->graph().isPanned)
        pageTo(time());
}

void DialogDataGraph::pageTo(double seconds)
{
    const Graph& graph = m_graph->graph();
    const double span = graph.span();
    constexpr double edge = Graph::edge;
    if (seconds < graph.windowStart + span * edge)
        m_graph->setWindow(seconds - span * edge, seconds + span * (1.0 - edge));
    else if (seconds > graph.windowEnd - span * edge)
        m_graph->setWindow(seconds - span * (1.0 - edge), seconds + span * edge);
}

void DialogDataGraph::setTimeSpan(double seconds)
{
    m_settings.timeSpan = seconds;
    m_graph->setTimeSpan(seconds);
}

void DialogDataGraph::slotManMode()
{
    m_settings.isAutomatic = m_graph->graph().settings.isAutomatic;
    m_buttons->button(AutomaticMode)->setChecked(m_settings.isAutomatic);
    m_buttons->button(SplitMode)->setChecked(m_graph->graph().settings.isSplit);
    m_buttons->button(SingleMode)->setChecked(!m_graph->graph().settings.isSplit);
}

void DialogDataGraph::applySettings()
{
    feedEvents();
    m_graph->setSettings(m_settings);
    slotManMode();
    emit signalSettings(m_settings);
}

void DialogDataGraph::slotGraphSetup()
{
    m_graph->setTimeSpan(m_settings.timeSpan);
    applySettings();
}

void DialogDataGraph::slotMoveParameter(int trace, int row)
{
    QStringList names;
    for (const ProfileParameter* parameter : parameters())
        names.push_back(parameter->fullName);
    if (trace < 0 || trace >= names.size())
        return;
    names.move(trace, std::clamp<qsizetype>(row, 0, names.size() - 1));
    const double start = m_graph->graph().windowStart;
    const double end = m_graph->graph().windowEnd;
    emit signalOrder(names);
    m_graph->setWindow(start, end); // the reload may have moved it
}

} // namespace KOLT
