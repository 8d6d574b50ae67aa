#include "analysis/ui/DialogData.h"

#include "analysis/ui/DialogDataLimit.h"
#include "analysis/ui/DialogDataStatistic.h"
#include "analysis/ui/DialogDataTable.h"
#include "analysis/ui/DialogDataWarning.h"
#include "analysis/ui/MapSplitter.h"
#include "analysis/ui/PageTabs.h"
#include "analysis/ui/ReplayBar.h"
#include "analysis/ui/WidgetFaultMatrix.h"
#include "libs/tusk/misc/Timer.h"

#include <QButtonGroup>
#include <QEvent>
#include <QLabel>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QStyle>
#include <QTime>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int replayMilliseconds = 20;

} // namespace

DialogData::DialogData(const Profile& profile, const HostedPages& pages, Display display,
                       QWidget* parent, Clock clock)
    : QWidget(parent)
    , m_clock(clock ? std::move(clock) : Clock(TUSK::Misc::Timer::getTime))
{
    if (display == Display::EmuOnly) {
        // The style sheet has a dark look for it, and must find the name before the widgets.
        setObjectName(QStringLiteral("emuDisplay"));
        setAttribute(Qt::WA_StyledBackground);
    }
    m_timer.setInterval(replayMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &DialogData::slotTimeoutReplay);
    // The keyboard focus goes through the widgets in the order of their creation.
    QBoxLayout* const topRow = createTopRow();
    m_splitter = new MapSplitter(this);
    m_stack = new QStackedWidget(m_splitter);
    createPages(profile, pages);
    m_splitter->setSizes({200, 300});
    createReplayBar(display);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(topRow);
    m_area = new QStackedLayout;
    m_area->addWidget(m_splitter);
    layout->addLayout(m_area, 1);
    layout->addWidget(m_bar);
    if (display == Display::EmuOnly) {
        m_tabs->hide();
        for (QAbstractButton* button : m_mapButtons->buttons())
            button->hide();
        m_splitter->widget(1)->hide();
    }
}

QBoxLayout* DialogData::createTopRow()
{
    m_tabs = new PageTabs(this);
    m_tabs->add(QStringLiteral("tab-data"), tr("Data"));
    m_tabs->add(QStringLiteral("tab-graph"), tr("Graph"));
    m_tabs->add(QStringLiteral("tab-fault-matrix"), tr("Fault Matrix"));
    m_tabs->add(QStringLiteral("tab-limit"), tr("Limit/Warning"));
    m_tabs->add(QStringLiteral("tab-warning-lamps"), tr("Warning Lamps"));
    m_tabs->add(QStringLiteral("tab-statistic"), tr("Tow Statistic"));
    m_tabs->add(QStringLiteral("tab-emu-view"), tr("EMU View"));
    connect(m_tabs, &QTabBar::tabBarClicked, this, [this] { showFront(false); });
    connect(m_tabs, &QTabBar::currentChanged, this, [this] {
        showFront(false);
        if (m_stack->currentWidget() != m_loading)
            showCurrentPage();
    });

    m_mapButtons = new QButtonGroup(this);
    m_mapButtons->setExclusive(true);
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    createFrontButton(*row);
    row->addWidget(m_tabs, 1);
    row->addWidget(
        createMapButton(MapSplitter::hideMap, QStringLiteral("map-hide"), tr("Hide Map Display")));
    row->addWidget(createMapButton(MapSplitter::mapBeside, QStringLiteral("map-horizontal"),
                                   tr("Tile Map Display Horizontally")));
    row->addWidget(createMapButton(MapSplitter::mapBelow, QStringLiteral("map-vertical"),
                                   tr("Tile Map Display Vertically")));
    m_mapButtons->button(MapSplitter::mapBeside)->setChecked(true);
    connect(m_mapButtons, &QButtonGroup::idClicked, this, &DialogData::slotMapType);
    return row;
}

QToolButton* DialogData::createMapButton(int type, const QString& icon, const QString& tip)
{
    auto* const button = new QToolButton(this);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(icon)));
    button->setToolTip(tip);
    m_mapButtons->addButton(button, type);
    return button;
}

void DialogData::createFrontButton(QBoxLayout& row)
{
    m_frontButton = new QToolButton(this);
    m_frontButton->setObjectName(QStringLiteral("overviewButton"));
    m_frontButton->setCheckable(true);
    m_frontButton->setAutoRaise(true);
    m_frontButton->setIcon(QIcon(QStringLiteral(":/icons/overview.svg")));
    m_frontButton->setToolTip(tr("Overview of the open folder (Esc in the lists)"));
    m_frontButton->hide();
    connect(m_frontButton, &QToolButton::clicked, this, &DialogData::showFront);
    row.addWidget(m_frontButton);
}

void DialogData::addBar(QWidget* bar)
{
    auto* const column = static_cast<QBoxLayout*>(layout());
    column->insertWidget(column->indexOf(m_area), bar);
}

void DialogData::setFront(QWidget* front)
{
    m_area->addWidget(front);
    m_frontButton->show();
}

void DialogData::showFront(bool isShown)
{
    if (m_area == nullptr || m_area->count() < 2) // there is none
        return;
    m_area->setCurrentIndex(isShown ? 1 : 0);
    m_frontButton->setChecked(isShown);
    // No tab looks chosen while the front is there.
    m_tabs->setProperty("isBehind", isShown);
    m_tabs->style()->polish(m_tabs);
}

void DialogData::createPages(const Profile& profile, const HostedPages& pages)
{
    auto* const table = new DialogDataTable(profile);
    auto* const faults = new WidgetFaultMatrix(profile);
    auto* const limits = new DialogDataLimit(profile);
    auto* const lamps = new DialogDataWarning(profile);
    m_lists = {limits, lamps};
    m_statistic = new DialogDataStatistic;
    // In the order of the tabs.
    const std::pair<Page, HostedPage> tabbed[] = {
        {Page::Table, hosted(table)},        {Page::Graph, pages.graph},
        {Page::FaultMatrix, hosted(faults)}, {Page::Limit, hosted(limits)},
        {Page::WarningLamps, hosted(lamps)}, {Page::Statistic, hosted(m_statistic)},
        {Page::EmuView, pages.emuView}};
    for (const auto& [place, page] : tabbed)
        m_stack->addWidget(m_pages.add(place, page, m_stack));
    m_splitter->addWidget(m_stack);
    m_splitter->addWidget(m_pages.add(Page::Map, pages.map, m_splitter));
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

void DialogData::createReplayBar(Display display)
{
    m_bar = new ReplayBar(
        m_replay,
        display == Display::EmuOnly ? ReplayBar::Extent::SingleRow : ReplayBar::Extent::Full, this);
    connect(m_bar, &ReplayBar::signalFinding, this, &DialogData::signalFinding);
    connect(m_bar, &ReplayBar::signalMode, this, &DialogData::slotReplayMode);
    connect(m_bar, &ReplayBar::signalStop, this, &DialogData::slotReplayStop);
    connect(m_bar, &ReplayBar::signalPosition, this, &DialogData::slotSlider);
    connect(m_bar, &ReplayBar::signalClockTime, this, &DialogData::slotValue);
    connect(m_bar, qOverload<int>(&ReplayBar::signalSpeed), this,
            qOverload<int>(&DialogData::slotReplaySpeed));
    connect(m_bar, qOverload<double>(&ReplayBar::signalSpeed), this,
            qOverload<double>(&DialogData::slotReplaySpeed));
}

void DialogData::setTrust(const std::shared_ptr<const RecordingTrust>& trust)
{
    m_bar->setTrust(trust);
    m_statistic->setTrust(trust);
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

void DialogData::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_bar != nullptr) // else still being made
        refresh(DataPage::Change::Font);
}

void DialogData::setData(const DataSet& dataSet)
{
    m_timer.stop();
    m_replay.setSpan(dataSet.startSeconds, dataSet.stopSeconds);
    m_pages.setData(&dataSet);
    m_bar->setData(&dataSet);
    moveTo(m_replay.time());
    showFront(false);
    showCurrentPage();
}

void DialogData::beginLoading(const QString& text)
{
    showFront(false);
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
    m_timer.stop();
    m_replay.setSpan(0.0, 0.0);
    m_pages.setData(nullptr);
    m_bar->setData(nullptr);
    moveTo(m_replay.time());
}

void DialogData::refresh(DataPage::Changes changes)
{
    m_pages.refresh(changes);
}

void DialogData::setTime(double seconds)
{
    moveTo(seconds);
}

void DialogData::setCurrentPage(Page page)
{
    showFront(false);
    m_tabs->setCurrentIndex(static_cast<int>(page));
}

void DialogData::moveTo(double seconds, std::initializer_list<Page> except)
{
    m_replay.setTime(seconds);
    m_pages.setTime(seconds, except);
    m_bar->showTime();
}

void DialogData::slotTimeoutReplay()
{
    m_replay.step(m_clock());
    moveTo(m_replay.time());
    if (m_replay.state() == Replay::State::Stopped) {
        m_timer.stop();
        m_bar->showState();
    }
}

void DialogData::slotReplayMode()
{
    m_replay.toggle(m_clock());
    if (m_replay.state() == Replay::State::Running)
        m_timer.start();
    else
        m_timer.stop();
    m_bar->showState();
}

void DialogData::slotReplayStop()
{
    m_timer.stop();
    m_replay.stop();
    moveTo(m_replay.time());
    m_bar->showState();
}

void DialogData::slotMapType(int type)
{
    if (type >= MapSplitter::hideMap && type <= MapSplitter::mapBelow)
        m_splitter->arrange(static_cast<MapSplitter::MapType>(type));
}

void DialogData::slotSlider(int position)
{
    moveTo(m_replay.timeAt(position));
}

void DialogData::slotReplaySpeed(int percent)
{
    slotReplaySpeed(percent / 100.0);
}

void DialogData::slotReplaySpeed(double speed)
{
    m_replay.setSpeed(speed);
    m_bar->showState();
}

void DialogData::slotValue(const QTime& time)
{
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
