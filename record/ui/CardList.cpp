#include "record/ui/CardList.h"

#include "record/CardContainer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr int pageMargin = 3;
constexpr int headingPixels = 20;
constexpr QColor headingColor(195, 171, 99);

/// A tree whose day headings are filled over the full width.
class DayTree : public QTreeWidget
{
public:
    using QTreeWidget::QTreeWidget;

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override
    {
        if (!index.flags().testFlag(Qt::ItemIsSelectable) && !index.parent().isValid())
            painter->fillRect(option.rect, headingColor);
        QTreeWidget::drawRow(painter, option, index);
    }
};

} // namespace

CardList::CardList(QWidget* parent)
    : QWidget(parent)
    , m_name(new QLineEdit(this))
    , m_tree(new DayTree(this))
    , m_note(new QLabel(this))
    , m_stack(new QStackedLayout)
{
    m_name->setReadOnly(true);
    m_name->setToolTip(tr("The folder that is open"));
    m_tree->setHeaderHidden(true);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setAlignment(Qt::AlignCenter);
    m_note->setWordWrap(true);
    m_stack->addWidget(m_tree);
    m_stack->addWidget(m_note);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    layout->addWidget(m_name);
    layout->addLayout(m_stack);
}

void CardList::fill(const CardContainer& card, const QString& note)
{
    const QSignalBlocker blocker(m_tree);
    m_name->setText(card.folder());
    m_note->setText(note);
    m_stack->setCurrentIndex(card.files().empty() ? 1 : 0);
    m_tree->clear();
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
}

} // namespace KOLT
