// Creates and connects the parts of the data window.
#include "analysis/ui/DialogData.h"
#include "analysis/ui/DialogDataLimit.h"
#include "analysis/ui/DialogDataStatistic.h"
#include "analysis/ui/DialogDataTable.h"
#include "analysis/ui/DialogDataWarning.h"
#include "analysis/ui/MapSplitter.h"
#include "analysis/ui/PageTabs.h"
#include "analysis/ui/ReplayBar.h"
#include "analysis/ui/WidgetFaultMatrix.h"
#include "analysis/ui/WidgetTimeTable.h"
#include "ui/EmptyNote.h"
#include "ui/PaintedIcon.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QIcon>
#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>

namespace KOLT {

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
        emit signalArranged();
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
    button->setIcon(lookIcon(icon));
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
    m_frontButton->setIcon(lookIcon(QStringLiteral("overview")));
    m_frontButton->setToolTip(tr("Overview of the open folder (Esc in the lists)"));
    m_frontButton->hide();
    connect(m_frontButton, &QToolButton::clicked, this, &DialogData::showFront);
    row.addWidget(m_frontButton);
}

void DialogData::createPages(const Profile& profile, const HostedPages& pages)
{
    m_table = new DialogDataTable(profile);
    m_faults = new WidgetFaultMatrix(profile);
    auto* const limits = new DialogDataLimit(profile);
    auto* const lamps = new DialogDataWarning(profile);
    m_lists = {limits, lamps};
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        if (pages.cards[i].widget != nullptr)
            m_lists[i]->setCard(pages.cards[i].view, pages.cards[i].widget);
    }
    m_statistic = new DialogDataStatistic;
    // In the order of the tabs.
    const std::pair<Page, HostedPage> tabbed[] = {
        {Page::Table, hosted(m_table)},        {Page::Graph, pages.graph},
        {Page::FaultMatrix, hosted(m_faults)}, {Page::Limit, hosted(limits)},
        {Page::WarningLamps, hosted(lamps)},   {Page::Statistic, hosted(m_statistic)},
        {Page::EmuView, pages.emuView}};
    for (const auto& [place, page] : tabbed)
        m_stack->addWidget(m_pages.add(place, page, m_stack));
    m_splitter->addWidget(m_stack);
    m_splitter->addWidget(m_pages.add(Page::Map, pages.map, m_splitter));
    m_columns = m_table->findChild<WidgetTimeTable*>();
    connect(m_columns, &WidgetTimeTable::signalWidth, this, &DialogData::signalArranged);
    connect(m_splitter, &QSplitter::splitterMoved, this, &DialogData::signalArranged);
    m_loading = new EmptyNote(m_stack);
    m_stack->addWidget(m_loading);
    connectPages();
}

void DialogData::connectPages()
{
    connect(m_table, &DialogDataTable::signalTime, this, &DialogData::slotTableTime);
    connect(m_faults, &WidgetFaultMatrix::signalTime, this, &DialogData::slotFaultTime);
    connect(m_faults, &WidgetFaultMatrix::signalShowInGraph, this, &DialogData::signalShowInGraph);
    connect(m_table, &DialogDataTable::signalClockShown, this, [this](bool isShown) {
        m_pageSettings.hasClock = isShown;
        emit signalPageSettings(m_pageSettings);
    });
    const auto& [limits, lamps] = m_lists;
    connect(limits, &DialogEventList::signalTime, this, &DialogData::slotLimitTime);
    connect(lamps, &DialogEventList::signalTime, this, &DialogData::slotWarningTime);
    for (const DialogEventList* list : m_lists) {
        connect(list, &DialogEventList::signalShowInGraph, this, &DialogData::signalShowInGraph);
        connect(list, &DialogEventList::signalCardPercent, this, [this](int percent) {
            m_pageSettings.cardPercent = percent;
            setPageSettings(m_pageSettings);
            emit signalPageSettings(m_pageSettings);
        });
    }
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

} // namespace KOLT
