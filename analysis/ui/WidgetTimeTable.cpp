#include "analysis/ui/WidgetTimeTable.h"

#include "analysis/ui/RowPicker.h"
#include "ui/LookColors.h"

#include <QHeaderView>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace KOLT {

namespace {

constexpr QSize swatchSize(4, 12); ///< shows a threshold's colour
constexpr int cellPadding = 4;
constexpr int rowPadding = 6;
constexpr int columnPadding = 12;
constexpr int frozenColumn = 0;
constexpr int veilAlpha = 28;
constexpr int tintPercent = 30;
constexpr int dimmedTintPercent = 12; ///< below dimmed text

} // namespace

/// Draws the cells. The style's own drawing lays out every text several times, which is too slow
/// for a replay on a full screen.
class TimeTableDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setTimeRow(int row) { m_timeRow = row; }

    int timeRow() const { return m_timeRow; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const QRect& cell = option.rect;
        const QVariant background = index.data(Qt::BackgroundRole);
        if (option.state.testFlag(QStyle::State_Selected))
            painter->fillRect(cell, option.palette.color(QPalette::Highlight));
        else if (background.isValid())
            painter->fillRect(cell,
                              WidgetTimeTable::tint(background.value<QColor>(),
                                                    index.data(Qt::ForegroundRole).isValid()));
        const QVariant swatch = index.data(Qt::DecorationRole);
        if (swatch.isValid())
            painter->fillRect(QRect(QPoint(cell.left() + cellPadding,
                                           cell.center().y() - swatchSize.height() / 2),
                                    swatchSize),
                              swatch.value<QColor>());
        paintText(*painter, option, index);
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(lookColor(Tone::Accent));
            painter->drawRect(cell.adjusted(0, 0, -1, -1));
        }
        if (index.row() == m_timeRow) {
            const QColor line = lookColor(Tone::Accent);
            QColor veil = line;
            veil.setAlpha(veilAlpha);
            painter->fillRect(cell, veil);
            painter->fillRect(QRect(cell.left(), cell.bottom() - 1, cell.width(), 2), line);
        }
    }

private:
    static void paintText(QPainter& painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index)
    {
        QString text = index.data().toString();
        if (text.isEmpty())
            return;
        const QRect place = option.rect.adjusted(cellPadding, 0, -cellPadding, 0);
        // Measuring costs as much as drawing, so only texts that may be too wide are measured.
        if (text.size() * option.fontMetrics.maxWidth() / 2 > place.width())
            text = option.fontMetrics.elidedText(text, Qt::ElideRight, place.width());
        const QVariant foreground = index.data(Qt::ForegroundRole);
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter.setPen(foreground.isValid() && !isSelected ? lookColor(Tone::Quiet)
                                                           : option.palette.color(QPalette::Text));
        painter.setFont(option.font);
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }

    int m_timeRow = -1;
};

QColor WidgetTimeTable::tint(const QColor& color, bool isDimmed)
{
    const QColor ground = lookColor(Tone::Panel);
    const int percent = isDimmed ? dimmedTintPercent : tintPercent;
    const auto mix = [percent](int from, int to) { return from + (to - from) * percent / 100; };
    return {mix(ground.red(), color.red()), mix(ground.green(), color.green()),
            mix(ground.blue(), color.blue())};
}

WidgetTimeTable::WidgetTimeTable(QWidget* parent)
    : QTableView(parent)
    , m_delegate(new TimeTableDelegate(this))
    , m_frozen(new QTableView(this))
{
    setAccessibleName(tr("Data"));
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false); // Tab leaves the table
    for (QTableView* view : {static_cast<QTableView*>(this), m_frozen}) {
        view->setItemDelegate(m_delegate);
        view->setIconSize(swatchSize);
        view->setWordWrap(false);
        view->setCornerButtonEnabled(false);
        view->horizontalHeader()->setHighlightSections(false);
        view->verticalHeader()->hide();
        view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        auto* const picker = new RowPicker(view);
        connect(picker, &RowPicker::signalPicked, this, &WidgetTimeTable::signalPicked);
        connect(picker, &RowPicker::signalCopy, this, &WidgetTimeTable::signalCopy);
    }
    createFrozenColumn();
}

void WidgetTimeTable::createFrozenColumn()
{
    m_frozen->setObjectName(QStringLiteral("frozenColumn"));
    m_frozen->setAutoScroll(false); // it follows the table's scroll bar instead
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
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int width) { noteWidth(column, width); });
    connect(horizontalHeader(), &QHeaderView::geometriesChanged, this,
            &WidgetTimeTable::placeFrozenColumn);
}

void WidgetTimeTable::setModel(QAbstractItemModel* model)
{
    QTableView::setModel(model);
    m_frozen->setModel(model);
    m_frozen->setSelectionModel(selectionModel());
    fitRows(); // cheapest before there are rows
}

void WidgetTimeTable::setTimeRow(int row)
{
    const int before = m_delegate->timeRow();
    if (row >= 0 && row != currentIndex().row()) {
        setAutoScroll(false); // it scrolls to an edge only, and sideways
        selectionModel()->setCurrentIndex(
            model()->index(row, std::max(currentIndex().column(), frozenColumn)),
            QItemSelectionModel::NoUpdate);
        setAutoScroll(true);
    }
    if (row == before) {
        updateRow(row); // its values may have changed with the moment
        return;
    }
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

int WidgetTimeTable::sizeHintForColumn(int column) const
{
    // A few rows from the whole recording show how long the values get.
    constexpr int samples = 64;
    const int rows = model()->rowCount();
    const int step = std::max(rows / samples, 1);
    int width = 0;
    for (int row = 0; row < rows; row += step)
        width = std::max(width, sizeHintForIndex(model()->index(row, column)).width());
    return width;
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

void WidgetTimeTable::fitRows()
{
    for (QTableView* view : {static_cast<QTableView*>(this), m_frozen}) {
        QHeaderView* const header = view->verticalHeader();
        const int height =
            std::max(fontMetrics().height() + rowPadding, header->minimumSectionSize());
        // Setting it sends a signal per row, even if the height stays the same.
        if (header->defaultSectionSize() != height)
            header->setDefaultSectionSize(height);
    }
}

void WidgetTimeTable::fitColumns()
{
    m_isFitting = true;
    fitRows();
    resizeColumnsToContents();
    for (int i = 0; i < model()->columnCount(); ++i) {
        setColumnWidth(i, m_chosenWidths.value(nameOf(i), columnWidth(i) + columnPadding));
        m_frozen->setColumnHidden(i, i != frozenColumn);
    }
    m_isFitting = false;
    placeFrozenColumn();
}

QString WidgetTimeTable::nameOf(int column) const
{
    return model()->headerData(column, Qt::Horizontal).toString().section(QLatin1Char('\n'), 0, 0);
}

void WidgetTimeTable::noteWidth(int column, int width)
{
    if (m_isFitting || width == 0) // a hidden column has none
        return;
    m_chosenWidths[nameOf(column)] = width;
    emit signalWidth();
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
    // A cell reached by moving left must not be hidden by the frozen column.
    const int hidden = m_frozen->width() - visualRect(index).left();
    if (action == MoveLeft && index.column() > frozenColumn && hidden > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
    return index;
}

} // namespace KOLT
