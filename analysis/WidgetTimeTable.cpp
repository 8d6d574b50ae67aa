#include "analysis/WidgetTimeTable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace KOLT {

/// Draws the line of the current time across its row.
class TimeRowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setTimeRow(int row) { m_timeRow = row; }

    int timeRow() const { return m_timeRow; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        if (index.row() != m_timeRow)
            return;
        QColor color = option.palette.color(QPalette::Highlight);
        const QRect& cell = option.rect;
        painter->fillRect(QRect(cell.left(), cell.bottom() - 1, cell.width(), 2), color);
        constexpr int veil = 28;
        color.setAlpha(veil);
        painter->fillRect(cell, color);
    }

private:
    int m_timeRow = -1;
};

namespace {

constexpr QSize swatchSize(4, 12); ///< of a threshold's colour
constexpr int rowPadding = 6;
constexpr int columnPadding = 12;
constexpr int frozenColumn = 0;

} // namespace

WidgetTimeTable::WidgetTimeTable(QWidget* parent)
    : QTableView(parent)
    , m_delegate(new TimeRowDelegate(this))
    , m_frozen(new QTableView(this))
{
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);                        // Tab leaves the table
    horizontalHeader()->setResizeContentsPrecision(0); // of the rows, only those in sight
    for (QTableView* view : {static_cast<QTableView*>(this), m_frozen}) {
        view->setItemDelegate(m_delegate);
        view->setIconSize(swatchSize);
        view->setWordWrap(false);
        view->setCornerButtonEnabled(false);
        view->horizontalHeader()->setHighlightSections(false);
        view->verticalHeader()->hide();
        view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    }
    createFrozenColumn();
}

void WidgetTimeTable::createFrozenColumn()
{
    m_frozen->setObjectName(QStringLiteral("frozenColumn"));
    m_frozen->setFocusPolicy(Qt::NoFocus);
    m_frozen->setFrameShape(QFrame::NoFrame);
    m_frozen->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_frozen->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_frozen->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    viewport()->stackUnder(m_frozen);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, m_frozen->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(m_frozen->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
            &QScrollBar::setValue);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            &WidgetTimeTable::placeFrozenColumn);
    connect(horizontalHeader(), &QHeaderView::geometriesChanged, this,
            &WidgetTimeTable::placeFrozenColumn);
}

void WidgetTimeTable::setModel(QAbstractItemModel* model)
{
    QTableView::setModel(model);
    m_frozen->setModel(model);
    m_frozen->setSelectionModel(selectionModel());
}

void WidgetTimeTable::setTimeRow(int row)
{
    const int before = m_delegate->timeRow();
    if (row >= 0 && row != currentIndex().row()) {
        setAutoScroll(false); // it would go to the edge only, and sideways to the current column
        selectionModel()->setCurrentIndex(
            model()->index(row, std::max(currentIndex().column(), frozenColumn)),
            QItemSelectionModel::NoUpdate);
        setAutoScroll(true);
    }
    if (row == before)
        return;
    m_delegate->setTimeRow(row);
    updateRow(before);
    updateRow(row);
    bringInSight(row);
}

void WidgetTimeTable::bringInSight(int row)
{
    if (row < 0)
        return;
    const int top = rowViewportPosition(row);
    if (top >= 0 && top + rowHeight(row) <= viewport()->height())
        return;
    const int sideways = horizontalScrollBar()->value();
    scrollTo(model()->index(row, frozenColumn), PositionAtCenter);
    horizontalScrollBar()->setValue(sideways);
}

void WidgetTimeTable::updateRow(int row)
{
    if (row < 0)
        return;
    for (QTableView* view : {static_cast<QTableView*>(this), m_frozen}) {
        QWidget* const area = view->viewport();
        area->update(0, rowViewportPosition(row), area->width(), rowHeight(row));
    }
}

void WidgetTimeTable::fitColumns()
{
    for (QTableView* view : {static_cast<QTableView*>(this), m_frozen})
        view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    resizeColumnsToContents();
    for (int i = 0; i < model()->columnCount(); ++i) {
        setColumnWidth(i, columnWidth(i) + columnPadding);
        m_frozen->setColumnHidden(i, i != frozenColumn);
    }
    placeFrozenColumn();
}

void WidgetTimeTable::placeFrozenColumn()
{
    const int width = columnWidth(frozenColumn);
    m_frozen->setColumnWidth(frozenColumn, width);
    m_frozen->horizontalHeader()->setFixedHeight(horizontalHeader()->height());
    m_frozen->setGeometry(horizontalHeader()->x(), horizontalHeader()->y(), width,
                          viewport()->geometry().bottom() + 1 - horizontalHeader()->y());
    m_frozen->setVisible(model() != nullptr && model()->rowCount() > 0);
}

void WidgetTimeTable::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    placeFrozenColumn();
    if (event->size().height() != event->oldSize().height())
        bringInSight(m_delegate->timeRow());
}

QModelIndex WidgetTimeTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = QTableView::moveCursor(action, modifiers);
    // What the cursor reaches to the left must not hide behind the frozen column.
    const int hidden = m_frozen->width() - visualRect(index).left();
    if (action == MoveLeft && index.column() > frozenColumn && hidden > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
    return index;
}

bool WidgetTimeTable::event(QEvent* event)
{
    // The main window has another command on the copy key; in the table, it copies.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void WidgetTimeTable::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        emit signalCopy();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

} // namespace KOLT
