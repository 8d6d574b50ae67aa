#pragma once

#include "record/Flight.h"
#include "record/TrustFinding.h"
#include "record/ui/CardList.h"
#include "ui/StateMark.h"

#include <map>
#include <optional>
#include <vector>

namespace KOLT {

/// The tab "Cycles": the engine cycles of the card, and below a cycle the flights found in it.
class CycleList : public CardList
{
    Q_OBJECT

public:
    /// A cycle, or one of its flights by index.
    struct Choice
    {
        static constexpr int wholeCycle = -1;

        unsigned int cycle = 0;
        int flight = wholeCycle;
    };

    explicit CycleList(QWidget* parent = nullptr);

    /// The selected cycle or flight.
    std::optional<Choice> selected() const;

    /// The flight's item, or the cycle's if the flight is not listed; null without such a cycle.
    QTreeWidgetItem* itemOf(const Choice& choice) const;

    /// Lists the flights below their cycle and keeps a selected flight selected. Sends no signal.
    void listFlights(unsigned int cycle, const std::vector<Flight>& flights);

    /// Marks the cycle, and its flights wherever they are listed.
    void setMarks(unsigned int cycle, StateMark mark, const std::vector<StateMark>& flights);

    /// Marks the cycle by its findings, and wherever they are listed, the flights whose figures
    /// they touch.
    void setTrust(unsigned int cycle, const std::vector<TrustFinding>& findings);

    static Choice choiceOf(const QTreeWidgetItem& item);

protected:
    void fillTree(const CardContainer& card) override;

private:
    struct Marks
    {
        StateMark cycle = StateMark::None;
        std::vector<StateMark> flights;
    };

    void showMarks(unsigned int cycle);
    void showFindings(unsigned int cycle);

    std::map<unsigned int, QTreeWidgetItem*> m_items;             ///< by number of the cycle
    std::map<unsigned int, Marks> m_marks;                        ///< by number of the cycle
    std::map<unsigned int, std::vector<TrustFinding>> m_findings; ///< by number of the cycle
};

} // namespace KOLT
