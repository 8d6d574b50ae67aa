#include "analysis/ui/DialogData.h"

#include "analysis/ui/DialogDataStatistic.h"
#include "analysis/ui/DialogDataTable.h"
#include "analysis/ui/DialogEventList.h"
#include "analysis/ui/MapSplitter.h"
#include "analysis/ui/PageTabs.h"
#include "analysis/ui/ReplayBar.h"
#include "analysis/ui/WidgetFaultMatrix.h"
#include "analysis/ui/WidgetTimeTable.h"
#include "libs/tusk/misc/Timer.h"

#include <QApplication>
#include <QButtonGroup>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
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
    m_splitter->restore(MapSplitter::mapBeside, {});
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

void DialogData::setTrust(const std::shared_ptr<const RecordingTrust>& trust)
{
    m_bar->setTrust(trust);
    m_statistic->setTrust(trust);
}

void DialogData::setListSettings(const ListSettings& settings)
{
    for (DialogEventList* list : m_lists)
        list->setSettings(settings);
    m_faults->setSettings(settings);
}

void DialogData::setPageSettings(const PageSettings& settings)
{
    m_pageSettings = settings;
    m_table->setClockShown(settings.hasClock);
    for (DialogEventList* list : m_lists)
        list->setCardPercent(settings.cardPercent);
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

DialogData::Arrangement DialogData::arrangement() const
{
    return {static_cast<Page>(m_tabs->currentIndex()), m_mapButtons->checkedId(),
            m_splitter->sizes(), m_columns->chosenWidths()};
}

void DialogData::arrange(const Arrangement& arrangement)
{
    m_tabs->setCurrentIndex(static_cast<int>(arrangement.page));
    m_columns->setChosenWidths(arrangement.columns);
    if (QAbstractButton* const button = m_mapButtons->button(arrangement.map); button != nullptr) {
        button->setChecked(true);
        m_splitter->restore(static_cast<MapSplitter::MapType>(arrangement.map), arrangement.sizes);
    }
}

void DialogData::goToPage(Page page)
{
    const QWidget* const focus = QApplication::focusWidget();
    const bool isBehind = m_area->currentIndex() != 0;
    const bool hadFocus = (isBehind ? m_area->currentWidget() : m_stack)->isAncestorOf(focus);
    setCurrentPage(page);
    if (!hadFocus)
        return;
    // What shows the data, rather than the fields above it.
    for (QWidget* widget : m_stack->currentWidget()->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->focusPolicy() >= Qt::StrongFocus &&
            qobject_cast<QLineEdit*>(widget) == nullptr) {
            widget->setFocus(Qt::ShortcutFocusReason);
            return;
        }
    }
}

bool DialogData::hasData() const
{
    return m_pages[Page::Table].dataSet() != nullptr;
}

void DialogData::toggleReplay()
{
    if (hasData())
        slotReplayMode();
}

void DialogData::stepTime(double seconds)
{
    if (hasData())
        moveTo(std::clamp(m_replay.time() + seconds, m_replay.first(), m_replay.last()));
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
    if (type < MapSplitter::hideMap || type > MapSplitter::mapBelow)
        return;
    const std::pair before(m_splitter->isMapShown(), m_splitter->orientation());
    m_splitter->arrange(static_cast<MapSplitter::MapType>(type));
    if (type != MapSplitter::hideMap && before != std::pair(true, m_splitter->orientation()))
        emit signalMapPlaced();
    emit signalArranged();
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
    // The field has no days: of the matching times within the data it means the nearest.
    constexpr double day = 24 * 60 * 60;
    const double clock = QTime(0, 0).secsTo(time);
    double seconds = clock + std::round((m_replay.time() - clock) / day) * day;
    if (seconds < m_replay.first() && seconds + day <= m_replay.last())
        seconds += day;
    else if (seconds > m_replay.last() && seconds - day >= m_replay.first())
        seconds -= day;
    moveTo(std::clamp(seconds, m_replay.first(), m_replay.last()));
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
