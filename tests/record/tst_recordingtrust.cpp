#include "record/RecordingTrust.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RandomCard.h"
#include "tests/support/Rows.h"

#include <functional>
#include <set>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

using File = RandomCard::File;

/// Flights with their marks, and findings as "kind first-file second-file", over all cycles.
struct Told
{
    std::vector<Flight> flights;
    std::vector<Figures> marked;
    QStringList findings;
};

std::vector<double> valuesOf(const Flight& f)
{
    const auto moment = static_cast<double>(f.dateTime.toMSecsSinceEpoch());
    return {f.dateTime.isValid() ? moment : 0.0,
            f.startSeconds,
            f.endSeconds,
            f.takeOffSeconds,
            f.landingSeconds,
            f.minAltitude,
            f.maxAltitude,
            f.altitudeGain,
            f.climbRate,
            f.descentRate,
            f.maxGroundSpeed,
            f.fuelA,
            f.fuelB,
            f.fuel,
            f.timePer100m,
            f.fuelPer100m,
            f.takeOffDistance,
            f.takeOffDistance15m};
}

QString keyOf(const QString& kind, const std::vector<QString>& files)
{
    // Which files come before the first cycle depends on what else happened to them.
    const bool isAboutAll = kind == QLatin1String("before-first-cycle");
    return (QStringList{kind} +
            (isAboutAll ? QStringList() : QStringList(files.begin(), files.end())))
        .join(' ');
}

Told tell(const Profile& profile, const QString& folder)
{
    Told told;
    CardContainer card(profile);
    card.readContainer(folder);
    const CardFiles files(card);
    for (const auto& [number, cycle] : card.cycles()) {
        card.loadCycle(number);
        const RecordingTrust trust = recordingTrust(profile, files, *card.dataSet());
        for (const TrustFinding& finding : trust.findings)
            told.findings << keyOf(trustKindName(finding.kind), finding.files);
        told.flights.insert(told.flights.end(), card.dataSet()->flights.begin(),
                            card.dataSet()->flights.end());
        told.marked.insert(told.marked.end(), trust.marked.begin(), trust.marked.end());
    }
    told.findings.sort();
    return told;
}

/// Changes cards, and knows what has to be told of it.
class Mutator
{
public:
    explicit Mutator(RandomCard& card)
        : m_card(card)
        , m_isUsed(card.files().size())
    {
    }

    /// One change to a file that is apart from those changed before; false when there is none.
    bool change()
    {
        for (int tries = 0; tries < 30; ++tries) {
            const auto i =
                static_cast<std::size_t>(m_card.whole(0, static_cast<int>(m_isUsed.size()) - 1));
            if (isFree(i) && isFree(i - 1) && isFree(i + 1) && changeFile(i))
                return true;
        }
        return false;
    }

    QStringList expected() const
    {
        QStringList sorted = m_expected;
        sorted.sort();
        return sorted;
    }

private:
    bool isFree(std::size_t i) const { return i >= m_isUsed.size() || !m_isUsed[i]; }

    File& file(std::size_t i) { return m_card.files()[i]; }

    bool isInRun(std::size_t i, int run) { return i < m_isUsed.size() && file(i).run == run; }

    void expect(const QString& kind, const std::vector<QString>& files)
    {
        m_expected << keyOf(kind, files);
    }

    bool changeFile(std::size_t i)
    {
        const bool isDone = [&] {
            switch (m_card.whole(0, 6)) {
            case 0:
                return drop(i);
            case 1:
                return copy(i);
            case 2:
                return cut(i);
            case 3:
                return swap(i);
            case 4:
                return hole(i);
            case 5:
                return stray(i);
            default:
                return serial(i);
            }
        }();
        if (isDone)
            m_isUsed[i] = true;
        return isDone;
    }

    bool drop(std::size_t i)
    {
        if (i + 1 == m_isUsed.size() || i >= m_isUsed.size())
            return false; // nobody knows that there was one
        file(i).isDropped = true;
        if (i == 0) {
            expect("before-first-cycle", {});
            expect("late-clock", {file(1).name});
        } else if (isInRun(i + 1, file(i).run)) {
            expect("missing-file", {file(i - 1).name, file(i + 1).name});
        } else {
            expect("missing-file", {file(i - 1).name});
        }
        return true;
    }

    bool copy(std::size_t i)
    {
        File copied = file(i);
        copied.name.replace(".CAN", " (1).CAN");
        expect("duplicate-file", {copied.name, file(i).name});
        m_card.files().push_back(copied);
        return true;
    }

    bool cut(std::size_t i)
    {
        const int size = static_cast<int>(file(i).samples.size()) * 28;
        const int lost = m_card.whole(1, size / 2);
        if (lost % 28 == 0)
            return false; // the last file of a run may just end there
        file(i).bytesLost = lost;
        expect("truncated-file", {file(i).name});
        return true;
    }

    bool swap(std::size_t i)
    {
        if (file(i).place == 0 || !isInRun(i + 1, file(i).run) || !isFree(i + 2))
            return false;
        std::swap(file(i).header, file(i + 1).header);
        std::swap(file(i).samples, file(i + 1).samples);
        m_isUsed[i + 1] = true;
        expect("time-jump", {file(i).name, file(i + 1).name});
        return true;
    }

    bool hole(std::size_t i)
    {
        auto& samples = file(i).samples;
        const std::uint64_t start = samples.front().ticks;
        const double length = static_cast<double>(samples.back().ticks - start) / 32e6;
        const double seconds = m_card.uniform(2.5, 30.0);
        if (length < seconds + 12.0)
            return false;
        const double from = m_card.uniform(5.0, length - seconds - 5.0);
        std::erase_if(samples, [&](const RecordFileWriter::RecordSample& sample) {
            const double t = static_cast<double>(sample.ticks - start) / 32e6;
            return t > from && t < from + seconds;
        });
        expect("hole", {file(i).name});
        return true;
    }

    bool stray(std::size_t i)
    {
        auto& samples = file(i).samples;
        const int last = static_cast<int>(samples.size()) - 1;
        const int place = m_card.chance(0.1)   ? 0
                          : m_card.chance(0.1) ? last
                                               : m_card.whole(0, last);
        const double away = m_card.chance(0.5) ? m_card.uniform(3.0, 300.0) : 1e6;
        auto& ticks = samples[static_cast<std::size_t>(place)].ticks;
        const std::uint64_t moved = RecordFileWriter::ticksFromSeconds(away);
        ticks = m_card.chance(0.5) && moved < ticks ? ticks - moved : ticks + moved;
        expect("time-jump", {file(i).name});
        return true;
    }

    bool serial(std::size_t i)
    {
        // Of few files nobody can tell which is the other engine's.
        const auto ofRun = [&](const File& f) { return f.run == file(i).run; };
        if (std::ranges::count_if(m_card.files(), ofRun) < 4 ||
            !m_serialRuns.insert(file(i).run).second)
            return false;
        const bool isEngine = m_card.chance(0.5);
        if (isEngine)
            file(i).header.engineSerial = "E-2";
        else
            file(i).header.ecuSerialNumber = 4712;
        expect("serial-changed", {file(i).name});
        return true;
    }

    RandomCard& m_card;
    std::vector<bool> m_isUsed;
    std::set<int> m_serialRuns;
    QStringList m_expected;
};

int cardCount()
{
    const int count = qEnvironmentVariableIntValue("KOLT_TRUST_CARDS");
    return count > 0 ? count : 200;
}

} // namespace

/// What is told of recordings is what happened to them: nothing of sound ones, and of damaged ones
/// the damage, once, with every figure marked that it changed.
class TestRecordingTrust : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void soundCards();
    void damagedCards();
    void otherDamage_data();
    void otherDamage();

private:
    Profile m_profile;
    std::unique_ptr<DiagnosticsCapture> m_output;
};

void TestRecordingTrust::initTestCase()
{
    m_output = std::make_unique<DiagnosticsCapture>();
    QVERIFY(loadProfile(m_profile, RandomCard::profile()));
}

void TestRecordingTrust::soundCards()
{
    std::size_t flights = 0;
    for (int seed = 1; seed <= cardCount(); ++seed) {
        const QTemporaryDir folder;
        QVERIFY(RandomCard(static_cast<unsigned>(seed)).write(folder.path()));
        const Told told = tell(m_profile, folder.path());
        QVERIFY2(told.findings.isEmpty(),
                 qPrintable(QStringLiteral("card %1: %2").arg(seed).arg(told.findings.join(", "))));
        flights += told.flights.size();
    }
    QVERIFY(flights >= static_cast<std::size_t>(cardCount()));
}

void TestRecordingTrust::damagedCards()
{
    int changedFigures = 0;
    for (int seed = 1; seed <= cardCount(); ++seed) {
        RandomCard card(static_cast<unsigned>(seed));
        const QTemporaryDir sound;
        const QTemporaryDir damaged;
        QVERIFY(card.write(sound.path()));
        Mutator mutator(card);
        for (int changes = card.whole(1, 3); changes > 0; --changes)
            mutator.change();
        QVERIFY(card.write(damaged.path()));
        const Told before = tell(m_profile, sound.path());
        const Told after = tell(m_profile, damaged.path());
        const QString which = QStringLiteral("card %1: ").arg(seed);
        QVERIFY2(after.findings == mutator.expected(),
                 qPrintable(which + after.findings.join(", ") + " instead of " +
                            mutator.expected().join(", ")));
        for (std::size_t i = 0; i < after.flights.size(); ++i) {
            const std::vector<double> values = valuesOf(after.flights[i]);
            const Figures marked = after.marked[i];
            if ((marked & Figure::TakeOff) != 0 && (marked & Figure::Landing) != 0)
                continue; // which flight it was is open
            const std::size_t key = (marked & Figure::TakeOff) == 0 ? 3 : 4;
            const auto same = std::ranges::find_if(before.flights, [&](const Flight& flight) {
                return valuesOf(flight)[key] == values[key];
            });
            QVERIFY2(same != before.flights.end(), qPrintable(which + figureKeys[key]));
            const std::vector<double> intact = valuesOf(*same);
            for (std::size_t k = 0; k < values.size(); ++k) {
                const bool isSame = values[k] == intact[k];
                changedFigures += isSame ? 0 : 1;
                QVERIFY2(isSame || (marked >> k & 1U) != 0,
                         qPrintable(which + QStringLiteral("%1 is %2 instead of %3; %4")
                                                .arg(QLatin1String(figureKeys[k]))
                                                .arg(values[k])
                                                .arg(intact[k])
                                                .arg(after.findings.join(", "))));
            }
        }
    }
    QVERIFY(changedFigures > cardCount() / 4); // or the cards would show nothing
}

namespace {

/// Changes a card whose first flight is known.
using Change = std::function<void(RandomCard&, const Flight&)>;

/// Changes the samples of a message in the first run, between times after the take-off, or before.
Change inMessage(std::uint32_t id, double from, double to,
                 const std::function<void(RecordFileWriter::RecordSample&)>& change)
{
    return [=](RandomCard& card, const Flight& flight) {
        for (File& file : card.files()) {
            for (RecordFileWriter::RecordSample& sample : file.samples) {
                const double t = static_cast<double>(sample.ticks) / 32e6 - flight.takeOffSeconds;
                if (file.run == 0 && sample.identifier == id && t >= from && t < to)
                    change(sample);
            }
            std::erase_if(file.samples, [](const auto& sample) { return sample.identifier == 0; });
        }
    };
}

void silence(RecordFileWriter::RecordSample& sample)
{
    sample.identifier = 0;
}

void clear(RecordFileWriter::RecordSample& sample)
{
    sample.data = {};
}

void spoil(RecordFileWriter::RecordSample& sample)
{
    sample.data.fill(0xFF); // no number
}

Change inHeader(std::size_t file,
                const std::function<void(RecordFileWriter::RecordHeader&)>& change)
{
    return [=](RandomCard& card, const Flight&) { change(card.files()[file].header); };
}

} // namespace

void TestRecordingTrust::otherDamage_data()
{
    constexpr Figures fuel = Figure::FuelA | Figure::FuelB | Figure::Fuel | Figure::FuelPer100m;
    constexpr Figures distances = Figure::Distances;
    constexpr Figures inAir = Figure::All & ~(Figure::DateTime | Figure::Start | Figure::TakeOff);
    const Rows<Change, QStringList, Figures> row; // of the first run, of its first flight
    row("silent", inMessage(5, 30, 50, silence), {"message-hole"}, fuel);
    row("too short to tell", inMessage(5, 30, 35, silence), {}, 0);
    row("no figure's", inMessage(6, 30, 50, silence), {"message-hole"}, 0);
    row("silent to the end", inMessage(5, 30, 1e9, silence), {"message-hole"}, fuel);
    row("silent before the flight", inMessage(5, -1e9, -35, silence), {}, 0);
    row("speed is silent", inMessage(1, 30, 50, silence), {"message-hole"}, inAir);
    row("no fix", inMessage(2, 30, 50, clear), {"no-position"}, inAir);
    row("no position sent", inMessage(2, 30, 50, silence), {"message-hole"}, distances);
    row(
        "fuel is silent, and no fix",
        [](RandomCard& card, const Flight& flight) {
            inMessage(5, 30, 50, silence)(card, flight);
            inMessage(2, 30, 50, clear)(card, flight);
        },
        {"message-hole", "no-position"}, inAir);
    row(
        "serial number hides nothing",
        [](RandomCard& card, const Flight& flight) {
            inMessage(6, 30, 50, silence)(card, flight);
            for (std::size_t i = 1; i < 20 && i < card.files().size(); ++i)
                card.files()[i].header.engineSerial = i < 2 ? "E-1" : "E-2";
        },
        {"message-hole", "serial-changed"}, Figure::All);
    row("no fix on the ground", inMessage(2, -70, -50, clear), {}, 0);
    row("no number", inMessage(5, 30, 31, spoil), {"not-a-number", "not-a-number"}, fuel);
    row("no number at first", inMessage(5, -1e9, -35, spoil), {}, 0);
    row("never sent", inMessage(5, -1e9, 1e9, silence), {"never-recorded"}, fuel);
    row("known to nobody", inMessage(6, -1e9, 1e9, [](auto& s) { s.identifier = 99; }),
        {"unknown-messages", "never-recorded"}, 0);
    row("software", inHeader(1, [](auto& header) { header.emuVersion = "4.0"; }),
        {"software-changed"}, fuel);
    row("first header knows nothing", inHeader(0, [](auto& header) { header.engineSerial = ""; }),
        {}, 0);
    row("other engine", inHeader(1, [](auto& header) { header.engineType = "850"; }),
        {"other-engine"}, 0);
    row(
        "ends in the air",
        [](RandomCard& card, const Flight& flight) {
            const std::uint64_t last =
                RecordFileWriter::ticksFromSeconds(flight.landingSeconds - 20.0);
            for (File& file : card.files()) {
                std::erase_if(file.samples, [&](const auto& s) { return s.ticks > last; });
                file.isDropped = file.run > 0 || file.samples.empty();
            }
        },
        {"unfinished-flight"}, 0);
}

void TestRecordingTrust::otherDamage()
{
    const auto [change, expected, marked] = fetchRow<Change, QStringList, Figures>();
    RandomCard card(7);
    for (const bool isDamaged : {false, true}) {
        const QTemporaryDir folder;
        QVERIFY(card.write(folder.path()));
        CardContainer container(m_profile);
        QVERIFY(container.readContainer(folder.path()) && container.loadCycle(1));
        const DataSet& dataSet = *container.dataSet();
        const RecordingTrust trust =
            recordingTrust(m_profile, CardFiles(container), dataSet, {QStringLiteral("915*")});
        if (!isDamaged) {
            QVERIFY(trust.findings.empty());
            change(card, dataSet.flights.front());
            continue;
        }
        QStringList kinds;
        for (const TrustFinding& finding : trust.findings)
            kinds << trustKindName(finding.kind);
        QCOMPARE(kinds, expected);
        QCOMPARE(trust.marked.empty() ? 0U : trust.marked.front(), marked);
    }
}

QTEST_GUILESS_MAIN(TestRecordingTrust)
#include "tst_recordingtrust.moc"
