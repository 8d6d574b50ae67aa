#include "tools/samplecard/SampleCard.h"

#include "tools/samplecard/CycleWriter.h"
#include "tools/samplecard/PlantedList.h"

namespace KOLT::SampleCard {

namespace {

constexpr double earlierHours = 1234.56;
constexpr int earlierStarts = 2087;

QString description(int number, const CyclePlan& plan, const CycleWriter& writer,
                    const CycleSimulation& simulation)
{
    return QStringLiteral("Cycle %1: %2, %3 to %4, %5 min, %6 landings")
        .arg(number)
        .arg(plan.clock.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")), writer.firstFile(),
             writer.lastFile())
        .arg(simulation.counter() / 60.0, 0, 'f', 1)
        .arg(simulation.flights());
}

bool fail(QString* error, const QString& text)
{
    if (error != nullptr)
        *error = text;
    return false;
}

} // namespace

bool writeSampleCard(const SampleCardOptions& options, QString* error)
{
    // Loaded without a variant, which takes the elements of all variants: the card serves them all.
    Profile profile;
    if (!profile.loadProfil(options.profilePath, QString()))
        return fail(error, QStringLiteral("cannot read profile %1").arg(options.profilePath));
    MessageEncoder encoder;
    if (!encoder.prepare(profile, error))
        return false;
    const QDir folder(options.folder);
    if (options.folder.isEmpty() || !folder.mkpath(QStringLiteral(".")))
        return fail(error, QStringLiteral("cannot create folder %1").arg(options.folder));

    Random random(options.seed);
    const std::vector<CyclePlan> card = options.isShort       ? shortCard()
                                        : options.hours > 0.0 ? longCard(options.hours)
                                                              : defaultCard();
    PlantedList planted;
    int fileNumber = 1;
    int cycleNumber = 0;
    double hours = earlierHours;
    for (const CyclePlan& plan : card) {
        CycleSimulation simulation(plan, hours, earlierStarts + cycleNumber, random);
        ++cycleNumber;
        CycleWriter writer(folder, plan, encoder, random, fileNumber);
        if (!writer.write(simulation))
            return fail(error, writer.error());
        planted.add(cycleNumber, simulation, writer);
        hours = simulation.quantities().engineHours;
        if (options.report)
            options.report(description(cycleNumber, plan, writer, simulation));
    }
    if (!options.plantedPath.isEmpty() && !planted.write(options.plantedPath))
        return fail(error, QStringLiteral("cannot write %1").arg(options.plantedPath));
    return true;
}

} // namespace KOLT::SampleCard
