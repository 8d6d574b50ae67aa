#include "record/ui/CardList.h"

#include "record/CardContainer.h"
#include "record/TrustFinding.h"
#include "ui/EmptyNote.h"
#include "ui/TrustMark.h"

#include <QDir>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QStackedLayout>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace KOLT {

namespace {

constexpr int pageMargin = 3;
constexpr int headingPixels = 20;
constexpr QColor headingColor(195, 171, 99);

enum Column { textColumn, markColumn };

constexpr int markPadding = 4;
constexpr int linePadding = 12; ///< around icon and text
constexpr int indentation = 14;
constexpr std::size_t mostSentences = 6; ///< in a tool tip

/// A tree whose day headings are filled over the full width, and whose marks can be clicked.
class DayTree : public QTreeWidget
{
public:
    using OnMark = std::function<void(QTreeWidgetItem*)>;

    DayTree(OnMark onMark, QWidget* parent)
        : QTreeWidget(parent)
        , m_onMark(std::move(onMark))
    {
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        QTreeWidgetItem* const item = markedItemAt(*event);
        if (item != nullptr)
            m_onMark(item);
        else
            QTreeWidget::mousePressEvent(event);
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        if (markedItemAt(*event) == nullptr)
            QTreeWidget::mouseDoubleClickEvent(event);
    }

    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override
    {
        if (!index.flags().testFlag(Qt::ItemIsSelectable) && !index.parent().isValid())
            painter->fillRect(option.rect, headingColor);
        QTreeWidget::drawRow(painter, option, index);
    }

private:
    QTreeWidgetItem* markedItemAt(const QMouseEvent& event) const
    {
        const QModelIndex index = indexAt(event.position().toPoint());
        const bool isMark =
            index.column() == markColumn && index.data(Qt::DecorationRole).isValid();
        return isMark && event.button() == Qt::LeftButton ? itemFromIndex(index) : nullptr;
    }

    OnMark m_onMark;
};

/// The end of a line is the duration. Where it would be cut, the line goes without what is told
/// elsewhere or matters less: the gap behind the name, the date (in the heading), the start, its
/// seconds first.
class LineDelegate : public QStyledItemDelegate
{
public:
    explicit LineDelegate(QTreeWidget& tree)
        : QStyledItemDelegate(&tree)
        , m_tree(tree)
    {
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const int room = option->rect.width() - option->decorationSize.width() - linePadding;
        const auto isCut = [&] {
            return option->fontMetrics.horizontalAdvance(option->text) > room;
        };
        if (!m_tree.isColumnHidden(markColumn) || isCut())
            option->text = option->text.simplified();
        static const QRegularExpression date(QStringLiteral("\\d+\\.\\d+\\.\\d{4} (?=.*\\()"));
        if (isCut())
            option->text.remove(date);
        static const QRegularExpression seconds(QStringLiteral(":\\d\\d(?= \\()"));
        if (isCut())
            option->text.remove(seconds);
        static const QRegularExpression start(QStringLiteral("\\d+:\\d\\d (?=\\()"));
        if (isCut())
            option->text.remove(start);
    }

private:
    QTreeWidget& m_tree;
};

TrustMark markOf(TrustSeverity severity)
{
    switch (severity) {
    case TrustSeverity::Wrong:
        return TrustMark::Wrong;
    case TrustSeverity::Doubtful:
        return TrustMark::Doubtful;
    case TrustSeverity::Note:
        break;
    }
    return TrustMark::None;
}

/// Rich text, which is wrapped.
QString paragraph(const QString& text)
{
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

} // namespace

CardList::CardList(QWidget* parent)
    : QWidget(parent)
    , m_name(new QLineEdit(this))
    , m_tree(new DayTree([this](QTreeWidgetItem* item) { emit signalMark(item); }, this))
    , m_note(new EmptyNote(this))
    , m_stack(new QStackedLayout)
{
    m_name->setReadOnly(true);
    m_name->setToolTip(tr("The folder that is open"));
    createColumns();
    m_stack->addWidget(m_tree);
    m_stack->addWidget(m_note);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addWidget(m_name);
    layout->addLayout(m_stack);
}

void CardList::createColumns()
{
    m_tree->setHeaderHidden(true);
    m_tree->setIndentation(indentation);
    m_tree->setItemDelegateForColumn(textColumn, new LineDelegate(*m_tree));
    m_tree->setColumnCount(2);
    m_tree->setAllColumnsShowFocus(true);
    QHeaderView* const header = m_tree->header();
    const int width = m_tree->style()->pixelMetric(QStyle::PM_SmallIconSize) + markPadding;
    header->setMinimumSectionSize(width);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(textColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(markColumn, QHeaderView::Fixed);
    header->resizeSection(markColumn, width);
    m_tree->setColumnHidden(markColumn, true);
}

void CardList::fill(const CardContainer& card, const QString& note)
{
    const QSignalBlocker blocker(m_tree);
    m_name->setText(QDir::toNativeSeparators(card.folder()));
    m_note->setText(note);
    m_stack->setCurrentIndex(card.files().empty() ? 1 : 0);
    m_tree->clear();
    m_tree->setColumnHidden(markColumn, true);
    m_day.reset();
    fillTree(card);
}

void CardList::selectOnly(const QList<QTreeWidgetItem*>& items)
{
    const QSignalBlocker blocker(m_tree);
    m_tree->clearSelection();
    if (!items.isEmpty())
        m_tree->setCurrentItem(items.front(), 0, QItemSelectionModel::NoUpdate);
    for (QTreeWidgetItem* item : items)
        item->setSelected(true);
}

QTreeWidgetItem* CardList::addEntry(const QDate& date)
{
    if (m_day != date)
        addHeading(date);
    m_day = date;
    return new QTreeWidgetItem(m_tree);
}

void CardList::addHeading(const QDate& date)
{
    auto* const item = new QTreeWidgetItem(m_tree);
    item->setText(0, date.isValid() ? date.toString(QStringLiteral("dd.MM.yyyy"))
                                    : tr("Unknown Date"));
    QFont bold = m_tree->font();
    bold.setWeight(QFont::Bold);
    bold.setPixelSize(headingPixels);
    item->setFont(0, bold);
    item->setBackground(0, QBrush(headingColor));
    item->setForeground(0, QBrush(Qt::black));
    item->setFlags(Qt::ItemIsEnabled);
    item->setTextAlignment(0, Qt::AlignCenter);
    item->setFirstColumnSpanned(true);
}

void CardList::showTrust(QTreeWidgetItem& item, const Findings& findings)
{
    Findings told = findings;
    std::ranges::stable_sort(told, std::ranges::greater{}, [](const TrustFinding* finding) {
        return trustSeverity(finding->kind);
    });
    const TrustMark mark =
        told.empty() ? TrustMark::None : markOf(trustSeverity(told.front()->kind));
    const QSignalBlocker blocker(m_tree);
    if (mark == TrustMark::None) {
        item.setData(markColumn, Qt::DecorationRole, {});
        item.setToolTip(markColumn, {});
        item.setData(markColumn, Qt::AccessibleTextRole, {});
        return;
    }
    QString tip;
    for (std::size_t i = 0; i < told.size() && i < mostSentences; ++i)
        tip += paragraph(told[i]->text);
    if (told.size() > mostSentences)
        tip += paragraph(
            tr("... and %n more", nullptr, static_cast<int>(told.size() - mostSentences)));
    item.setIcon(markColumn, trustIcon(mark));
    item.setToolTip(markColumn, tip);
    item.setData(markColumn, Qt::AccessibleTextRole, trustKindTitle(told.front()->kind));
    m_tree->setColumnHidden(markColumn, false);
}

} // namespace KOLT
