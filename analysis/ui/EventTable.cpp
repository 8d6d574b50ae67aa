#include "analysis/ui/EventTable.h"

#include "analysis/MomentText.h"
#include "ui/ColumnMemory.h"
#include "ui/PaintedIcon.h"
#include "ui/PlainToolTip.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

enum Column { timeColumn, textColumn };

constexpr int leastRowHeight = 15;
constexpr int leastTimeWidth = 80;
constexpr int timePadding = 8;
constexpr QSize swatchSize(4, 11);
constexpr QColor timeBackground(230, 230, 230);

/// Tenths of a second, halves rounded up.
qint64 timeKey(double seconds)
{
    return static_cast<qint64>(std::clamp(seconds, -1e15, 1e15) * 10.0 + 0.5);
}

qint64 millisecondsOf(double seconds)
{
    constexpr double noise = 1e-5; // rounding error allowed for; a tick is 3e-5 ms
    return static_cast<qint64>(std::ceil(seconds * 1000.0 - noise));
}

/// The view would make a picture of a mere colour each time that it draws the cell, and fill the
/// toolkit's cache of pictures with them.
QIcon swatch(const QColor& color)
{
    return paintedIcon(
        [color](QPainter& painter, const QRect& place) { painter.fillRect(place, color); });
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

    QVariant data(int role) const override
    {
        return role == Qt::ToolTipRole
                   ? plainToolTip(
                         static_cast<const EventTable*>(tableWidget())->descriptionOf(m_event))
                   : QTableWidgetItem::data(role);
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
            return counterText(event().seconds);
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
            return swatch(QColor(event().grade.color));
        return EventItem::data(role);
    }
};

} // namespace

EventTable::EventTable(const QString& heading, Description description, QWidget* parent)
    : QTableWidget(0, 2, parent)
    , m_description(std::move(description))
{
    setAccessibleName(heading);
    setHorizontalHeaderLabels({tr("Time"), heading});
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setIconSize(swatchSize);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(textColumn, QHeaderView::Stretch);
    m_widths = new ColumnMemory(*horizontalHeader(), QStringLiteral("Events"));
    setStyleSheet(QStringLiteral("selection-background-color: rgba(100, 100, 255, 255);"
                                 "selection-color: black;"));
}

/// A heading that is too long is cut at its end only.
void EventTable::resizeEvent(QResizeEvent* event)
{
    QTableWidget::resizeEvent(event);
    QTableWidgetItem* const heading = horizontalHeaderItem(textColumn);
    const int room = columnWidth(textColumn) - timePadding;
    const bool fits = horizontalHeader()->fontMetrics().horizontalAdvance(heading->text()) < room;
    heading->setTextAlignment(fits ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
    heading->setToolTip(heading->text());
}

void EventTable::fit()
{
    verticalHeader()->setDefaultSectionSize(std::max(leastRowHeight, fontMetrics().height() + 1));
    setColumnWidth(
        timeColumn,
        std::max(leastTimeWidth, fontMetrics().horizontalAdvance(counterText(0)) + timePadding));
    m_widths->restore();
}

void EventTable::setEvents(std::vector<const Event*> events)
{
    m_isChanging = true;
    setRowCount(0); // the cells refer to the events before
    m_events = std::move(events);
    setRowCount(static_cast<int>(m_events.size()));
    {
        // Otherwise the model would send a signal per cell.
        const QSignalBlocker blocker(model());
        int row = 0;
        for (const Event* event : m_events) {
            setItem(row, timeColumn, new TimeItem(*event));
            setItem(row, textColumn, new TextItem(*event));
            ++row;
        }
    }
    viewport()->update();
    m_isChanging = false;
}

void EventTable::showTime(double seconds)
{
    if (m_events.empty())
        return;
    // The last of several in one tenth.
    const auto behind = std::ranges::upper_bound(
        m_events, timeKey(seconds), {}, [](const Event* event) { return timeKey(event->seconds); });
    const auto row = static_cast<int>(std::max<std::ptrdiff_t>(behind - m_events.begin() - 1, 0));
    m_isChanging = true;
    selectRow(row);
    scrollToItem(item(row, timeColumn));
    m_isChanging = false;
}

const Event* EventTable::currentEvent() const
{
    return currentRow() < 0 ? nullptr : m_events[static_cast<std::size_t>(currentRow())];
}

double EventTable::secondsOf(int row) const
{
    return static_cast<double>(item(row, timeColumn)->data(Qt::UserRole).toLongLong()) * 0.001;
}

void EventTable::copy() const
{
    const int row = currentRow();
    if (row >= 0)
        QApplication::clipboard()->setText(item(row, timeColumn)->text() + QLatin1Char('\t') +
                                           item(row, textColumn)->text());
}

} // namespace KOLT
