#include "analysis/DialogData.h"

#include "analysis/DialogDataLimit.h"
#include "analysis/DialogDataStatistic.h"
#include "analysis/DialogDataTable.h"
#include "analysis/DialogDataView.h"
#include "analysis/DialogDataWarning.h"
#include "analysis/WidgetFaultMatrix.h"
#include "analysis/WidgetNoGl.h"
#include "app/settings/CommandLineOptions.h"
#include "graph/DialogDataGraph.h"
#include "libs/tusk/Timer.h"
#include "map/DialogDataMap.h"
#include "record/ClockTime.h"

#include <QButtonGroup>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLCDNumber>
#include <QLabel>
#include <QSlider>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimeEdit>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int replayMilliseconds = 20;
constexpr int speedSteps = 100; ///< of the speed slider for a factor of 1
constexpr int controlWidth = 120;
constexpr QSize displaySize(220, 60);
constexpr int dateStretch = 3;
constexpr int timeStretch = 2;
constexpr QSize buttonIconSize(24, 24);
constexpr QSize tabIconSize(16, 16);
constexpr int spacing = 6;
constexpr int emuRowHeight = 44;

enum MapType { hideMap, mapBeside, mapBelow };

const auto noDate = QStringLiteral("--.--.---- --:--:--");
const auto noTime = QStringLiteral("--:--:--.---");

QIcon icon(const QString& name)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name));
}

QLCDNumber* createDisplay(int digits, const QString& text, QWidget* parent)
{
    auto* const display = new QLCDNumber(digits, parent);
    display->setSegmentStyle(QLCDNumber::Filled);
    display->setMinimumSize(displaySize);
    display->display(text);
    return display;
}

} // namespace

QString dateTimeText(const QDateTime& start, double seconds)
{
    const double milliseconds = std::round(seconds * 1000.0);
    if (!start.isValid() || !(std::abs(milliseconds) < 1e15))
        return noDate;
    return start.addMSecs(static_cast<qint64>(milliseconds))
        .toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"));
}

QString counterText(double seconds)
{
    return clockTime(seconds).toString(QStringLiteral("hh:mm:ss.zzz"));
}

DialogData::DialogData(const Profile& profile, QWidget* parent, Clock clock)
    : QWidget(parent)
    , m_profile(profile)
    , m_clock(clock ? std::move(clock) : Clock(TUSK::Misc::Timer::getTime))
{
    const bool isEmuDisplay = CommandLineOptions::instance().isGiven("-emu");
    if (isEmuDisplay) { // the style sheet makes it dark
        setObjectName(QStringLiteral("emuDisplay"));
        setAttribute(Qt::WA_StyledBackground);
    }
    m_timer = new QTimer(this);
    m_timer->setInterval(replayMilliseconds);
    connect(m_timer, &QTimer::timeout, this, &DialogData::slotTimeoutReplay);
    m_splitter = new QSplitter(Qt::Horizontal, this);
    m_stack = new QStackedWidget(m_splitter);
    createPages();
    m_splitter->addWidget(m_stack);
    m_splitter->addWidget(m_pages[static_cast<std::size_t>(Page::Map)].widget);
    m_splitter->setSizes({200, 300});

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(createTopRow());
    layout->addWidget(m_splitter, 1);
    QBoxLayout* const displays = createDisplays();
    QGridLayout* const controls = createControls();
    if (isEmuDisplay)
        displays->insertLayout(0, controls);
    layout->addLayout(displays);
    if (isEmuDisplay)
        stripToDisplay();
    else
        layout->addLayout(controls);
    const QList<QWidget*> order{m_tabs,
                                m_mapButtons->button(hideMap),
                                m_mapButtons->button(mapBeside),
                                m_mapButtons->button(mapBelow),
                                m_stack,
                                m_startButton,
                                m_stopButton,
                                m_slider,
                                m_timeEdit,
                                m_speedSlider,
                                m_speedBox};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    updateButtons();
}

void DialogData::stripToDisplay()
{
    for (QWidget* widget :
         std::initializer_list<QWidget*>{m_timeDisplay, m_slider, m_timeEdit, m_tabs,
                                         m_pages[static_cast<std::size_t>(Page::Map)].widget})
        widget->hide();
    for (QAbstractButton* button : m_mapButtons->buttons())
        button->hide();
    // What is left lies in one low row below the instruments.
    m_dateDisplay->setMinimumHeight(emuRowHeight);
    m_dateDisplay->setMaximumHeight(emuRowHeight);
    for (QToolButton* button : {m_startButton, m_stopButton})
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

template <typename Widget>
Widget* DialogData::addPage(Page page, Widget* widget)
{
    QWidget* const shown = WidgetNoGl::shown(widget);
    m_pages[static_cast<std::size_t>(page)] = {widget, shown};
    shown->installEventFilter(this);
    if (page != Page::Map)
        m_stack->addWidget(shown);
    return widget;
}

void DialogData::createPages()
{
    auto* const table = addPage(Page::Table, new DialogDataTable(m_profile, m_stack));
    connect(table, &DialogDataTable::signalTime, this, &DialogData::slotTableTime);
    auto* const graph = addPage(Page::Graph, new DialogDataGraph(m_profile, m_stack));
    connect(graph, &DialogDataGraph::signalCursor, this, &DialogData::slotCursor);
    connect(graph, &DialogDataGraph::signalOrder, this, [this](const QStringList& fullNames) {
        if (m_orderHandler)
            m_orderHandler(fullNames);
    });
    auto* const faults = addPage(Page::FaultMatrix, new WidgetFaultMatrix(m_profile, m_stack));
    connect(faults, &WidgetFaultMatrix::signalTime, this, &DialogData::slotFaultTime);
    auto* const limits = addPage(Page::Limit, new DialogDataLimit(m_profile, m_stack));
    connect(limits, &DialogEventList::signalTime, this, &DialogData::slotLimitTime);
    auto* const lamps = addPage(Page::WarningLamps, new DialogDataWarning(m_profile, m_stack));
    connect(lamps, &DialogEventList::signalTime, this, &DialogData::slotWarningTime);
    addPage(Page::Statistic, new DialogDataStatistic(m_stack));
    auto* const view = addPage(Page::EmuView, new DialogDataView(m_profile, m_stack));
    const auto passMessage = [this](const QString& message) {
        if (m_messageHandler)
            m_messageHandler(message);
    };
    view->setMessageHandler(passMessage);
    m_loading = new QLabel(m_stack);
    m_loading->setObjectName(QStringLiteral("emptyState"));
    m_loading->setAlignment(Qt::AlignCenter);
    m_stack->addWidget(m_loading);
    auto* const map = addPage(Page::Map, new DialogDataMap(m_profile, m_splitter));
    map->setMessageHandler(passMessage);
    connect(map, &DialogDataMap::signalTime, this, &DialogData::slotMapTime);
}

void DialogData::showCurrentPage()
{
    m_stack->setCurrentIndex(m_tabs->currentIndex());
}

QBoxLayout* DialogData::createTopRow()
{
    m_tabs = new QTabBar(this);
    m_tabs->setIconSize(tabIconSize);
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->setUsesScrollButtons(false); // in a narrow window the texts are cut, and no tab is lost
    m_tabs->setElideMode(Qt::ElideRight);
    m_tabs->addTab(icon(QStringLiteral("tab-data")), tr("Data"));
    m_tabs->addTab(icon(QStringLiteral("tab-graph")), tr("Graph"));
    m_tabs->addTab(icon(QStringLiteral("tab-fault-matrix")), tr("Fault Matrix"));
    m_tabs->addTab(icon(QStringLiteral("tab-limit")), tr("Limit/Warning"));
    m_tabs->addTab(icon(QStringLiteral("tab-warning-lamps")), tr("Warning Lamps"));
    m_tabs->addTab(icon(QStringLiteral("tab-statistic")), tr("Tow Statistic"));
    m_tabs->addTab(icon(QStringLiteral("tab-emu-view")), tr("EMU View"));
    for (int i = 0; i < m_tabs->count(); ++i) {
        m_tabs->setTabData(i, m_tabs->tabIcon(i));
        m_tabs->setTabToolTip(i, m_tabs->tabText(i)); // where the window is too narrow for all
    }
    connect(m_tabs, &QTabBar::currentChanged, this, [this] {
        if (m_stack->currentWidget() != m_loading)
            showCurrentPage();
    });

    m_mapButtons = new QButtonGroup(this);
    m_mapButtons->setExclusive(true);
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_tabs, 1);
    row->addWidget(createMapButton(hideMap, QStringLiteral("map-hide"), tr("Hide Map Display")));
    row->addWidget(createMapButton(mapBeside, QStringLiteral("map-horizontal"),
                                   tr("Tile Map Display Horizontally")));
    row->addWidget(createMapButton(mapBelow, QStringLiteral("map-vertical"),
                                   tr("Tile Map Display Vertically")));
    m_mapButtons->button(mapBeside)->setChecked(true);
    connect(m_mapButtons, &QButtonGroup::idClicked, this, &DialogData::slotMapType);
    return row;
}

QToolButton* DialogData::createMapButton(int type, const QString& iconName, const QString& tip)
{
    auto* const button = new QToolButton(this);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setIcon(icon(iconName));
    button->setToolTip(tip);
    m_mapButtons->addButton(button, type);
    return button;
}

QBoxLayout* DialogData::createDisplays()
{
    m_dateDisplay = createDisplay(static_cast<int>(noDate.size()), noDate, this);
    m_dateDisplay->setToolTip(tr("Date and time of the current moment"));
    m_timeDisplay = createDisplay(static_cast<int>(noTime.size()), noTime, this);
    m_timeDisplay->setToolTip(tr("Time since the recording unit was switched on"));
    auto* const row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addWidget(m_dateDisplay, dateStretch);
    row->addWidget(m_timeDisplay, timeStretch);
    return row;
}

QToolButton* DialogData::createReplayButton()
{
    auto* const button = new QToolButton(this);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize(buttonIconSize);
    button->setAutoRaise(true);
    return button;
}

QGridLayout* DialogData::createControls()
{
    auto* const grid = new QGridLayout;
    grid->setContentsMargins(spacing, 0, spacing, spacing);
    m_startButton = createReplayButton();
    m_startButton->setToolTip(tr("Start or pause the replay"));
    // Its texts differ in length; the slider beside it must not move with them.
    int width = 0;
    for (const QString& text : {tr("Replay Start"), tr("Replay Pause"), tr("Replay Run")}) {
        m_startButton->setText(text);
        width = std::max(width, m_startButton->sizeHint().width());
    }
    m_startButton->setMinimumWidth(width);
    connect(m_startButton, &QToolButton::clicked, this, &DialogData::slotReplayMode);
    m_stopButton = createReplayButton();
    m_stopButton->setText(tr("Replay Stop"));
    m_stopButton->setIcon(icon(QStringLiteral("replay-stop")));
    m_stopButton->setToolTip(tr("Stop the replay and go back to the start"));
    connect(m_stopButton, &QToolButton::clicked, this, &DialogData::slotReplayStop);

    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setRange(0, Replay::positions);
    m_slider->setToolTip(tr("Position within the loaded data"));
    connect(m_slider, &QSlider::valueChanged, this, &DialogData::slotSlider);
    m_timeEdit = new QTimeEdit(this);
    m_timeEdit->setDisplayFormat(QStringLiteral("hh:mm:ss"));
    m_timeEdit->setFixedWidth(controlWidth);
    m_timeEdit->setToolTip(tr("Go to a time since the recording unit was switched on"));
    connect(m_timeEdit, &QTimeEdit::timeChanged, this, &DialogData::slotValue);
    auto* const timeRow = new QHBoxLayout;
    timeRow->addWidget(m_timeEdit);
    timeRow->addStretch();

    grid->addWidget(m_startButton, 0, 0, 2, 1);
    grid->addWidget(m_stopButton, 0, 1, 2, 1);
    grid->addWidget(m_slider, 0, 2);
    grid->addLayout(timeRow, 1, 2);
    createSpeedControls(grid);
    grid->setColumnStretch(2, 1);
    return grid;
}

void DialogData::createSpeedControls(QGridLayout* grid)
{
    m_speedSlider = new QSlider(Qt::Horizontal, this);
    m_speedSlider->setRange(static_cast<int>(Replay::minSpeed) * speedSteps,
                            static_cast<int>(Replay::maxSpeed) * speedSteps);
    m_speedSlider->setFixedWidth(controlWidth);
    m_speedSlider->setToolTip(tr("Speed of the replay"));
    connect(m_speedSlider, &QSlider::valueChanged, this,
            qOverload<int>(&DialogData::slotReplaySpeed));
    m_speedBox = new QDoubleSpinBox(this);
    m_speedBox->setRange(Replay::minSpeed, Replay::maxSpeed);
    m_speedBox->setPrefix(tr("Speed "));
    m_speedBox->setFixedWidth(controlWidth);
    m_speedBox->setToolTip(tr("Speed of the replay"));
    connect(m_speedBox, &QDoubleSpinBox::valueChanged, this,
            qOverload<double>(&DialogData::slotReplaySpeed));
    grid->addWidget(m_speedSlider, 0, 3);
    grid->addWidget(m_speedBox, 1, 3);
}

bool DialogData::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        const auto entry = std::ranges::find(m_pages, watched, &PageEntry::widget);
        if (entry != m_pages.end())
            entry->page->setShown(event->type() == QEvent::Show);
    }
    return QWidget::eventFilter(watched, event);
}

void DialogData::resizeEvent(QResizeEvent* event)
{
    // In a narrow window the texts of the tabs are worth more than their icons.
    const auto showIcons = [this](bool areShown) {
        for (int i = 0; i < m_tabs->count(); ++i)
            m_tabs->setTabIcon(i, areShown ? m_tabs->tabData(i).value<QIcon>() : QIcon());
    };
    showIcons(true);
    int mapButtonsWidth = 0;
    for (const QAbstractButton* button : m_mapButtons->buttons())
        mapButtonsWidth += button->sizeHint().width();
    if (m_tabs->sizeHint().width() > width() - mapButtonsWidth)
        showIcons(false);
    QWidget::resizeEvent(event);
}

void DialogData::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // Rows and columns are as large as their texts.
    if (event->type() == QEvent::FontChange && m_loading != nullptr)
        refresh();
}

void DialogData::setData(const DataSet& dataSet)
{
    m_timer->stop();
    m_dataSet = &dataSet;
    m_replay.setSpan(dataSet.startSeconds, dataSet.stopSeconds);
    for (const PageEntry& entry : m_pages)
        entry.page->setData(&dataSet);
    updateButtons();
    moveTo(m_replay.time());
    showCurrentPage();
}

void DialogData::beginLoading(const QString& text)
{
    m_loading->setText(text);
    m_stack->setCurrentWidget(m_loading);
    dropData();
}

void DialogData::clear()
{
    dropData();
    showCurrentPage();
}

void DialogData::dropData()
{
    m_timer->stop();
    m_dataSet = nullptr;
    m_replay.setSpan(0.0, 0.0);
    for (const PageEntry& entry : m_pages)
        entry.page->clear();
    updateButtons();
    moveTo(m_replay.time());
}

void DialogData::refresh()
{
    for (const PageEntry& entry : m_pages)
        entry.page->refresh();
}

void DialogData::reloadMapSettings()
{
    static_cast<DialogDataMap*>(m_pages[static_cast<std::size_t>(Page::Map)].widget)
        ->reloadSettings();
}

void DialogData::setTime(double seconds)
{
    moveTo(seconds);
}

void DialogData::setCurrentPage(Page page)
{
    m_tabs->setCurrentIndex(static_cast<int>(page));
}

void DialogData::moveTo(double seconds, std::initializer_list<Page> except)
{
    m_replay.setTime(seconds);
    passTime(except);
}

void DialogData::passTime(std::initializer_list<Page> except)
{
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        if (std::ranges::find(except, static_cast<Page>(i)) == except.end())
            m_pages[i].page->setTime(m_replay.time());
    }
    refreshDisplays();
}

void DialogData::refreshDisplays()
{
    const double seconds = m_replay.time();
    const QTime time = clockTime(seconds);
    m_isWriting = true;
    m_dateDisplay->display(m_dataSet != nullptr ? dateTimeText(m_dataSet->dateTime, seconds)
                                                : noDate);
    m_timeDisplay->display(m_dataSet != nullptr ? counterText(seconds) : noTime);
    // Whoever types a time while the replay runs must not lose the half of it.
    if (m_replay.state() != Replay::State::Running || !m_timeEdit->hasFocus())
        m_timeEdit->setTime(time);
    m_slider->setValue(m_replay.position());
    m_isWriting = false;
}

void DialogData::updateButtons()
{
    const Replay::State state = m_replay.state();
    const bool isRunning = state == Replay::State::Running;
    m_startButton->setText(isRunning                        ? tr("Replay Pause")
                           : state == Replay::State::Paused ? tr("Replay Run")
                                                            : tr("Replay Start"));
    m_startButton->setIcon(
        icon(isRunning ? QStringLiteral("replay-pause") : QStringLiteral("replay-start")));
    m_stopButton->setEnabled(state != Replay::State::Stopped);
    const bool hasData = m_dataSet != nullptr;
    m_startButton->setEnabled(hasData);
    m_slider->setEnabled(hasData);
    m_timeEdit->setEnabled(hasData);
    m_isWriting = true;
    m_speedSlider->setValue(static_cast<int>(m_replay.speed() * speedSteps));
    if (m_speedBox->value() != m_replay.speed()) // it would rewrite what is being typed
        m_speedBox->setValue(m_replay.speed());
    m_isWriting = false;
}

void DialogData::slotTimeoutReplay()
{
    m_replay.step(m_clock());
    passTime();
    if (m_replay.state() == Replay::State::Stopped) {
        m_timer->stop();
        updateButtons();
    }
}

void DialogData::slotReplayMode()
{
    m_replay.toggle(m_clock());
    if (m_replay.state() == Replay::State::Running)
        m_timer->start();
    else
        m_timer->stop();
    updateButtons();
}

void DialogData::slotReplayStop()
{
    m_timer->stop();
    m_replay.stop();
    passTime();
    updateButtons();
}

void DialogData::slotMapType(int type)
{
    if (type == hideMap) {
        m_splitter->setSizes({100, 0});
        return;
    }
    if (type != mapBeside && type != mapBelow)
        return;
    m_splitter->setOrientation(type == mapBeside ? Qt::Horizontal : Qt::Vertical);
    const QList<int> sizes = m_splitter->sizes();
    if (sizes.contains(0)) {
        const int half = (sizes[0] + sizes[1]) / 2;
        m_splitter->setSizes({half, half});
    }
}

void DialogData::slotSlider(int position)
{
    if (!m_isWriting)
        moveTo(m_replay.timeAt(position));
}

void DialogData::slotReplaySpeed(int percent)
{
    slotReplaySpeed(static_cast<double>(percent) / speedSteps);
}

void DialogData::slotReplaySpeed(double speed)
{
    if (m_isWriting)
        return;
    m_replay.setSpeed(speed);
    updateButtons();
}

void DialogData::slotValue(const QTime& time)
{
    if (m_isWriting)
        return;
    // A recording longer than a day: the clock time of the first day that fits.
    constexpr double day = 24 * 60 * 60;
    double seconds = QTime(0, 0).secsTo(time);
    const double laterDay =
        seconds + std::ceil(std::max(m_replay.first() - seconds, 0.0) / day) * day;
    if (laterDay <= m_replay.last())
        seconds = laterDay;
    moveTo(seconds);
}

void DialogData::slotCursor(float seconds, double /*value*/)
{
    moveTo(static_cast<double>(seconds), {Page::Graph, Page::Statistic});
}

void DialogData::slotTableTime(double seconds)
{
    moveTo(seconds, {Page::Table, Page::Statistic});
}

void DialogData::slotLimitTime(double seconds)
{
    moveTo(seconds, {Page::Limit, Page::Statistic});
}

void DialogData::slotFaultTime(double seconds)
{
    moveTo(seconds, {Page::FaultMatrix, Page::Statistic});
}

void DialogData::slotMapTime(double seconds)
{
    moveTo(seconds, {Page::Statistic});
}

void DialogData::slotWarningTime(double seconds)
{
    // The map stays where it is: whoever walks through the lamps keeps the place in view.
    moveTo(seconds, {Page::WarningLamps, Page::Statistic, Page::Map});
}

} // namespace KOLT
