#include "analysis/ui/OverviewPage.h"

#include "analysis/ui/TrustDelegate.h"
#include "ui/ColumnMemory.h"
#include "ui/TrustMark.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace KOLT {

namespace {

constexpr int cycleRole = Qt::UserRole; ///< number; invalid in sums
constexpr int flightRole = Qt::UserRole + 1;
constexpr int wholeCycle = -1;
constexpr int wholePercent = 100;
constexpr int worstCharacters = 18;
constexpr int leastWorstCharacters = 10;
constexpr int indentation = 14;
constexpr int columnPadding = 2;
constexpr int wholeWorstCharacters = 28; ///< with its mark

/// Left out one after the other where a window is too narrow; the rest answers what the day was.
constexpr OverviewTable::Column expendable[] = {OverviewTable::FlightFuel, OverviewTable::Exceeded,
                                                OverviewTable::Lamps, OverviewTable::Run,
                                                OverviewTable::Time};

StateMark markOf(const OverviewTable::Row& row)
{
    if (!row.isComplete || row.kind == OverviewTable::Kind::Day ||
        row.kind == OverviewTable::Kind::Outside)
        return StateMark::None;
    return KOLT::markOf(row.worst);
}

} // namespace

StateMark markOf(const std::optional<Exceedance>& worst)
{
    if (!worst)
        return StateMark::Good;
    return worst->state == ThresholdState::Limit ? StateMark::Limit : StateMark::Warning;
}

OverviewPage::OverviewPage(const Profile& profile, QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
{
    createTree();
    m_state = new QLabel(this);
    m_state->setObjectName(QStringLiteral("hint"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, wholePercent);
    m_button = new QPushButton(this);
    m_button->setAutoDefault(false);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (m_isRunning)
            emit signalCancel();
        else
            emit signalContinue();
    });
    auto* const import = new QPushButton(tr("Import Card..."), this);
    import->setObjectName(QStringLiteral("overviewImport"));
    import->setAutoDefault(false);
    import->setToolTip(tr("Copy the recordings of a card into the library, with proof"));
    connect(import, &QPushButton::clicked, this, &OverviewPage::signalImport);
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(m_state, 1);
    bottom->addWidget(m_progress);
    bottom->addWidget(m_button);
    bottom->addWidget(import);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree, 1);
    layout->addLayout(bottom);
    setFocusProxy(m_tree);
    showState();
}

void OverviewPage::createTree()
{
    m_tree = new QTreeWidget(this);
    m_tree->setObjectName(QStringLiteral("overviewTree"));
    m_tree->setAccessibleName(tr("Overview"));
    m_tree->setColumnCount(OverviewTable::columnCount);
    m_tree->setUniformRowHeights(true);
    m_tree->setIndentation(indentation);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setTextElideMode(Qt::ElideMiddle); // name and value of the worst
    m_tree->setItemDelegateForColumn(OverviewTable::Trust, new TrustDelegate(m_tree));
    QHeaderView* const header = m_tree->header();
    header->setSectionsMovable(false);
    header->setStretchLastSection(true);
    header->setHighlightSections(false);
    m_widths = new ColumnMemory(*header, QStringLiteral("Overview"));
    const QStringList headings = OverviewTable::headings();
    const QStringList explanations = OverviewTable::explanations();
    for (int column = 0; column < OverviewTable::columnCount; ++column) {
        QTreeWidgetItem* const item = m_tree->headerItem();
        // Two lines, as columns are narrow.
        QString heading = headings[column];
        if (const qsizetype blank = heading.lastIndexOf(QLatin1Char(' ')); blank >= 0)
            heading[blank] = QLatin1Char('\n');
        item->setText(column, heading);
        item->setToolTip(column, explanations[column]);
        item->setTextAlignment(column,
                               column == OverviewTable::Name || column >= OverviewTable::Trust
                                   ? Qt::AlignLeft | Qt::AlignVCenter
                                   : Qt::AlignRight | Qt::AlignVCenter);
    }
    m_tree->viewport()->installEventFilter(this);
    connect(m_tree, &QTreeWidget::itemClicked, this, &OverviewPage::open);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut = new QShortcut(key, m_tree);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this] { open(m_tree->currentItem()); });
    }
}

void OverviewPage::setOverview(const CardOverview* overview)
{
    m_overview = overview;
    fill();
}

void OverviewPage::fill()
{
    m_tree->clear();
    m_dayItems.clear();
    m_cycleItems.clear();
    m_totalItem = nullptr;
    m_shown = 0;
    m_shownTrust = 0;
    if (m_overview == nullptr) {
        showState();
        return;
    }
    const std::vector<DayOverview> days = m_overview->days();
    for (const DayOverview& day : days) {
        QTreeWidgetItem* const dayItem = addItem(nullptr, OverviewTable::dayRow(day));
        m_dayItems.push_back(dayItem);
        for (const std::size_t index : day.cycles) {
            const CycleOverview& cycle = m_overview->cycles()[index];
            m_cycleItems[cycle.number] =
                addItem(dayItem, OverviewTable::cycleRows(m_profile, cycle).front());
            if (cycle.isComplete)
                completeCycle(cycle);
        }
        dayItem->setExpanded(true);
    }
    if (days.size() > 1)
        m_totalItem = addItem(nullptr, OverviewTable::totalRow(*m_overview));
    m_shown = m_overview->completedCount();
    m_shownTrust = m_overview->trustedCount();
    if (m_tree->topLevelItemCount() > 0)
        m_tree->setCurrentItem(m_tree->topLevelItem(0));
    fitColumns();
    showState();
}

QTreeWidgetItem* OverviewPage::addItem(QTreeWidgetItem* parent, const OverviewTable::Row& row)
{
    auto* const item =
        parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(m_tree);
    setRow(*item, row);
    return item;
}

void OverviewPage::setRow(QTreeWidgetItem& item, const OverviewTable::Row& row)
{
    const bool isSum = row.kind == OverviewTable::Kind::Day;
    QFont font = m_tree->font();
    font.setBold(isSum);
    for (int column = 0; column < OverviewTable::columnCount; ++column) {
        item.setText(column, row.cells[column]);
        item.setFont(column, font);
        item.setTextAlignment(column, m_tree->headerItem()->textAlignment(column));
        if (isSum)
            item.setBackground(column, palette().color(QPalette::AlternateBase));
        if (!row.tip.isEmpty())
            item.setToolTip(column, row.tip);
    }
    for (const auto& [column, tip] : {std::pair(OverviewTable::Worst, &row.worstTip),
                                      std::pair(OverviewTable::Trust, &row.trustTip)}) {
        if (!tip->isEmpty())
            item.setToolTip(column, *tip);
    }
    if (const StateMark mark = markOf(row); mark != StateMark::None)
        item.setIcon(OverviewTable::Worst, markIcon(mark));
    if (row.severity && *row.severity != TrustSeverity::Note)
        item.setIcon(OverviewTable::Trust,
                     trustIcon(*row.severity == TrustSeverity::Wrong ? TrustMark::Wrong
                                                                     : TrustMark::Doubtful));
    if (!isSum) {
        item.setData(0, cycleRole, row.cycle);
        item.setData(0, flightRole,
                     row.kind == OverviewTable::Kind::Flight ? static_cast<int>(row.flight)
                                                             : wholeCycle);
    }
}

void OverviewPage::completeCycle(const CycleOverview& cycle)
{
    QTreeWidgetItem* const item = m_cycleItems.at(cycle.number);
    const std::vector<OverviewTable::Row> rows = OverviewTable::cycleRows(m_profile, cycle);
    setRow(*item, rows.front());
    qDeleteAll(item->takeChildren());
    for (std::size_t i = 1; i < rows.size(); ++i)
        addItem(item, rows[i]);
    item->setExpanded(true);
}

void OverviewPage::showProgress()
{
    if (m_overview == nullptr)
        return;
    const bool isNew = m_shown < m_overview->completedCount();
    while (m_shown < m_overview->completedCount())
        completeCycle(m_overview->cycles()[m_shown++]);
    const bool isTrustNew = m_shownTrust < m_overview->trustedCount();
    while (m_shownTrust < m_overview->trustedCount())
        completeCycle(m_overview->cycles()[m_shownTrust++]);
    if (isNew || isTrustNew) {
        refreshSums();
        fitColumns();
    }
    showState();
}

void OverviewPage::refreshSums()
{
    const std::vector<DayOverview> days = m_overview->days();
    for (std::size_t i = 0; i < days.size(); ++i)
        setRow(*m_dayItems[i], OverviewTable::dayRow(days[i]));
    if (m_totalItem != nullptr)
        setRow(*m_totalItem, OverviewTable::totalRow(*m_overview));
}

void OverviewPage::setRunning(bool isRunning)
{
    m_isRunning = isRunning;
    showState();
}

void OverviewPage::showState()
{
    const bool isDone = m_overview == nullptr || m_overview->isDone();
    m_progress->setVisible(!isDone);
    m_button->setVisible(!isDone);
    m_button->setText(m_isRunning ? tr("Cancel") : tr("Continue"));
    if (isDone) {
        m_state->setText(m_overview != nullptr
                             ? tr("Click a cycle or a flight to open it. Metric units.")
                             : QString());
        return;
    }
    const bool isChecking = m_overview->isComplete();
    const auto done =
        static_cast<int>(isChecking ? m_overview->trustedCount() : m_overview->completedCount());
    const auto count = static_cast<int>(m_overview->cycles().size());
    m_progress->setValue(isChecking && count > 0 ? 100 * done / count : m_overview->percent());
    const QString work = isChecking    ? tr("Checking the recordings: %1 of %2 cycles")
                         : m_isRunning ? tr("Reading: %1 of %2 cycles")
                                       : tr("Cancelled: %1 of %2 cycles were read");
    m_state->setText(work.arg(done).arg(count));
}

void OverviewPage::refreshUnits()
{
    if (m_overview == nullptr)
        return;
    for (std::size_t i = 0; i < m_shown; ++i)
        completeCycle(m_overview->cycles()[i]);
    fitColumns();
}

void OverviewPage::focusRows()
{
    m_tree->setFocus(Qt::OtherFocusReason);
}

void OverviewPage::fitColumns()
{
    int width = 0;
    m_tree->headerItem()->setText(OverviewTable::Trust,
                                  OverviewTable::headings()[OverviewTable::Trust]);
    for (int column = 0; column < OverviewTable::Worst; ++column) {
        m_tree->setColumnHidden(column, false);
        m_tree->resizeColumnToContents(column);
        m_tree->setColumnWidth(column, m_tree->columnWidth(column) + columnPadding);
    }
    m_widths->restore();
    for (int column = 0; column < OverviewTable::Worst; ++column)
        width += m_tree->columnWidth(column);
    const int character = m_tree->fontMetrics().averageCharWidth();
    for (const OverviewTable::Column column : expendable) {
        // When it was is worth more than all of the worst.
        const int worst = column == OverviewTable::Time ? leastWorstCharacters : worstCharacters;
        if (width + character * worst <= m_tree->viewport()->width())
            break;
        width -= m_tree->columnWidth(column);
        m_tree->setColumnHidden(column, true);
    }
    if (width + character * wholeWorstCharacters > m_tree->viewport()->width()) {
        m_tree->headerItem()->setText(OverviewTable::Trust, {});
        m_tree->setColumnWidth(OverviewTable::Trust, TrustDelegate::markWidth());
    }
}

void OverviewPage::open(const QTreeWidgetItem* item)
{
    if (item == nullptr || !item->data(0, cycleRole).isValid())
        return;
    emit signalOpen(item->data(0, cycleRole).toInt(), item->data(0, flightRole).toInt());
}

/// The rows' own size: while the page is hidden they do not follow it.
bool OverviewPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tree->viewport() && event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

void OverviewPage::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool isOtherLook =
        event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange;
    if (isOtherLook && m_button != nullptr)
        fill();
}

} // namespace KOLT
