#include "tools/samplecard/SampleHistory.h"

#include "tools/samplecard/CycleWriter.h"
#include "tools/samplecard/HistoryTruth.h"

#include <array>

namespace KOLT::SampleCard {

namespace {

constexpr int monthsToErasure = 3;

/// A recording unit with its card and its counters.
struct Unit
{
    double hours = 0.0;
    int starts = 0;
    int month = -1; ///< of the card's folder
    QString folder; ///< of the month's card
    int fileNumber = 1;
    QStringList runFiles; ///< of the last engine run
};

class Club
{
public:
    Club(const HistoryOptions& options, const MessageEncoder& encoder, Random& random)
        : m_options(options)
        , m_encoder(encoder)
        , m_random(random)
    {
        m_units[0].hours = 1234.56;
        m_units[0].starts = 2087;
        m_units[1].hours = 311.2;
        m_units[1].starts = 540;
    }

    bool fly(const HistoryCycle& cycle, HistoryTruth& truth);

    /// The folders of the last month.
    bool finish(int month);

    QString error() const { return m_error; }

private:
    bool openMonth(Unit& unit, std::uint32_t serial, int month);
    bool copyCard(const QString& from, const QString& to);
    bool fail(const QString& path);
    bool record(Unit& unit, const CyclePlan& plan, CycleSimulation& simulation);

    const HistoryOptions& m_options;
    const MessageEncoder& m_encoder;
    Random& m_random;
    std::array<Unit, 2> m_units;
    std::array<std::uint32_t, 2> m_serials{};
    QString m_error;
};

bool Club::fail(const QString& path)
{
    m_error = QStringLiteral("cannot write %1").arg(path);
    return false;
}

bool Club::copyCard(const QString& from, const QString& to)
{
    const QDir source(from);
    for (const QString& name : source.entryList(QDir::Files, QDir::Name)) {
        const QString target = to + QLatin1Char('/') + name;
        if (!QFile::copy(source.filePath(name), target))
            return fail(target);
    }
    return true;
}

/// Saves the card month by month up to this one: each later folder begins with what was on it.
bool Club::openMonth(Unit& unit, std::uint32_t serial, int month)
{
    while (unit.month < month) {
        const int next = unit.month + 1;
        const QString folder =
            QStringLiteral("%1/%2-%3")
                .arg(m_options.folder,
                     m_options.firstMonth.addMonths(next).toString(QStringLiteral("yyyy-MM")))
                .arg(serial);
        if (QFileInfo::exists(folder)) {
            m_error =
                QStringLiteral("%1 is there already, and recordings are not replaced").arg(folder);
            return false;
        }
        if (!QDir().mkpath(folder))
            return fail(folder);
        const bool isErased = next % monthsToErasure == 0;
        if (isErased) {
            unit.fileNumber = 1;
        } else {
            if (!copyCard(unit.folder, folder))
                return false;
            // The unit went on writing after the folder before was saved.
            if (unit.month % monthsToErasure == 0 && unit.runFiles.size() > 1) {
                const QString late = QLatin1Char('/') + unit.runFiles.constLast();
                if (!QFile::remove(unit.folder + late))
                    return fail(unit.folder + late);
            }
        }
        unit.runFiles.clear();
        unit.folder = folder;
        unit.month = next;
    }
    return true;
}

bool Club::record(Unit& unit, const CyclePlan& plan, CycleSimulation& simulation)
{
    const int first = unit.fileNumber;
    CycleWriter writer(QDir(unit.folder), plan, m_encoder, m_random, unit.fileNumber);
    if (!writer.write(simulation)) {
        m_error = writer.error();
        return false;
    }
    unit.runFiles.clear();
    for (int number = first; number < unit.fileNumber; ++number)
        unit.runFiles.append(CycleWriter::fileName(number));
    return true;
}

bool Club::fly(const HistoryCycle& cycle, HistoryTruth& truth)
{
    const auto index = static_cast<std::size_t>(cycle.unit);
    Unit& unit = m_units[index];
    m_serials[index] = cycle.plan.identity.unit;
    if (!openMonth(unit, cycle.plan.identity.unit, cycle.month))
        return false;
    HistoryFacts facts;
    facts.hoursBefore = unit.hours;
    facts.startsBefore = unit.starts;
    CycleSimulation simulation(cycle.plan, unit.hours, unit.starts, m_random);
    if (cycle.hasCard) {
        if (!record(unit, cycle.plan, simulation))
            return false;
        facts.files = unit.runFiles;
    } else {
        while (simulation.step(false)) {
        }
    }
    unit.hours = simulation.quantities().engineHours;
    ++unit.starts;
    facts.runSeconds = (unit.hours - facts.hoursBefore) * 3600.0;
    facts.fuel = simulation.quantities().fuelUsed;
    facts.flights = simulation.flights();
    truth.add(cycle, facts);
    return true;
}

bool Club::finish(int month)
{
    for (std::size_t i = 0; i < m_units.size(); ++i) {
        if (m_serials[i] != 0 && !openMonth(m_units[i], m_serials[i], month))
            return false;
    }
    return true;
}

} // namespace

bool writeSampleHistory(const HistoryOptions& options,
                        const std::function<void(const QString& line)>& report, QString* error)
{
    const auto fail = [error](const QString& text) {
        if (error != nullptr)
            *error = text;
        return false;
    };
    Profile profile;
    if (!profile.loadProfil(options.profilePath, QString()))
        return fail(QStringLiteral("cannot read profile %1").arg(options.profilePath));
    MessageEncoder encoder;
    if (!encoder.prepare(profile, error))
        return false;
    encoder.thinOut();
    if (options.folder.isEmpty() || !QDir().mkpath(options.folder))
        return fail(QStringLiteral("cannot create folder %1").arg(options.folder));

    Random random(options.seed);
    const std::vector<HistoryCycle> cycles = planHistory(options, random);
    HistoryTruth truth;
    Club club(options, encoder, random);
    int month = 0;
    int flights = 0;
    for (const HistoryCycle& cycle : cycles) {
        if (cycle.month != month && report) {
            report(QStringLiteral("%1: %2 flights so far")
                       .arg(options.firstMonth.addMonths(month).toString(QStringLiteral("yyyy-MM")))
                       .arg(flights));
        }
        month = cycle.month;
        flights += cycle.plan.flights.count;
        if (!club.fly(cycle, truth))
            return fail(club.error());
    }
    // The card that was saved too early is completed by the folder of the month after.
    if (!club.finish(month % monthsToErasure == 0 ? month + 1 : month))
        return fail(club.error());
    const QString path = options.folder + QStringLiteral("/history.json");
    return truth.write(path) || fail(QStringLiteral("cannot write %1").arg(path));
}

} // namespace KOLT::SampleCard
