#include "record/ui/CycleList.h"

#include "record/CardContainer.h"
#include "record/ClockTime.h"

#include <QSignalBlocker>

namespace KOLT {

namespace {

constexpr int cycleRole = Qt::UserRole;
constexpr int flightRole = Qt::UserRole + 1;
constexpr int nameWidth = 13; ///< characters

void setChoice(QTreeWidgetItem* item, const CycleList::Choice& choice)
{
    item->setData(0, cycleRole, choice.cycle);
    item->setData(0, flightRole, choice.flight);
}

} // namespace

CycleList::CycleList(QWidget* parent)
    : CardList(parent)
{
    tree().setObjectName(QStringLiteral("cyclesTree"));
    tree().setSelectionMode(QAbstractItemView::SingleSelection);
}

void CycleList::fillTree(const CardContainer& card)
{
    m_items.clear();
    const QIcon icon(QStringLiteral(":/icons/cycle.svg"));
    for (const auto& [key, cycle] : card.cycles()) {
        QTreeWidgetItem* const item = addEntry(cycle.dateTime.date());
        item->setText(0, QStringLiteral("%1 %2 (%3)")
                             .arg(cycle.name.leftJustified(nameWidth),
                                  cycle.dateTime.toString(QStringLiteral("d.M.yyyy h:mm:ss")),
                                  durationText(cycle.durationSeconds())));
        item->setIcon(0, icon);
        const auto number = static_cast<unsigned int>(cycle.number);
        setChoice(item, {number});
        m_items[number] = item;
    }
}

void CycleList::listFlights(unsigned int cycle, const std::vector<Flight>& flights)
{
    QTreeWidgetItem* const cycleItem = itemOf({cycle});
    if (cycleItem == nullptr)
        return;
    const QSignalBlocker blocker(&tree());
    const std::optional<Choice> before = selected();
    qDeleteAll(cycleItem->takeChildren());
    const QIcon icon(QStringLiteral(":/icons/flight.svg"));
    int index = 0;
    for (const Flight& flight : flights) {
        auto* const item = new QTreeWidgetItem(cycleItem);
        item->setText(0, tr("Flight %1 %2 (%3)")
                             .arg(QString::number(index + 1),
                                  flight.dateTime.toString(QStringLiteral("hh:mm:ss")),
                                  durationText(flight.endSeconds - flight.startSeconds)));
        item->setIcon(0, icon);
        setChoice(item, {cycle, index});
        ++index;
    }
    cycleItem->setExpanded(true);
    if (before && before->cycle == cycle && before->flight >= 0 && before->flight < index)
        tree().setCurrentItem(cycleItem->child(before->flight));
}

std::optional<CycleList::Choice> CycleList::selected() const
{
    const QList<QTreeWidgetItem*> items = tree().selectedItems();
    if (items.isEmpty())
        return std::nullopt;
    return Choice{items.front()->data(0, cycleRole).toUInt(),
                  items.front()->data(0, flightRole).toInt()};
}

QTreeWidgetItem* CycleList::itemOf(const Choice& choice) const
{
    const auto found = m_items.find(choice.cycle);
    if (found == m_items.end())
        return nullptr;
    QTreeWidgetItem* const flight = found->second->child(choice.flight);
    return flight != nullptr ? flight : found->second;
}

} // namespace KOLT
