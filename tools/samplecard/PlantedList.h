#pragma once

#include "tools/samplecard/CycleWriter.h"

#include <QJsonArray>

namespace KOLT::SampleCard {

/// What a card holds on purpose, for tests and demonstrations: an array of objects with "cycle",
/// "from" and "to" (seconds on the counter), of incidents with "parameter" and "peak", of what
/// makes the recording doubtful with "kind" and "files".
class PlantedList
{
public:
    void add(int cycle, const CycleSimulation& simulation, const CycleWriter& writer);

    bool write(const QString& path) const;

private:
    QJsonArray m_planted;
};

} // namespace KOLT::SampleCard
