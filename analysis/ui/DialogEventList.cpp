#include "analysis/ui/DialogEventList.h"

#include "analysis/EventDetails.h"
#include "analysis/FlightLog.h"
#include "base/Csv.h"
#include "record/ClockTime.h"
#include "ui/ContentOrNote.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>
#include <QTableWidget>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>

namespace KOLT {

namespace {

enum Column { timeColumn, textColumn };

constexpr int pageMargin = 3;
constexpr int rowHeight = 15;
constexpr int timeWidth = 80;
constexpr int timePadding = 8;
constexpr QSize swatchSize(4, 11);
constexpr QColor timeBackground(230, 230, 230);

/// Tenths of seconds, halves up.
qint64 timeKey(double seconds)
{
    return static_cast<qint64>(std::clamp(seconds, -1e15, 1e15) * 10.0 + 0.5);
}

QString timeText(double seconds)
{
    return clockTime(seconds).toString(QStringLiteral("hh:mm:ss.zzz"));
}

QIcon swatch(QRgb color)
{
    QPixmap pixmap(swatchSize);
    pixmap.fill(color);
    return {pixmap};
}

QString stateText(ThresholdState state)
{
    return state == ThresholdState::Limit ? DialogEventList::tr("Limit")
                                          : DialogEventList::tr("Warning");
}

QString durationOf(const EventDetails& details)
{
    return details.duration ? durationText(*details.duration)
                            : DialogEventList::tr("until the end of the data");
}

QString engineSpeedOf(const EventDetails& details)
{
    return details.engineSpeed ? figureText(*details.engineSpeed, 0, QStringLiteral("rpm"))
                               : QStringLiteral("-");
}

} // namespace

QString DialogEventList::emptyText()
{
    return tr("No exceedance in this data set");
}

DialogEventList::DialogEventList(const Profile& profile, EventScope scope, const QString& heading,
                                 QWidget* parent)
    : QWidget(parent)
    , m_profile(profile)
    , m_scope(scope)
{
    auto* const page = new QWidget(this);
    m_filter = new QLineEdit(page);
    m_filter->setPlaceholderText(tr("Filter the list"));
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(QIcon(QStringLiteral(":/icons/filter.svg")), QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, this, [this] {
        applyFilter();
        showTime();
    });
    createTable(heading);
    createMenu();
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addWidget(m_filter);
    layout->addWidget(m_table);
    m_shown = new ContentOrNote(this, page);
    showData();
}

void DialogEventList::createTable(const QString& heading)
{
    m_table = new QTableWidget(0, 2, this);
    m_table->setHorizontalHeaderLabels({tr("Time"), heading});
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setIconSize(swatchSize);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSectionResizeMode(textColumn, QHeaderView::Stretch);
    m_table->setStyleSheet(QStringLiteral("selection-background-color: rgba(100, 100, 255, 255);"));
    m_table->installEventFilter(this);
    m_table->viewport()->installEventFilter(this);
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &DialogEventList::slotSelect);
}

void DialogEventList::createMenu()
{
    auto* const copyAction =
        new QAction(QIcon(QStringLiteral(":/icons/copy.svg")), tr("Copy"), this);
    copyAction->setShortcut(QKeySequence::Copy); // for the menu to show; see eventFilter()
    copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAction, &QAction::triggered, this, &DialogEventList::copy);
    auto* const saveAction =
        new QAction(QIcon(QStringLiteral(":/icons/export-csv.svg")), tr("Save list as CSV"), this);
    connect(saveAction, &QAction::triggered, this, &DialogEventList::save);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_table->addActions({copyAction, saveAction});
}

void DialogEventList::dropData()
{
    m_events.clear();
    fillTable();
}

void DialogEventList::showData()
{
    if (dataSet() != nullptr)
        m_events = findEvents(m_profile, *dataSet(), m_scope);
    fillTable();
    if (!m_events.empty())
        m_shown->showContent();
    else if (dataSet() != nullptr)
        m_shown->showNote(emptyText());
    else
        m_shown->showNote(tr("Choose a cycle or a flight on the left to see what was exceeded."));
}

void DialogEventList::fillTable()
{
    m_isFilling = true;
    // At larger fonts rows and times need more room.
    m_table->verticalHeader()->setDefaultSectionSize(
        std::max(rowHeight, fontMetrics().height() + 1));
    m_table->setColumnWidth(
        timeColumn,
        std::max(timeWidth, fontMetrics().horizontalAdvance(timeText(0)) + timePadding));
    m_table->setRowCount(0);
    m_table->setRowCount(static_cast<int>(m_events.size()));
    int row = 0;
    for (const Event& entry : m_events) {
        auto* const time = new QTableWidgetItem(timeText(entry.seconds));
        time->setBackground(timeBackground);
        time->setForeground(Qt::black);
        time->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        time->setData(Qt::UserRole, static_cast<qint64>(entry.seconds * 1000.0));
        m_table->setItem(row, timeColumn, time);
        auto* const text = new QTableWidgetItem(swatch(entry.grade.color), entry.text);
        text->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        m_table->setItem(row, textColumn, text);
        ++row;
    }
    applyFilter();
    m_isFilling = false;
}

void DialogEventList::applyFilter()
{
    const QString wanted = m_filter->text().trimmed();
    m_rows.clear();
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const Event& entry = m_events[static_cast<std::size_t>(row)];
        const bool isWanted = entry.text.contains(wanted, Qt::CaseInsensitive);
        m_table->setRowHidden(row, !isWanted);
        if (isWanted)
            m_rows[timeKey(entry.seconds)] = row;
    }
}

void DialogEventList::showTime()
{
    const bool wasFilling = std::exchange(m_isFilling, true);
    const auto behind = m_rows.upper_bound(timeKey(time()));
    const int row = behind == m_rows.begin() ? (m_rows.empty() ? 0 : m_rows.begin()->second)
                                             : std::prev(behind)->second;
    if (row < m_table->rowCount() && !m_table->isRowHidden(row)) {
        m_table->selectRow(row);
        m_table->scrollToItem(m_table->item(row, timeColumn));
    }
    m_isFilling = wasFilling;
}

void DialogEventList::slotSelect()
{
    if (m_isFilling)
        return;
    for (const QTableWidgetItem* item : m_table->selectedItems()) {
        if (item->column() != timeColumn)
            continue;
        const double seconds = static_cast<double>(item->data(Qt::UserRole).toLongLong()) * 0.001;
        keepTime(seconds);
        emit signalTime(seconds);
    }
}

bool DialogEventList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_table->viewport() && event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const QTableWidgetItem* const item = m_table->itemAt(help->pos());
        if (item == nullptr)
            return false;
        showToolTip(item->row());
        return false; // the item's own tool tip is up to date now
    }
    // The main window has another command on the copy key; in the list, it copies.
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (watched == m_table && (isOverride || event->type() == QEvent::KeyPress) &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        if (!isOverride)
            copy();
        event->accept();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DialogEventList::showToolTip(int row)
{
    if (dataSet() == nullptr)
        return;
    const EventDetails details =
        detailsOf(m_profile, *dataSet(), m_events[static_cast<std::size_t>(row)]);
    const QString text = tr("Peak value: %1\nDuration until normal: %2\nEngine speed: %3")
                             .arg(details.peakText, durationOf(details), engineSpeedOf(details));
    for (const int column : {timeColumn, textColumn})
        m_table->item(row, column)->setToolTip(text);
}

void DialogEventList::copy()
{
    const int row = m_table->currentRow();
    if (row >= 0)
        QApplication::clipboard()->setText(m_table->item(row, timeColumn)->text() +
                                           QLatin1Char('\t') +
                                           m_table->item(row, textColumn)->text());
}

void DialogEventList::save()
{
    const QString path = askForSavePath(this, tr("Save list as CSV"),
                                        m_settings.folder + QStringLiteral("/Exceedances.csv"),
                                        tr("CSV Files (*.csv)"), QStringLiteral("csv"));
    if (path.isEmpty() || dataSet() == nullptr)
        return;
    const QChar separator = m_settings.separator;
    QString text = csvLine({tr("Time"), tr("Seconds"), tr("Device"), tr("Parameter"), tr("State"),
                            tr("Text"), tr("Peak value"), tr("Duration"), tr("Engine speed")},
                           separator);
    for (int row = 0; row < m_table->rowCount(); ++row) {
        if (m_table->isRowHidden(row))
            continue;
        const Event& entry = m_events[static_cast<std::size_t>(row)];
        const EventDetails details = detailsOf(m_profile, *dataSet(), entry);
        text += csvLine({timeText(entry.seconds), QString::number(entry.seconds, 'f', 3),
                         entry.group, entry.parameter->name, stateText(entry.grade.state),
                         entry.text, details.peakText, durationOf(details), engineSpeedOf(details)},
                        separator);
    }
    Messages::saveFile(this, path, "\xEF\xBB\xBF" + text.toUtf8());
}

} // namespace KOLT
