#include "analysis/ui/DialogEventList.h"

#include "analysis/EventDetails.h"
#include "analysis/FlightLog.h"
#include "base/Csv.h"
#include "record/ClockTime.h"
#include "ui/ContentOrNote.h"
#include "ui/Messages.h"
#include "ui/PlainToolTip.h"
#include "ui/SaveDialog.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

enum Column { timeColumn, textColumn };

constexpr int pageMargin = 3;
constexpr int rowHeight = 15;
constexpr int timeWidth = 80;
constexpr int timePadding = 8;
constexpr QSize swatchSize(4, 11);
constexpr QColor timeBackground(230, 230, 230);

/// Tenths of a second, halves rounded up.
qint64 timeKey(double seconds)
{
    return static_cast<qint64>(std::clamp(seconds, -1e15, 1e15) * 10.0 + 0.5);
}

QString timeText(double seconds)
{
    return clockTime(seconds).toString(QStringLiteral("hh:mm:ss.zzz"));
}

/// The first whole millisecond at or after the moment: earlier, the event's sample is not there
/// yet.
qint64 millisecondsOf(double seconds)
{
    constexpr double noise = 1e-5; // rounding error allowed for; a tick is 3e-5 ms
    return static_cast<qint64>(std::ceil(seconds * 1000.0 - noise));
}

/// A cell that stores only its event, as up to a hundred thousand are created at once.
class EventItem : public QTableWidgetItem
{
public:
    explicit EventItem(const Event& event)
        : m_event(event)
    {
        setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }

protected:
    const Event& event() const { return m_event; }

private:
    const Event& m_event;
};

class TimeItem : public EventItem
{
public:
    using EventItem::EventItem;

    QVariant data(int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return timeText(event().seconds);
        case Qt::BackgroundRole:
            return QBrush(timeBackground);
        case Qt::ForegroundRole:
            return QBrush(Qt::black);
        case Qt::UserRole:
            return millisecondsOf(event().seconds);
        default:
            return EventItem::data(role);
        }
    }
};

class TextItem : public EventItem
{
public:
    using EventItem::EventItem;

    QVariant data(int role) const override
    {
        if (role == Qt::DisplayRole)
            return event().text;
        if (role == Qt::DecorationRole)
            return QColor(event().grade.color); // drawn as a swatch of the icon size
        return EventItem::data(role);
    }
};

QString stateText(ThresholdState state)
{
    return state == ThresholdState::Limit ? DialogEventList::tr("Limit")
                                          : DialogEventList::tr("Warning");
}

std::size_t asIndex(int row)
{
    return static_cast<std::size_t>(row);
}

QString durationOf(const EventDetails& details)
{
    return details.duration ? durationText(*details.duration)
                            : DialogEventList::tr("until the end of the data");
}

QString engineSpeedOf(const EventDetails& details, const QString& unit)
{
    return details.engineSpeed ? figureText(*details.engineSpeed, 0, unit) : QStringLiteral("-");
}

} // namespace

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
        fillTable();
        showTime();
    });
    createTable(heading);
    createMenu();
    m_hint = new QLabel(page);
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addWidget(m_filter);
    layout->addWidget(m_table);
    layout->addWidget(m_hint);
    m_shown = new ContentOrNote(this, page);
    showData(Change::Data);
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
    // A row that is selected already can be picked again.
    connect(m_table, &QTableWidget::cellClicked, this, [this](int row) {
        if (row == m_pressedRow)
            report(row);
    });
    connect(m_table, &QTableWidget::cellActivated, this, &DialogEventList::report);
}

void DialogEventList::createMenu()
{
    auto* const copyAction =
        new QAction(QIcon(QStringLiteral(":/icons/copy.svg")), tr("Copy"), this);
    copyAction->setShortcut(QKeySequence::Copy); // shown in the menu; eventFilter() handles the key
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
    clearTable();
    m_events.reset();
}

void DialogEventList::showData(Changes changes)
{
    if (changes.testAnyFlags(Change::Data | Change::Font))
        fitTable();
    if (!changes.testAnyFlags(Change::Data | Change::Units))
        return;
    m_hint->hide();
    if (dataSet() == nullptr) {
        clearTable();
        m_events.reset();
        m_shown->showNote(tr("Choose a cycle or a flight on the left to see what was exceeded."));
        return;
    }
    const EventList events = eventsOf(m_profile, *dataSet(), m_scope);
    if (events != m_events) {
        clearTable(); // its cells refer to the old events
        m_events = events;
        fillTable();
    }
    const bool isLamps = m_scope == EventScope::WarningLamps;
    QString hint;
    const QStringList lamps = isLamps ? lampsOnFromTheStart(m_profile, *dataSet()) : QStringList();
    if (!lamps.isEmpty())
        hint = tr("On from the start: %1").arg(lamps.join(QStringLiteral(", ")));
    if (const std::size_t leftOut = eventsLeftOut(m_profile, *dataSet(), m_scope); leftOut > 0)
        hint += (hint.isEmpty() ? QString() : QStringLiteral("\n")) +
                tr("Only the first %L1 exceedances are listed, %L2 more are left out.")
                    .arg(m_events->size())
                    .arg(leftOut);
    m_hint->setText(hint);
    m_hint->setVisible(!hint.isEmpty());
    if (!m_events->empty()) {
        m_shown->showContent();
        return;
    }
    QString note =
        isLamps ? tr("No lamp came on in this data set") : tr("No exceedance in this data set");
    if (!hint.isEmpty())
        note += QLatin1Char('\n') + hint;
    m_shown->showNote(note);
}

void DialogEventList::fitTable()
{
    // Larger fonts need more than the usual sizes.
    m_table->verticalHeader()->setDefaultSectionSize(
        std::max(rowHeight, fontMetrics().height() + 1));
    m_table->setColumnWidth(
        timeColumn,
        std::max(timeWidth, fontMetrics().horizontalAdvance(timeText(0)) + timePadding));
}

void DialogEventList::clearTable()
{
    const bool wasFilling = std::exchange(m_isFilling, true);
    m_table->setRowCount(0);
    m_shownEvents.clear();
    m_isFilling = wasFilling;
}

void DialogEventList::fillTable()
{
    clearTable();
    if (m_events == nullptr)
        return;
    const QString wanted = m_filter->text().trimmed();
    for (const Event& event : *m_events) {
        if (event.text.contains(wanted, Qt::CaseInsensitive))
            m_shownEvents.push_back(&event);
    }
    const bool wasFilling = std::exchange(m_isFilling, true);
    m_table->setRowCount(static_cast<int>(m_shownEvents.size()));
    {
        // Otherwise the model would send a signal per cell.
        const QSignalBlocker blocker(m_table->model());
        int row = 0;
        for (const Event* event : m_shownEvents) {
            m_table->setItem(row, timeColumn, new TimeItem(*event));
            m_table->setItem(row, textColumn, new TextItem(*event));
            ++row;
        }
    }
    m_table->viewport()->update();
    m_isFilling = wasFilling;
}

void DialogEventList::showTime()
{
    if (m_shownEvents.empty())
        return;
    const bool wasFilling = std::exchange(m_isFilling, true);
    // The last of several in one tenth.
    const auto behind =
        std::ranges::upper_bound(m_shownEvents, timeKey(time()), {},
                                 [](const Event* event) { return timeKey(event->seconds); });
    const auto row = std::max<std::ptrdiff_t>(behind - m_shownEvents.begin() - 1, 0);
    m_table->selectRow(static_cast<int>(row));
    m_table->scrollToItem(m_table->item(static_cast<int>(row), timeColumn));
    m_isFilling = wasFilling;
}

void DialogEventList::slotSelect()
{
    if (m_isFilling)
        return;
    for (const QTableWidgetItem* item : m_table->selectedItems()) {
        if (item->column() == timeColumn)
            report(item->row());
    }
}

void DialogEventList::report(int row)
{
    const QTableWidgetItem* const item = m_table->item(row, timeColumn);
    if (item == nullptr)
        return;
    const double seconds = static_cast<double>(item->data(Qt::UserRole).toLongLong()) * 0.001;
    keepTime(seconds);
    emit signalTime(seconds);
}

bool DialogEventList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_table->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto* const press = static_cast<QMouseEvent*>(event);
        const int row = m_table->rowAt(press->position().toPoint().y());
        m_pressedRow =
            row == m_table->currentRow() ? row : -1; // any other row is reported by the selection
        return false;
    }
    if (watched == m_table->viewport() && event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const QTableWidgetItem* const item = m_table->itemAt(help->pos());
        if (item == nullptr)
            return false;
        showToolTip(item->row());
        return false; // the view shows the item's tool tip
    }
    // Claims the copy key, which the main window uses for another command.
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
    const EventDetails details = detailsOf(m_profile, *dataSet(), *m_shownEvents[asIndex(row)]);
    const QString peak = details.unit.isEmpty()
                             ? details.peakText
                             : details.peakText + QLatin1Char(' ') + details.unit;
    const QString text =
        tr("Peak value: %1\nDuration until normal: %2\nEngine speed: %3")
            .arg(peak, durationOf(details), engineSpeedOf(details, QStringLiteral("rpm")));
    for (const int column : {timeColumn, textColumn})
        m_table->item(row, column)->setToolTip(plainToolTip(text));
}

void DialogEventList::copy()
{
    const int row = m_table->currentRow();
    if (row >= 0)
        QApplication::clipboard()->setText(m_table->item(row, timeColumn)->text() +
                                           QLatin1Char('\t') +
                                           m_table->item(row, textColumn)->text());
}

QString DialogEventList::csv() const
{
    QString text = csvLine({tr("Time"), tr("Seconds"), tr("Date"), tr("Clock time"), tr("Device"),
                            tr("Parameter"), tr("State"), tr("Text"), tr("Peak value"), tr("Unit"),
                            tr("Duration"), tr("Engine speed [rpm]")},
                           m_settings.separator);
    for (const Event* event : m_shownEvents) {
        const EventDetails details = detailsOf(m_profile, *dataSet(), *event);
        const QDateTime moment = momentOf(*dataSet(), event->seconds);
        text += csvLine({timeText(event->seconds),
                         m_settings.numberText(QString::number(event->seconds, 'f', 3)),
                         moment.toString(QStringLiteral("dd.MM.yyyy")),
                         moment.toString(QStringLiteral("hh:mm:ss")), event->group,
                         event->parameter->name, stateText(event->grade.state), event->text,
                         m_settings.numberText(details.peakText), details.unit, durationOf(details),
                         engineSpeedOf(details, {})},
                        m_settings.separator);
    }
    return text;
}

void DialogEventList::save()
{
    const QString path = askForSavePath(this, tr("Save list as CSV"),
                                        m_settings.folder + QStringLiteral("/Exceedances.csv"),
                                        tr("CSV Files (*.csv)"), QStringLiteral("csv"));
    if (path.isEmpty() || dataSet() == nullptr)
        return;
    Messages::saveFile(this, path, "\xEF\xBB\xBF" + csv().toUtf8());
}

} // namespace KOLT
