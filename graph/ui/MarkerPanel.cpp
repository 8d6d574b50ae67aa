#include "graph/ui/MarkerPanel.h"

#include "graph/MarkerTable.h"
#include "graph/ui/WidgetGraphBase.h"
#include "ui/PaintedIcon.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int numberColumn = 2; ///< the first one of numbers
constexpr int mostRows = 5;     ///< without scrolling: the graph needs the room
constexpr int rowPadding = 4;

} // namespace

MarkerPanel::MarkerPanel(const WidgetGraphBase& graph, QWidget* parent)
    : QWidget(parent)
    , m_graph(graph)
    , m_heading(new QLabel(this))
    , m_table(new QTableWidget(this))
{
    m_heading->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_heading->setWordWrap(true); // otherwise its text would widen the page
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setAccessibleName(tr("Values between the markers"));
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setHighlightSections(false);
    auto* const button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setIcon(lookIcon(QStringLiteral("copy")));
    button->setToolTip(tr("Copy table"));
    button->setAccessibleName(button->toolTip());
    connect(button, &QToolButton::clicked, this, &MarkerPanel::copy);
    m_table->installEventFilter(this);
    auto* const top = new QHBoxLayout;
    top->addWidget(m_heading, 1);
    top->addWidget(button);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(m_table);
    hide();
}

void MarkerPanel::refresh()
{
    const Graph& graph = m_graph.graph();
    const bool isWanted = graph.settings().hasStatistic && !graph.visibleTraces().empty();
    const bool isApart = graph.markers().ordered().length() > 0.0;
    const bool isShown = isWanted && (m_graph.isMeasuring() ? !isHidden() : isApart);
    if (isShown)
        fill();
    setVisible(isShown);
}

void MarkerPanel::fill()
{
    const MarkerTable table = markerTableOf(m_graph.graph());
    m_heading->setText(table.heading);
    const auto rows = static_cast<int>(table.rows.size());
    const bool isResized = m_table->rowCount() != rows;
    m_table->setColumnCount(static_cast<int>(table.columns.size()));
    m_table->setRowCount(rows);
    m_table->setHorizontalHeaderLabels(table.columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < m_table->columnCount(); ++column) {
            QTableWidgetItem* item = m_table->item(row, column);
            if (item == nullptr) {
                item = new QTableWidgetItem;
                item->setTextAlignment((column < numberColumn ? Qt::AlignLeft : Qt::AlignRight) |
                                       Qt::AlignVCenter);
                m_table->setItem(row, column, item);
            }
            item->setText(table.rows[row][column]);
        }
    }
    m_table->resizeColumnsToContents();
    if (isResized)
        fitHeight();
}

void MarkerPanel::fitHeight()
{
    const int row = fontMetrics().height() + rowPadding;
    m_table->verticalHeader()->setMinimumSectionSize(row);
    m_table->verticalHeader()->setDefaultSectionSize(row);
    const int bars = m_table->horizontalHeader()->sizeHint().height() +
                     m_table->horizontalScrollBar()->sizeHint().height() +
                     2 * m_table->frameWidth();
    // Less in a low page, where the table scrolls.
    m_table->setMinimumHeight(bars + row);
    m_table->setMaximumHeight(bars + row * std::clamp(m_table->rowCount(), 1, mostRows));
}

void MarkerPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitHeight();
}

/// The table would copy one cell.
bool MarkerPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress ||
        !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy))
        return QWidget::eventFilter(watched, event);
    copy();
    return true;
}

void MarkerPanel::copy() const
{
    QApplication::clipboard()->setText(markerTableOf(m_graph.graph()).text());
}

} // namespace KOLT
