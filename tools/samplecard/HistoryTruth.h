#pragma once

#include "tools/samplecard/HistoryPlan.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <map>

namespace KOLT::SampleCard {

/// What one engine run of a history was really like.
struct HistoryFacts
{
    double runSeconds = 0.0; ///< of the engine
    double fuel = 0.0;       ///< litres
    int flights = 0;
    double hoursBefore = 0.0; ///< on the unit's counter, as is the next
    int startsBefore = 0;
    QStringList files;
};

/// The truth file of a history, "history.json": an array "cycles" in order of time, an array
/// "engines" with the sums of each engine on the cards ("recorded") and flown without a card
/// ("withoutCard"), an array "units" with their counters at the end.
class HistoryTruth
{
public:
    void add(const HistoryCycle& cycle, const HistoryFacts& facts);

    bool write(const QString& path) const;

private:
    struct Sum
    {
        int cycles = 0;
        int starts = 0;
        int flights = 0;
        double runSeconds = 0.0;
        double fuel = 0.0;
    };

    struct Engine
    {
        Sum recorded;
        Sum withoutCard;
        QJsonArray units; ///< with the time of the first run in each
        std::uint32_t lastUnit = 0;
    };

    struct Unit
    {
        double hoursFirst = 0.0;
        int startsFirst = 0;
        double hours = 0.0;
        int starts = 0;
    };

    static QJsonObject json(const Sum& sum);

    QJsonArray m_cycles;
    std::map<QString, Engine> m_engines;
    std::map<std::uint32_t, Unit> m_units;
};

} // namespace KOLT::SampleCard
