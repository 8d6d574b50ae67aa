#include "analysis/ui/DialogDataTable.h"

#include "analysis/ui/WidgetTimeTable.h"
#include "ui/ButtonRow.h"
#include "ui/ContentOrNote.h"
#include "ui/PaintedIcon.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int pageMargin = 3;

qint64 cellCount(const QItemSelection& selection)
{
    qint64 count = 0;
    for (const QItemSelectionRange& range : selection)
        count += qint64{range.width()} * range.height();
    return count;
}

/// The cells as lines of tab-separated text below their headings, empty where a cell between them
/// is not selected.
QString tabSeparated(const TimeTableModel& model, QModelIndexList cells)
{
    std::sort(cells.begin(), cells.end()); // by row, then column
    const auto [first, last] = std::ranges::minmax(cells, {}, &QModelIndex::column);
    const auto gap = [&](int from, int to) { // the tabs of the columns between
        const bool hasClock = from <= TimeTableModel::timeColumn && TimeTableModel::timeColumn < to;
        return QString(to - from + (hasClock && model.isClockShown() ? 1 : 0), QLatin1Char('\t'));
    };
    QString text;
    for (int column = first.column(); column <= last.column(); ++column) {
        text += model.headerData(column, Qt::Horizontal, TimeTableModel::copyRole).toString();
        text += QLatin1Char(column < last.column() ? '\t' : '\n');
    }
    int row = -1;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const QModelIndex& cell = cells[i];
        const bool isFirst = cell.row() != row;
        row = cell.row();
        text += isFirst ? gap(first.column(), cell.column())
                        : QString(cell.column() - cells[i - 1].column(), QLatin1Char('\t'));
        text += cell.data(TimeTableModel::copyRole).toString();
        if (i + 1 == cells.size() || cells[i + 1].row() != row)
            text += QString(last.column() - cell.column(), QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

} // namespace

DialogDataTable::DialogDataTable(const Profile& profile, QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
    , m_model(profile)
{
    m_previousChange = createAction(tr("Previous change"), QStringLiteral("change-previous"),
                                    QKeySequence(Qt::CTRL | Qt::Key_Up),
                                    tr("Jump to the previous change of the selected column"));
    m_nextChange = createAction(tr("Next change"), QStringLiteral("change-next"),
                                QKeySequence(Qt::CTRL | Qt::Key_Down),
                                tr("Jump to the next change of the selected column"));
    connect(m_previousChange, &QAction::triggered, this,
            [this] { jumpToChange(TimeTableModel::Direction::Back); });
    connect(m_nextChange, &QAction::triggered, this,
            [this] { jumpToChange(TimeTableModel::Direction::Forward); });
    createView();

    m_hint = new QLabel(this);
    m_hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // must not widen the page
    auto* const bar = new ButtonRow(this);
    for (QAction* action : {m_previousChange, m_nextChange})
        setTabOrder(bar->add(action), m_view);
    bar->addStretch();
    auto* const table = new QWidget(this);
    auto* const tableLayout = new QVBoxLayout(table);
    tableLayout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    tableLayout->addWidget(bar);
    tableLayout->addWidget(m_view);
    auto* const clock = new QToolButton(this);
    clock->setDefaultAction(m_clock);
    clock->setAutoRaise(true);
    auto* const footer = new QHBoxLayout;
    footer->addWidget(m_hint, 1);
    footer->addWidget(clock);
    tableLayout->addLayout(footer);

    m_shown = new ContentOrNote(this, table);
    showData(Change::Data);
}

QAction* DialogDataTable::createAction(const QString& text, const QString& icon,
                                       const QKeySequence& shortcut, const QString& tip)
{
    auto* const action = new QAction(lookIcon(icon), text, this);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(tip, shortcut.toString(QKeySequence::NativeText)));
    addAction(action);
    return action;
}

void DialogDataTable::createView()
{
    m_view = new WidgetTimeTable(this);
    m_view->setModel(&m_model);
    m_copy = new QAction(lookIcon(QStringLiteral("copy")), tr("Copy"), this);
    m_copy->setShortcut(QKeySequence::Copy); // shown in the menu; the view handles the key
    m_copy->setShortcutContext(Qt::WidgetShortcut);
    connect(m_copy, &QAction::triggered, this, &DialogDataTable::copySelection);
    connect(m_view, &WidgetTimeTable::signalPicked, this, &DialogDataTable::pick);
    connect(m_view, &WidgetTimeTable::signalCopy, this, &DialogDataTable::copySelection);
    m_clock = new QAction(tr("Clock time"), this);
    m_clock->setCheckable(true);
    m_clock->setToolTip(tr("Show the clock time beside the time on the unit's counter"));
    connect(m_clock, &QAction::toggled, this, &DialogDataTable::setClockShown);
    connect(m_clock, &QAction::triggered, this, &DialogDataTable::signalClockShown);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_view->addActions({m_copy, m_previousChange, m_nextChange, m_clock});
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &DialogDataTable::slotCurrentRow);
}

void DialogDataTable::dropData()
{
    const bool wasFollowing = std::exchange(m_isFollowing, true);
    m_view->setTimeRow(-1);
    m_model.clear();
    m_isFollowing = wasFollowing;
}

void DialogDataTable::showData(Changes changes)
{
    if (!changes.testAnyFlags(Change::Data | Change::Selection)) {
        m_model.tellNewTexts();
        m_view->fitColumns();
        return;
    }
    dropData();
    std::vector<const ProfileParameter*> parameters = m_profile.selectedParameters();
    const bool hasParameters = !parameters.empty();
    if (dataSet() != nullptr && hasParameters)
        m_model.setTable(*dataSet(), std::move(parameters));
    if (m_model.rowCount() > 0) {
        m_view->fitColumns();
        showRowCount();
        m_shown->showContent();
    } else if (dataSet() == nullptr) {
        m_shown->showNote(
            tr("Choose a cycle or a flight on the left to see its values.\nF1 opens the help."));
    } else if (!hasParameters) {
        m_shown->showNote(tr("No parameters are selected. Check some in the list on the left and "
                             "press \"Confirm Selection\"."));
    } else {
        m_shown->showNote(tr("The selected parameters have no samples in this data set."));
    }
}

void DialogDataTable::setClockShown(bool isShown)
{
    m_clock->setChecked(isShown);
    m_model.setClockShown(isShown);
    if (m_model.rowCount() > 0)
        m_view->fitColumns();
}

void DialogDataTable::showRowCount()
{
    m_hint->setText(tr("%Ln row(s)", nullptr, m_model.rowCount()));
}

void DialogDataTable::showTime()
{
    if (m_model.rowCount() == 0)
        return;
    const bool wasFollowing = std::exchange(m_isFollowing, true);
    m_view->setTimeRow(m_model.setMoment(time()));
    m_isFollowing = wasFollowing;
}

void DialogDataTable::slotCurrentRow(const QModelIndex& current, const QModelIndex& /*previous*/)
{
    if (!m_isFollowing && current.isValid())
        pick(current.row());
}

void DialogDataTable::pick(int row)
{
    const double seconds = m_model.table().lastSeconds(static_cast<std::size_t>(row));
    keepTime(seconds);
    showTime();
    emit signalTime(seconds);
}

void DialogDataTable::jumpToChange(TimeTableModel::Direction direction)
{
    const QModelIndex from = m_view->currentIndex();
    if (from.column() == TimeTableModel::timeColumn) {
        m_hint->setText(tr("First select a cell of the parameter to search."));
        return;
    }
    const int row = m_model.changedRow(from, direction);
    if (row < 0) {
        m_hint->setText(direction == TimeTableModel::Direction::Forward
                            ? tr("No further change in this column.")
                            : tr("No earlier change in this column."));
        return;
    }
    showRowCount();
    m_view->setCurrentIndex(m_model.index(row, from.column()));
}

void DialogDataTable::copySelection()
{
    const QItemSelection selection = m_view->selectionModel()->selection();
    if (selection.isEmpty())
        return;
    if (cellCount(selection) > maxCopiedCells) {
        QMessageBox::information(
            this, tr("KOLT Info"),
            tr("Not copied: more than %L1 cells are selected.\nSelect fewer, or "
               "export the data as a CSV file.")
                .arg(maxCopiedCells));
        return;
    }
    m_model.clearMoment();
    QApplication::clipboard()->setText(tabSeparated(m_model, selection.indexes()));
    m_model.setMoment(time());
}

} // namespace KOLT
