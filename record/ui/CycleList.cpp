#include "record/ui/CycleList.h"

#include "record/CardContainer.h"
#include "record/ClockTime.h"
#include "ui/PaintedIcon.h"

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

QString explain(StateMark mark)
{
    switch (mark) {
    case StateMark::Good:
        return CycleList::tr("Nothing was exceeded");
    case StateMark::Warning:
        return CycleList::tr("A warning threshold was exceeded");
    case StateMark::Limit:
        return CycleList::tr("A limit was exceeded");
    case StateMark::None:
        break;
    }
    return {};
}

} // namespace

CycleList::CycleList(QWidget* parent)
    : CardList(parent)
{
    tree().setObjectName(QStringLiteral("cyclesTree"));
    tree().setAccessibleName(tr("Cycles"));
    tree().setSelectionMode(QAbstractItemView::SingleSelection);
}

void CycleList::fillTree(const CardContainer& card)
{
    m_items.clear();
    m_marks.clear();
    m_findings.clear();
    const QIcon icon = lookIcon(QStringLiteral("cycle"));
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
    const QIcon icon = lookIcon(QStringLiteral("flight"));
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
    showMarks(cycle);
    showFindings(cycle);
    cycleItem->setExpanded(true);
    if (before && before->cycle == cycle && before->flight >= 0 && before->flight < index)
        tree().setCurrentItem(cycleItem->child(before->flight));
}

void CycleList::setMarks(unsigned int cycle, StateMark mark, const std::vector<StateMark>& flights)
{
    m_marks[cycle] = {mark, flights};
    showMarks(cycle);
}

void CycleList::showMarks(unsigned int cycle)
{
    QTreeWidgetItem* const cycleItem = itemOf({cycle});
    const auto marks = m_marks.find(cycle);
    if (cycleItem == nullptr || marks == m_marks.end())
        return;
    const auto mark = [](QTreeWidgetItem& item, const char* icon, StateMark state) {
        item.setIcon(0, markedIcon(lookIcon(QLatin1String(icon)), state));
        item.setToolTip(0, explain(state));
    };
    mark(*cycleItem, "cycle", marks->second.cycle);
    const auto& flights = marks->second.flights;
    for (int i = 0; i < cycleItem->childCount() && i < static_cast<int>(flights.size()); ++i)
        mark(*cycleItem->child(i), "flight", flights[static_cast<std::size_t>(i)]);
}

void CycleList::setTrust(unsigned int cycle, const std::vector<TrustFinding>& findings)
{
    m_findings[cycle] = findings;
    showFindings(cycle);
}

void CycleList::showFindings(unsigned int cycle)
{
    QTreeWidgetItem* const cycleItem = itemOf({cycle});
    const auto known = m_findings.find(cycle);
    if (cycleItem == nullptr || known == m_findings.end())
        return;
    Findings all;
    std::vector<Findings> ofFlights(static_cast<std::size_t>(cycleItem->childCount()));
    for (const TrustFinding& finding : known->second) {
        all.push_back(&finding);
        for (const FlightMark& mark : finding.marks) {
            if (mark.flight < ofFlights.size())
                ofFlights[mark.flight].push_back(&finding);
        }
    }
    showTrust(*cycleItem, all);
    for (std::size_t i = 0; i < ofFlights.size(); ++i)
        showTrust(*cycleItem->child(static_cast<int>(i)), ofFlights[i]);
}

std::optional<CycleList::Choice> CycleList::selected() const
{
    const QList<QTreeWidgetItem*> items = tree().selectedItems();
    if (items.isEmpty())
        return std::nullopt;
    return choiceOf(*items.front());
}

CycleList::Choice CycleList::choiceOf(const QTreeWidgetItem& item)
{
    return {item.data(0, cycleRole).toUInt(), item.data(0, flightRole).toInt()};
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
