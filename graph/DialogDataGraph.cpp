#include "graph/DialogDataGraph.h"

#include "app/messages/Messages.h"
#include "app/settings/SettingsStore.h"
#include "graph/DialogGraphSetup.h"
#include "graph/DialogGraphStore.h"
#include "graph/TraceFeeder.h"
#include "graph/WidgetGraph.h"
#include "graph/WidgetGraphES.h"

#include <QApplication>
#include <QBuffer>
#include <QButtonGroup>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace KOLT {

namespace {

constexpr int holdMilliseconds = 50;
constexpr int saveMilliseconds = 1000;
constexpr double holdFactor = 0.97;
constexpr double longestHeldSpan = 5000.0;
constexpr double shortestHeldSpan = 1.0;
constexpr double allMargin = 0.1;
constexpr int buttonSize = 32;
constexpr int groupSpacing = 5;
constexpr std::chrono::milliseconds feedBudget(15); ///< at a time
constexpr int showMilliseconds = 100; ///< between pictures of the traces filled so far
constexpr int graphState = 0;
constexpr int emptyState = 1;

/// Whether contexts of this machine have the fixed-function pipeline. Asked once.
bool hasFixedFunction()
{
    static const bool answer = [] {
        QOpenGLContext context;
        QOffscreenSurface surface;
        surface.create();
        if (!context.create() || !context.makeCurrent(&surface))
            return true; // the widget will say what is wrong
        const QSurfaceFormat format = context.format();
        const bool isCore = format.profile() == QSurfaceFormat::CoreProfile;
        return !context.isOpenGLES() && !isCore;
    }();
    return answer;
}

} // namespace

DialogDataGraph::DialogDataGraph(const Profile& profile, QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
    , m_settings(readGraphSettings())
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
    layout->addWidget(m_graph, 1);
    m_empty = new QLabel(this);
    m_empty->setObjectName(QStringLiteral("emptyState"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_stack = new QStackedLayout(this);
    m_stack->addWidget(page);
    m_stack->addWidget(m_empty);

    m_setup = new DialogGraphSetup(m_settings, this);
    connect(m_setup, &DialogGraphSetup::signalChanged, this, &DialogDataGraph::slotGraphSetup);
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(saveMilliseconds);
    connect(&m_saveTimer, &QTimer::timeout, this, &DialogDataGraph::saveSettings);
    connect(m_setup, &QDialog::finished, this, [this] {
        if (m_saveTimer.isActive())
            saveSettings();
    });
    connect(m_graph, &WidgetGraphBase::signalCursor, this, [this](float seconds, double value) {
        keepTime(static_cast<double>(seconds));
        emit signalCursor(seconds, value);
    });
    connect(m_graph, &WidgetGraphBase::signalManMode, this, &DialogDataGraph::slotManMode);
    connect(m_graph, &WidgetGraphBase::signalZoomed, this, [this] {
        m_settings.timeSpan = m_graph->graph().span();
        saveSoon();
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

DialogDataGraph::~DialogDataGraph()
{
    if (m_saveTimer.isActive())
        SettingsStore::instance().save(); // too late for a message
}

void DialogDataGraph::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (m_saveTimer.isActive())
        saveSettings();
}

void DialogDataGraph::createBar()
{
    m_bar = new QHBoxLayout;
    m_bar->setSpacing(0);
    m_buttons = new QButtonGroup(this);
    m_buttons->setExclusive(false);
    const auto icon = [](const char* name) { return QString::fromLatin1(name); };
    addButton(ZoomIn, icon("zoom-in"), tr("Zoom In"), false, true);
    addButton(ZoomOut, icon("zoom-out"), tr("Zoom Out"), false, true);
    addButton(ZoomAll, icon("zoom-fit"), tr("Zoom 1:1"), false, true);
    addButton(ZoomMarker, icon("marker"), tr("Zoom Marker"), false, true);
    m_bar->addSpacing(groupSpacing);
    addButton(ClearAll, icon("clear"), tr("Clear All"), false, false);
    addButton(AutomaticMode, {}, tr("Automatic Mode"), true, false);
    m_buttons->button(AutomaticMode)->setText(tr("Auto"));
    addButton(SplitMode, icon("graph-split"), tr("Split Mode"), true, true);
    addButton(SingleMode, icon("graph-single"), tr("Single Graph Mode"), true, true);
    m_bar->addSpacing(groupSpacing);
    addButton(Reset, icon("zoom-fit"), tr("Reset all to default"), false, false);
    addButton(Setup, icon("graph-setup"), tr("Setup"), false, false);
    addButton(Snapshot, icon("graph-snapshot"), tr("Snapshot"), false, true);
    const auto addOwn = [this](const char* name, const QString& tip, auto slot) {
        auto* const button = new QToolButton(this);
        button->setFixedSize(buttonSize, buttonSize);
        button->setIconSize(QSize(buttonSize, buttonSize));
        button->setAutoRaise(true);
        button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name))));
        button->setToolTip(tip);
        connect(button, &QToolButton::clicked, this, slot);
        m_bar->addWidget(button);
    };
    addOwn("copy", tr("Copy picture"), &DialogDataGraph::copyPicture);
    addOwn("graph-setup", tr("Oscilloscope Setup"), &DialogDataGraph::showSetup);
    m_bar->addStretch();
    m_progress = new QLabel(this);
    m_progress->hide();
    m_bar->addWidget(m_progress);
    connect(m_buttons, &QButtonGroup::idPressed, this, &DialogDataGraph::slotCommandPress);
    connect(m_buttons, &QButtonGroup::idReleased, this, &DialogDataGraph::slotCommandRelease);
}

void DialogDataGraph::addButton(Command id, const QString& icon, const QString& tip,
                                bool isCheckable, bool isShown)
{
    auto* const button = new QToolButton(this);
    button->setFixedSize(buttonSize, buttonSize);
    button->setIconSize(QSize(buttonSize, buttonSize));
    button->setAutoRaise(true);
    button->setCheckable(isCheckable);
    if (!icon.isEmpty())
        button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(icon)));
    button->setToolTip(tip);
    button->setVisible(isShown);
    m_buttons->addButton(button, id);
    m_bar->addWidget(button);
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
    m_feeder->cancel();
    m_feedTimer.stop();
    m_progress->hide();
    m_graph->releaseCursor(); // it held a moment of what goes
    m_graph->setTraceCount(1);
    m_graph->editGraph().setVisible(0, false);
    m_graph->refresh();
}

void DialogDataGraph::dropData()
{
    clearTraces();
    m_isNewData = true;
}

void DialogDataGraph::showData()
{
    const std::vector<const ProfileParameter*> chosen = parameters();
    const bool hasTraces = dataSet() != nullptr && !chosen.empty();
    m_empty->setText(
        dataSet() == nullptr
            ? tr("Choose a cycle or a flight on the left to see its traces.")
            : tr("No parameters are selected. Check some in the list on the left and press "
                 "\"Confirm Selection\"."));
    m_stack->setCurrentIndex(hasTraces ? graphState : emptyState);
    if (!hasTraces) {
        clearTraces();
        return;
    }
    m_feeder->begin(m_profile, chosen, *dataSet());
    m_graph->setExtent(dataSet()->startSeconds, dataSet()->stopSeconds);
    if (std::exchange(m_isNewData, false)) {
        Graph& graph = m_graph->editGraph();
        graph.markerLeft = dataSet()->startSeconds;
        graph.markerRight = dataSet()->startSeconds;
    }
    m_sinceShown.start();
    m_feedTimer.start(0);
    slotTimeoutFeed(); // short recordings are there at once
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

void DialogDataGraph::showTime()
{
    m_graph->setCursorTime(time());
    if (!m_graph->graph().isCursorHeld)
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

void DialogDataGraph::slotCommandPress(int id)
{
    m_heldCommand = id;
}

void DialogDataGraph::slotCommandRelease(int id)
{
    const Graph& graph = m_graph->graph();
    switch (id) {
    case ZoomAll:
        zoomToAll();
        break;
    case ZoomMarker:
        m_graph->setWindow(std::min(graph.markerLeft, graph.markerRight),
                           std::max(graph.markerLeft, graph.markerRight));
        m_settings.timeSpan = graph.span();
        saveSoon();
        break;
    case ClearAll:
        clearTraces();
        break;
    case AutomaticMode:
        m_settings.isAutomatic = m_buttons->button(AutomaticMode)->isChecked();
        applySettings();
        break;
    case SplitMode:
    case SingleMode:
        m_settings.isSplit = id == SplitMode;
        applySettings();
        break;
    case Reset:
        m_settings.isSplit = true;
        applySettings();
        setTimeSpan(GraphSettings().timeSpan);
        break;
    case Setup:
        showSetup();
        break;
    case Snapshot:
        saveSnapshot();
        break;
    default:
        saveSoon(); // the span that was zoomed to
        break;
    }
    m_heldCommand = NoCommand;
}

void DialogDataGraph::zoomToAll()
{
    if (dataSet() == nullptr)
        return;
    const double length = dataSet()->stopSeconds - dataSet()->startSeconds;
    if (!(length > 0.0))
        return;
    m_settings.timeSpan = length;
    m_graph->setWindow(dataSet()->startSeconds - length * allMargin,
                       dataSet()->stopSeconds + length * allMargin);
    saveSoon();
}

void DialogDataGraph::slotTimeout()
{
    // The limits stand on these sides on purpose: a zoom that began beyond one comes back.
    if (m_heldCommand == ZoomIn)
        setTimeSpan(std::min(m_graph->graph().span() * holdFactor, longestHeldSpan));
    else if (m_heldCommand == ZoomOut)
        setTimeSpan(std::max(m_graph->graph().span() / holdFactor, shortestHeldSpan));
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
    m_graph->setSettings(m_settings);
    slotManMode();
    saveSoon();
}

void DialogDataGraph::saveSoon()
{
    keepGraphSettings(m_settings);
    m_saveTimer.start();
}

void DialogDataGraph::saveSettings()
{
    m_saveTimer.stop();
    Messages::saveSettings(this);
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
    m_graph->setWindow(start, end); // showing the data anew must not move it
}

void DialogDataGraph::showSetup()
{
    m_setup->refresh();
    m_setup->show();
    m_setup->raise();
}

void DialogDataGraph::saveSnapshot()
{
    const QPixmap picture = grab();
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Snapshot"), QStringLiteral("./snapshot.bmp"),
                                     tr("BMP File (*.bmp);;All Files (*.*)"));
    if (path.isEmpty())
        return;
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    const QByteArray suffix = QFileInfo(path).suffix().toLatin1();
    if (!picture.save(&buffer, suffix.isEmpty() ? "BMP" : suffix.constData())) {
        Messages::warn(this, tr("The picture was not saved: there is no picture format for\n%1\n"
                                "Use a name that ends with .bmp, .png or .jpg.")
                                 .arg(path));
        return;
    }
    Messages::saveFile(this, path, content);
}

void DialogDataGraph::copyPicture()
{
    QApplication::clipboard()->setPixmap(m_graph->grab());
}

} // namespace KOLT
