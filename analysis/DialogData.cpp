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
                                                : QString(noDate));
    m_timeDisplay->display(m_dataSet != nullptr ? counterText(seconds) : QString(noTime));
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
