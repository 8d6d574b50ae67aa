#include "analysis/ui/DialogData.h"

#include "analysis/ui/DialogDataLimit.h"
#include "analysis/ui/DialogDataStatistic.h"
#include "analysis/ui/DialogDataTable.h"
#include "analysis/ui/DialogDataWarning.h"
#include "analysis/ui/WidgetFaultMatrix.h"
#include "libs/tusk/misc/Timer.h"
#include "record/ClockTime.h"
#include "ui/WidgetNoGl.h"

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

DialogData::DialogData(const Profile& profile, const HostedPages& pages, Display display,
                       QWidget* parent, Clock clock)
    : QWidget(parent)
    , m_profile(profile)
    , m_clock(clock ? std::move(clock) : Clock(TUSK::Misc::Timer::getTime))
{
    const bool isEmuDisplay = display == Display::EmuOnly;
    if (isEmuDisplay) { // the style sheet has a dark look for this name
        setObjectName(QStringLiteral("emuDisplay"));
        setAttribute(Qt::WA_StyledBackground);
    }
    m_timer = new QTimer(this);
    m_timer->setInterval(replayMilliseconds);
    connect(m_timer, &QTimer::timeout, this, &DialogData::slotTimeoutReplay);
    m_splitter = new QSplitter(Qt::Horizontal, this);
    m_stack = new QStackedWidget(m_splitter);
    createPages(pages);
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

void DialogData::addPage(Page page, HostedPage hosted)
{
    hosted.widget->setParent(page == Page::Map ? static_cast<QWidget*>(m_splitter) : m_stack);
    hosted.widget = WidgetNoGl::shown(hosted.widget);
    m_pages[static_cast<std::size_t>(page)] = hosted;
    hosted.widget->installEventFilter(this);
    if (page != Page::Map)
        m_stack->addWidget(hosted.widget);
}

void DialogData::createPages(const HostedPages& pages)
{
    auto* const table = new DialogDataTable(m_profile, m_stack);
    auto* const faults = new WidgetFaultMatrix(m_profile, m_stack);
    auto* const limits = new DialogDataLimit(m_profile, m_stack);
    auto* const lamps = new DialogDataWarning(m_profile, m_stack);
    m_lists = {limits, lamps};
    // In the order of the tabs.
    addPage(Page::Table, hosted(table));
    addPage(Page::Graph, pages.graph);
    addPage(Page::FaultMatrix, hosted(faults));
    addPage(Page::Limit, hosted(limits));
    addPage(Page::WarningLamps, hosted(lamps));
    addPage(Page::Statistic, hosted(new DialogDataStatistic(m_stack)));
    addPage(Page::EmuView, pages.emuView);
    addPage(Page::Map, pages.map);
    m_loading = new QLabel(m_stack);
    m_loading->setObjectName(QStringLiteral("emptyState"));
    m_loading->setTextFormat(Qt::PlainText); // names of files may look like markup
    m_loading->setAlignment(Qt::AlignCenter);
    m_stack->addWidget(m_loading);
    connect(table, &DialogDataTable::signalTime, this, &DialogData::slotTableTime);
    connect(faults, &WidgetFaultMatrix::signalTime, this, &DialogData::slotFaultTime);
    connect(limits, &DialogEventList::signalTime, this, &DialogData::slotLimitTime);
    connect(lamps, &DialogEventList::signalTime, this, &DialogData::slotWarningTime);
}

void DialogData::setListSettings(const ListSettings& settings)
{
    for (DialogEventList* list : m_lists)
        list->setSettings(settings);
}

void DialogData::showCurrentPage()
{
    m_stack->setCurrentIndex(m_tabs->currentIndex());
}

bool DialogData::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        const auto entry = std::ranges::find(m_pages, watched, &HostedPage::widget);
        if (entry != m_pages.end())
            entry->page->setShown(event->type() == QEvent::Show);
    }
    return QWidget::eventFilter(watched, event);
}

void DialogData::resizeEvent(QResizeEvent* event)
{
    // In a narrow window the tabs' texts matter more than their icons.
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
    // Pages size rows and columns by the font.
    if (event->type() == QEvent::FontChange && m_loading != nullptr)
        refresh(DataPage::Change::Font);
}

void DialogData::setData(const DataSet& dataSet)
{
    m_timer->stop();
    m_dataSet = &dataSet;
    m_replay.setSpan(dataSet.startSeconds, dataSet.stopSeconds);
    for (const HostedPage& entry : m_pages)
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
    for (const HostedPage& entry : m_pages)
        entry.page->clear();
    updateButtons();
    moveTo(m_replay.time());
}

void DialogData::refresh(DataPage::Changes changes)
{
    for (const HostedPage& entry : m_pages)
        entry.page->refresh(changes);
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
    // The replay must not overwrite a time that is being typed.
    if (m_replay.state() != Replay::State::Running || !m_typing.isActive())
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
    if (m_speedBox->value() != m_replay.speed()) // setting it reformats the text being typed
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
    // In a recording of several days, the field means the first matching time within the data.
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
    // The map keeps its place while the user walks through the lamps.
    moveTo(seconds, {Page::WarningLamps, Page::Statistic, Page::Map});
}

} // namespace KOLT
