#include "graph/ui/DialogDataGraph.h"

#include "analysis/Findings.h"
#include "graph/ui/BandScroll.h"
#include "graph/ui/DialogGraphSetup.h"
#include "graph/ui/GraphSnapshot.h"
#include "graph/ui/MarkerPanel.h"
#include "graph/ui/TraceLoader.h"
#include "graph/ui/WidgetGraph.h"
#include "graph/ui/WidgetGraphES.h"
#include "graph/ui/WindowControl.h"
#include "ui/ContentOrNote.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <span>
#include <utility>

namespace KOLT {

namespace {

constexpr int holdMilliseconds = 50;

/// One for each episode where it begins, numbered like its first row on the limit page, which
/// lists the events in this order.
std::vector<EventLine> linesOf(std::span<const Event> events, std::span<const Episode> episodes)
{
    std::vector<EventLine> lines;
    lines.reserve(episodes.size());
    for (const Episode& episode : episodes) {
        auto first = std::ranges::lower_bound(events, episode.begin, {}, &Event::seconds);
        const auto isOther = [&](const Event& event) {
            return std::ranges::find(episode.parameters, event.parameter) ==
                   episode.parameters.end();
        };
        first = std::find_if_not(first, events.end(), isOther);
        if (first != events.end()) // not listed any more
            lines.push_back({static_cast<int>(first - events.begin()) + 1, episode.begin});
    }
    return lines;
}

/// The episodes that begin within the time, a line each.
QString tipOf(const Profile& profile, const DataSet& dataSet, double from, double to)
{
    constexpr qsizetype mostLines = 8;
    const EpisodeList found = episodesOf(profile, dataSet);
    const auto first = std::ranges::lower_bound(found->episodes, from, {}, &Episode::begin);
    const auto last = std::ranges::upper_bound(found->episodes, to, {}, &Episode::begin);
    QStringList lines;
    for (auto episode = first; episode < last && lines.size() < mostLines; ++episode)
        lines << episodeLine(profile, *episode);
    if (last - first > mostLines)
        lines << QStringLiteral("...");
    return lines.join(QLatin1Char('\n'));
}

} // namespace

DialogDataGraph::DialogDataGraph(const Profile& profile, const GraphSettings& settings,
                                 QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
{
    auto* const page = new QWidget(this);
    m_bar = new GraphCommandBar(page);
    if (WidgetGraph::isSupported())
        m_graph = new WidgetGraph(page);
    else
        m_graph = new WidgetGraphES(page);
    m_cut = new QLabel(page);
    m_cut->setIndent(4);
    m_cut->setWordWrap(true); // otherwise its text would widen the page
    m_cut->hide();
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_bar);
    layout->addWidget(m_cut);
    auto* const graphRow = new QHBoxLayout;
    graphRow->setSpacing(0);
    graphRow->addWidget(m_graph, 1);
    graphRow->addWidget(new BandScroll(*m_graph, page));
    layout->addLayout(graphRow, 1);
    m_markers = new MarkerPanel(*m_graph, page);
    layout->addWidget(m_markers);
    m_shown = new ContentOrNote(this, page);
    m_loader = new TraceLoader(*m_graph, this);
    m_window = std::make_unique<WindowControl>(*m_graph);
    m_graph->setTimeSpan(settings.timeSpan);
    m_graph->setSettings(settings);
    m_graph->setEventTip([this](double from, double to) {
        return m_hasEvents ? tipOf(m_profile, *dataSet(), from, to) : QString();
    });
    m_setup = new DialogGraphSetup(editSettings(), this);
    connectGraph();
    connectBar();
    m_holdTimer.start(holdMilliseconds);
    slotManMode();
    showData(Change::Data);
}

DialogDataGraph::~DialogDataGraph() = default;

void DialogDataGraph::connectGraph()
{
    connect(m_graph, &WidgetGraphBase::signalCursor, this, [this](float seconds, double value) {
        keepTime(static_cast<double>(seconds));
        emit signalCursor(seconds, value);
    });
    connect(m_graph, &WidgetGraphBase::signalManMode, this, &DialogDataGraph::slotManMode);
    connect(m_graph, &WidgetGraphBase::signalZoomed, this, &DialogDataGraph::reportSettings);
    connect(m_graph, &WidgetGraphBase::signalCursorReleased, this, &DialogDataGraph::showTime);
    connect(m_graph, &WidgetGraphBase::signalMoveParameter, this,
            &DialogDataGraph::slotMoveParameter);
    connect(m_graph, &WidgetGraphBase::signalMarker, m_markers, &MarkerPanel::refresh);
    connect(m_graph, &WidgetGraphBase::signalMeasured, m_markers, &MarkerPanel::refresh);
    connect(m_loader, &TraceLoader::signalProgress, m_markers, &MarkerPanel::refresh);
    connect(m_loader, &TraceLoader::signalProgress, this, &DialogDataGraph::showProgress);
    connect(m_setup, &DialogGraphSetup::signalChanged, this, [this] {
        // Applying the settings applies their span too, but the dialog cannot change it.
        const TimeRange window = m_graph->graph().window();
        slotGraphSetup();
        m_graph->setWindow(window.start, window.end);
    });
}

void DialogDataGraph::connectBar()
{
    connect(m_bar, &GraphCommandBar::signalPressed, this, &DialogDataGraph::slotCommandPress);
    connect(m_bar, &GraphCommandBar::signalReleased, this, &DialogDataGraph::slotCommandRelease);
    connect(m_bar, &GraphCommandBar::signalCopyPicture, this, &DialogDataGraph::copyPicture);
    connect(m_bar, &GraphCommandBar::signalSetup, this, &DialogDataGraph::showSetup);
    connect(&m_holdTimer, &QTimer::timeout, this, &DialogDataGraph::slotTimeout);
}

bool DialogDataGraph::isFeeding() const
{
    return m_loader->isActive();
}

GraphSettings& DialogDataGraph::editSettings()
{
    return m_graph->editGraph().editSettings();
}

std::vector<const ProfileParameter*> DialogDataGraph::parameters() const
{
    std::vector<const ProfileParameter*> chosen = m_profile.selectedParameters();
    if (chosen.size() > static_cast<std::size_t>(Graph::maxTraces))
        chosen.resize(static_cast<std::size_t>(Graph::maxTraces));
    return chosen;
}

void DialogDataGraph::clearTraces()
{
    m_loader->cancel();
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
    m_window->endRecording();
    m_span.reset();
}

void DialogDataGraph::showData(Changes changes)
{
    if (changes == Change::Font)
        return; // the graph widget follows it
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
    m_loader->begin(m_profile, chosen, *dataSet());
    m_graph->setExtent(dataSet()->startSeconds, dataSet()->stopSeconds);
    if (std::exchange(m_isNewData, false))
        m_window->beginRecording({dataSet()->startSeconds, dataSet()->stopSeconds});
    feedEvents();
    m_loader->step(); // fills short recordings at once
}

void DialogDataGraph::feedEvents()
{
    if (m_hasEvents || !m_graph->graph().settings().hasEvents || dataSet() == nullptr)
        return;
    m_graph->setEventLines(
        linesOf(*eventsOf(m_profile, *dataSet()), episodesOf(m_profile, *dataSet())->episodes));
    m_hasEvents = true;
}

void DialogDataGraph::setNotes(std::vector<NoteMark> notes)
{
    m_graph->setNotes(std::move(notes));
}

void DialogDataGraph::showProgress()
{
    const TraceFeeder& feeder = m_loader->feeder();
    m_bar->showProgress(
        feeder.isDone() ? QString()
                        : tr("Reading traces: %1 of %2").arg(feeder.filled()).arg(feeder.total()));
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
    m_window->showTime(time());
    if (m_span)
        applySpan(*std::exchange(m_span, std::nullopt));
}

void DialogDataGraph::showSpan(const TimeRange& window, const TimeRange& markers,
                               const QString& fullName)
{
    if (dataSet() == nullptr)
        return;
    m_span = Span{window, markers, fullName};
    setTime(time()); // now, or when the page is shown
}

void DialogDataGraph::applySpan(const Span& span)
{
    const std::vector<const ProfileParameter*> all = parameters();
    const auto trace = std::ranges::find(all, span.fullName, &ProfileParameter::fullName);
    if (trace != all.end()) {
        const auto index = static_cast<int>(trace - all.begin());
        m_graph->editGraph().selectTrace(index);
        m_graph->editGraph().bringIntoView(index);
    }
    m_window->showSpan(span.window, span.markers);
    m_markers->refresh();
}

void DialogDataGraph::slotManMode()
{
    m_bar->showModes(m_graph->graph().settings());
}

void DialogDataGraph::applySettings()
{
    feedEvents();
    m_graph->refresh();
    m_markers->refresh();
    slotManMode();
    reportSettings();
}

void DialogDataGraph::reportSettings()
{
    emit signalSettings(m_graph->graph().settings());
}

void DialogDataGraph::slotGraphSetup()
{
    m_graph->setTimeSpan(m_graph->graph().settings().timeSpan);
    applySettings();
}

void DialogDataGraph::slotCommandPress(int id)
{
    m_heldCommand = id;
}

void DialogDataGraph::slotCommandRelease(int id)
{
    switch (id) {
    case GraphCommandBar::ZoomAll:
        m_window->showAll();
        reportSettings();
        break;
    case GraphCommandBar::ZoomMarker:
        m_window->showMarkers();
        reportSettings();
        break;
    case GraphCommandBar::ClearAll:
        clearTraces();
        break;
    case GraphCommandBar::AutomaticMode:
        editSettings().isAutomatic = m_bar->isChecked(GraphCommandBar::AutomaticMode);
        applySettings();
        break;
    case GraphCommandBar::SplitMode:
    case GraphCommandBar::SingleMode:
        editSettings().isSplit = id == GraphCommandBar::SplitMode;
        applySettings();
        break;
    case GraphCommandBar::Reset:
        editSettings().isSplit = true;
        editSettings().isWhole = true;
        applySettings();
        m_graph->setTimeSpan(GraphSettings().timeSpan);
        break;
    case GraphCommandBar::Setup:
        showSetup();
        break;
    case GraphCommandBar::Snapshot:
        saveSnapshot(this);
        break;
    default:
        reportSettings(); // a held zoom button changed the span
        break;
    }
    m_heldCommand = GraphCommandBar::NoCommand;
}

void DialogDataGraph::slotTimeout()
{
    if (m_heldCommand == GraphCommandBar::ZoomIn)
        m_window->zoom(WindowControl::Zoom::In);
    else if (m_heldCommand == GraphCommandBar::ZoomOut)
        m_window->zoom(WindowControl::Zoom::Out);
}

void DialogDataGraph::showSetup()
{
    m_setup->refresh();
    m_setup->show();
    m_setup->raise();
}

void DialogDataGraph::copyPicture()
{
    QApplication::clipboard()->setPixmap(m_graph->grab());
}

void DialogDataGraph::slotMoveParameter(int trace, int row)
{
    QStringList names;
    for (const ProfileParameter* parameter : parameters())
        names.push_back(parameter->fullName);
    if (trace < 0 || trace >= names.size())
        return;
    names.move(trace, std::clamp<qsizetype>(row, 0, names.size() - 1));
    const TimeRange window = m_graph->graph().window();
    emit signalOrder(names);
    m_graph->setWindow(window.start, window.end); // the reload may have moved it
}

} // namespace KOLT
