// kolt-cli as a program: the report of twenty hours beside the least that a program with the same
// files has to do, and how time and memory grow with the hours on a card.
//
//   bench_program --table                    prints that growth
//   bench_program --read-and-group FILE...   is the baseline, a program of its own

#include "benchmarks/BarePasses.h"
#include "benchmarks/ChildProcess.h"
#include "benchmarks/Figures.h"
#include "record/RecordFormat.h"
#include "record/StoredSample.h"
#include "tools/samplecard/SampleCard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unordered_map>

using namespace KOLT;

namespace {

constexpr double longRun = 20.0; ///< hours
const std::string cli = KOLT_CLI;

/// Engine runs of one hour in a row of days, with every twentieth sample of each message: a
/// thousand hours take 900 MB.
class SparseCard
{
public:
    explicit SparseCard(int hours)
    {
        for (int run = 0; run < hours; ++run) {
            for (int part = 0; part < static_cast<int>(parts().size()); ++part)
                write(run, part);
        }
    }

    std::vector<std::string> report() const
    {
        return {cli, "report", m_folder.path().toStdString(), "--profile", KOLT_PROFILE};
    }

private:
    static constexpr std::uint32_t step = 20;

    /// The files of one hour.
    static const std::vector<QByteArray>& parts()
    {
        static const std::vector<QByteArray> thinned = [] {
            const QTemporaryDir folder;
            SampleCard::SampleCardOptions options;
            options.folder = folder.path();
            options.profilePath = QStringLiteral(KOLT_PROFILE);
            options.hours = 1.0;
            std::vector<QByteArray> files;
            if (!SampleCard::writeSampleCard(options, nullptr))
                return files;
            std::unordered_map<std::uint32_t, std::uint32_t> counts;
            for (const QFileInfo& entry : QDir(folder.path()).entryInfoList(QDir::Files)) {
                QFile file(entry.filePath());
                if (file.open(QIODevice::ReadOnly))
                    files.push_back(thin(file.readAll(), counts));
            }
            return files;
        }();
        if (thinned.empty())
            std::abort();
        return thinned;
    }

    static QByteArray thin(const QByteArray& all,
                           std::unordered_map<std::uint32_t, std::uint32_t>& counts)
    {
        using namespace RecordFormat;
        QByteArray kept = all.left(headerBytes);
        for (qsizetype at = headerBytes; at + sampleBytes <= all.size(); at += sampleBytes) {
            std::uint32_t identifier = 0;
            std::memcpy(&identifier, all.constData() + at + identifierOffset, sizeof identifier);
            if (counts[identifier]++ % step == 0)
                kept += all.mid(at, sampleBytes);
        }
        return kept;
    }

    void write(int run, int part)
    {
        QByteArray bytes = parts()[static_cast<std::size_t>(part)];
        // The first file of a run has no date, which is how cycles are told apart.
        const bool hasDate = bytes[RecordFormat::dateOffset + 2] != '\0';
        const QDate date = QDate(2024, 1, 1).addDays(run);
        if (hasDate) {
            bytes[RecordFormat::dateOffset] = static_cast<char>(date.year() & 0xFF);
            bytes[RecordFormat::dateOffset + 1] = static_cast<char>(date.year() >> 8);
            bytes[RecordFormat::dateOffset + 2] = static_cast<char>(date.month());
            bytes[RecordFormat::dateOffset + 3] = static_cast<char>(date.day());
        }
        QFile file(m_folder.filePath(
            QStringLiteral("REC%1.CAN")
                .arg(run * static_cast<int>(parts().size()) + part + 1, 5, 10, QLatin1Char('0'))));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            std::abort();
    }

    QTemporaryDir m_folder;
};

Bench::ProgramRun reportOf(const SparseCard& card)
{
    Bench::runProgram(card.report()); // brings the files into the cache
    return Bench::runProgram(card.report());
}

void printTable()
{
    std::puts("| hours | report, s | ms per hour | peak memory, MB |\n|---|---|---|---|");
    for (const int hours : {1, 10, 100, 1000}) {
        const Bench::ProgramRun run = reportOf(SparseCard(hours));
        std::printf("| %d | %.2f | %.1f | %.0f |\n", hours, run.milliseconds / 1e3,
                    run.milliseconds / hours, run.peakBytes / 1e6);
        std::fflush(stdout);
    }
}

struct Growth
{
    double time = 0.0;   ///< per hour, of 1,000 hours / of 100
    double memory = 0.0; ///< of 1,000 hours / of 100
};

const Growth& growth()
{
    static const Growth found = [] {
        const Bench::ProgramRun some = reportOf(SparseCard(100));
        const Bench::ProgramRun many = reportOf(SparseCard(1000));
        return Growth{many.milliseconds / some.milliseconds / 10.0,
                      many.peakBytes / some.peakBytes};
    }();
    return found;
}

/// A card with one long run. Its data stay on the disk: a program that this one starts would count
/// the memory of this one as its own.
struct LongCard
{
    QTemporaryDir folder;
    std::vector<std::string> report{cli, "report", folder.path().toStdString(), "--profile",
                                    KOLT_PROFILE};
    std::vector<std::string> readAndGroup{QCoreApplication::applicationFilePath().toStdString(),
                                          "--read-and-group"};
    qint64 samples = 0;

    LongCard()
    {
        SampleCard::SampleCardOptions options;
        options.folder = folder.path();
        options.profilePath = QStringLiteral(KOLT_PROFILE);
        options.hours = longRun;
        if (!SampleCard::writeSampleCard(options, nullptr))
            std::abort();
        for (const QFileInfo& file : QDir(folder.path()).entryInfoList(QDir::Files)) {
            readAndGroup.push_back(file.filePath().toStdString());
            samples += (file.size() - RecordFormat::headerBytes) / RecordFormat::sampleBytes;
        }
    }
};

const LongCard& longCard()
{
    static const LongCard card;
    return card;
}

double reportTime()
{
    return Bench::timeRatio(longCard().report, longCard().readAndGroup);
}

double reportMemory()
{
    const double data = static_cast<double>(longCard().samples) * sizeof(StoredSample);
    return (Bench::runProgram(longCard().report).peakBytes - data) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--read-and-group"))
        return Bench::readAndGroup(arguments.mid(2)) > 0 ? 0 : 1;
    if (arguments.value(1) == QLatin1String("--table")) {
        printTable();
        return 0;
    }
    using Bench::Bound;
    return Bench::run(argc, argv,
                      {{"report of 20 h / read and group, as programs", nullptr, nullptr,
                        Bound::AtMost, 1.5, reportTime},
                       {"memory of that report beyond the cycle's data, MB", nullptr, nullptr,
                        Bound::AtMost, 50.0, reportMemory},
                       {"report of 1,000 h / of 100 h, per hour", nullptr, nullptr, Bound::AtMost,
                        1.2, [] { return growth().time; }},
                       {"memory of a report of 1,000 h / of 100 h", nullptr, nullptr, Bound::AtMost,
                        2.0, [] { return growth().memory; }}});
}
