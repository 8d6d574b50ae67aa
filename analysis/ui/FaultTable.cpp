#include "analysis/ui/FaultTable.h"

#include "analysis/MomentText.h"
#include "analysis/ui/GraphAction.h"
#include "analysis/ui/RowPicker.h"
#include "base/Csv.h"
#include "ui/ColumnMemory.h"
#include "ui/DialogFolders.h"
#include "ui/Messages.h"
#include "ui/PaintedIcon.h"
#include "ui/SaveDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace KOLT {

namespace {

constexpr int padding = 12;
constexpr int nameCharacters = 18;
constexpr int leastNameCharacters = 10;

} // namespace

FaultTable::FaultTable(QWidget* parent)
    : QTableView(parent)
{
    setModel(&m_model);
    setAccessibleName(tr("Occurrences of the faults"));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle); // such as "Sensor 1 A" at the end
    setShowGrid(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_widths = new ColumnMemory(*horizontalHeader(), QStringLiteral("Faults"));
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FaultTable::slotCurrentRow);
    auto* const picker = new RowPicker(this);
    connect(picker, &RowPicker::signalPicked, this, &FaultTable::report);
    connect(picker, &RowPicker::signalCopy, this, &FaultTable::copy);
    createMenu();
}

void FaultTable::createMenu()
{
    QAction* const graphAction = createGraphAction(*this);
    connect(graphAction, &QAction::triggered, this, &FaultTable::showInGraph);
    auto* const copyAction = new QAction(lookIcon(QStringLiteral("copy")), tr("Copy"), this);
    copyAction->setShortcut(QKeySequence::Copy); // shown in the menu; the picker handles the key
    copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAction, &QAction::triggered, this, &FaultTable::copy);
    auto* const saveAction =
        new QAction(lookIcon(QStringLiteral("export-csv")), tr("Save list as CSV"), this);
    connect(saveAction, &QAction::triggered, this, &FaultTable::save);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    addActions({graphAction, copyAction, saveAction});
}

void FaultTable::setFaults(const std::vector<const FaultHistory*>& faults, const DataSet* dataSet)
{
    const bool wasFollowing = std::exchange(m_isFollowing, true);
    m_dataSet = dataSet;
    m_model.setFaults(faults);
    m_isFollowing = wasFollowing;
}

void FaultTable::fit()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2);
    const int time = fontMetrics().horizontalAdvance(counterText(0)) + padding;
    const int duration = time * 3 / 4;
    const int character = fontMetrics().averageCharWidth();
    // In a narrow page the end is worth more than the middle of a name.
    setColumnWidth(FaultListModel::Fault,
                   std::clamp(viewport()->width() - 2 * time - duration,
                              character * leastNameCharacters, character * nameCharacters));
    setColumnWidth(FaultListModel::Begin, time);
    setColumnWidth(FaultListModel::Duration, duration);
    m_widths->restore();
}

void FaultTable::showTime(double seconds)
{
    if (selectionModel()->selectedRows().size() > 1)
        return;
    const int row = m_model.rowAt(seconds);
    const int current = currentIndex().row();
    const auto startOf = [this](int each) { return m_model.occurrence(each).interval->start; };
    // Of several that began at once the user's stays.
    const bool isThere = row >= 0 && current >= 0 && startOf(row) == startOf(current);
    highlight(isThere ? current : row);
}

void FaultTable::showOccurrence(const FaultEntry& occurrence)
{
    highlight(m_model.rowOf(occurrence));
}

void FaultTable::highlight(int row)
{
    if (row < 0)
        return;
    const bool wasFollowing = std::exchange(m_isFollowing, true);
    if (row != currentIndex().row() || !selectionModel()->isRowSelected(row))
        selectRow(row);
    scrollTo(m_model.index(row, 0));
    m_isFollowing = wasFollowing;
}

void FaultTable::slotCurrentRow(const QModelIndex& current)
{
    if (!m_isFollowing && current.isValid())
        report(current.row());
}

void FaultTable::report(int row)
{
    emit signalTime(m_model.occurrence(row).interval->start);
}

void FaultTable::showInGraph()
{
    if (currentIndex().isValid())
        emit signalShowInGraph(m_model.occurrence(currentIndex().row()).target());
}

void FaultTable::copy() const
{
    const auto line = [this](const auto& textOf) {
        QStringList cells;
        for (int column = 0; column < FaultListModel::ColumnCount; ++column)
            cells << textOf(column).toString();
        return cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    };
    QModelIndexList rows = selectionModel()->selectedRows();
    if (rows.isEmpty())
        return;
    std::sort(rows.begin(), rows.end());
    QString text = line([this](int column) { return m_model.headerData(column, Qt::Horizontal); });
    for (const QModelIndex& row : std::as_const(rows))
        text += line([&](int column) { return row.siblingAtColumn(column).data(); });
    QApplication::clipboard()->setText(text);
}

void FaultTable::save()
{
    const auto folderKind = QStringLiteral("List");
    const QString proposed = m_settings.folder + QStringLiteral("/Faults.csv");
    const QString path =
        askForSavePath(this, tr("Save list as CSV"), DialogFolders::proposal(folderKind, proposed),
                       tr("CSV Files (*.csv)"), QStringLiteral("csv"));
    DialogFolders::note(folderKind, path);
    if (!path.isEmpty() && m_dataSet != nullptr)
        Messages::saveFile(this, path, csvFile(m_model.csv(*m_dataSet, m_settings)));
}

} // namespace KOLT
