// CSV of an hour of flying, against the same cells through QTextStream's operators, and KML of a
// cycle of ten hours, against formatting its coordinates alone.

#include "base/Diagnostics.h"
#include "benchmarks/Figures.h"
#include "export/CsvWriter.h"
#include "export/KmlWriter.h"
#include "profile/ValueDecoder.h"
#include "record/CardContainer.h"
#include "record/SampleWalker.h"
#include "tools/samplecard/SampleCard.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fstream>
#include <memory>
#include <unistd.h>

using namespace KOLT;

namespace {

Profile& profile()
{
    static Profile profile;
    return profile;
}

/// A card with one engine run of that length, loaded.
struct Card
{
    explicit Card(double hours)
    {
        SampleCard::SampleCardOptions options;
        options.folder = directory.path();
        options.profilePath = QStringLiteral(KOLT_PROFILE);
        options.hours = hours;
        isGood = SampleCard::writeSampleCard(options, &error) &&
                 container.readContainer(directory.path()) && container.loadCycle(1);
    }

    const DataSet& dataSet() const { return *container.dataSet(); }

    QTemporaryDir directory;
    CardContainer container{profile()};
    QString error;
    bool isGood = false;
};

std::unique_ptr<Card> hour;
std::unique_ptr<Card> tenHours;

/// A cell as it was worked out beforehand: a number, or where the parameter is none, a text.
struct Cell
{
    double number = 0.0;
    QString text;
    int precision = -1; ///< below 0: the text counts
};

/// The cells of the CSV file, row by row.
std::vector<Cell> cellsOf(const DataSet& dataSet, const CsvOptions& options)
{
    std::vector<SampleWalker> walkers;
    std::vector<const ProfileParameter*> parameters;
    for (const ProfileParameter& parameter : profile().parameters()) {
        walkers.emplace_back(seriesOf(dataSet.messages, parameter));
        parameters.push_back(&parameter);
    }
    const qint64 rows = CsvWriter(profile(), dataSet, options).rowCount();
    std::vector<Cell> held(walkers.size());
    std::vector<Cell> cells;
    cells.reserve(static_cast<std::size_t>(rows) * walkers.size());
    for (qint64 row = 0; row < rows; ++row) {
        const double seconds =
            dataSet.startSeconds + static_cast<double>(row * options.resolution) / 1000.0;
        for (std::size_t i = 0; i < walkers.size(); ++i) {
            if (walkers[i].advanceTo(seconds)) {
                const MessageData& data = walkers[i].sample()->data;
                held[i].number = decodeNumber(data, *parameters[i]);
                if (parameters[i]->rule == DecodingRule::Float)
                    held[i].precision = parameters[i]->precision;
                else
                    held[i].text = textOf(profile(), *parameters[i], data, held[i].number);
            }
            cells.push_back(held[i]);
        }
    }
    return cells;
}

const std::vector<Cell>& cells()
{
    static const std::vector<Cell> cells = cellsOf(hour->dataSet(), CsvOptions());
    return cells;
}

void openNull(QFile& file)
{
    file.setFileName(QStringLiteral("/dev/null"));
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
}

void textStreamCells(benchmark::State& state)
{
    QFile file;
    openNull(file);
    for (auto _ : state) {
        QTextStream stream(&file);
        stream.setRealNumberNotation(QTextStream::FixedNotation);
        for (const Cell& cell : cells()) {
            if (cell.precision >= 0) {
                stream.setRealNumberPrecision(cell.precision);
                stream << cell.number << ';';
            } else {
                stream << cell.text << ';';
            }
        }
    }
    state.counters["values"] = static_cast<double>(cells().size());
}

void writeCsv(benchmark::State& state)
{
    QFile file;
    openNull(file);
    const CsvWriter writer(profile(), hour->dataSet(), {});
    for (auto _ : state) {
        if (writer.write(file) != ExportStatus::Done)
            std::abort();
    }
    state.counters["values"] = static_cast<double>(cells().size());
}

void formatCoordinates(benchmark::State& state)
{
    std::array<char, 100> text{};
    for (auto _ : state) {
        for (const TrackPoint& point : tenHours->dataSet().track) {
            std::snprintf(text.data(), text.size(), "%.7f,%.7f,%.1f", point.longitude,
                          point.latitude, point.altitude);
            benchmark::DoNotOptimize(text.data());
        }
    }
}

void writeKmlOfTenHours(benchmark::State& state)
{
    KmlOptions options;
    options.timeStamp = KmlOptions::Times::PlaceMarksAndTrack;
    const QTemporaryDir directory;
    for (auto _ : state) {
        QFile file(directory.filePath(QStringLiteral("out.kml")));
        if (!file.open(QIODevice::WriteOnly) ||
            writeKml(file, profile(), tenHours->dataSet(), options, QStringLiteral("Ten hours")) !=
                ExportStatus::Done)
            std::abort();
    }
}

BENCHMARK(textStreamCells)->Unit(benchmark::kMillisecond);
BENCHMARK(writeCsv)->Unit(benchmark::kMillisecond);
BENCHMARK(formatCoordinates)->Unit(benchmark::kMillisecond);
BENCHMARK(writeKmlOfTenHours)->Unit(benchmark::kMillisecond);

/// Memory in use, in megabytes.
double residentMegabytes()
{
    std::ifstream file("/proc/self/statm");
    double total = 0.0;
    double resident = 0.0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

/// How much memory grows while the ten hours are written as CSV.
double csvMegabytes()
{
    QFile file;
    openNull(file);
    const double before = residentMegabytes();
    double most = before;
    const auto look = [&](int) {
        most = std::max(most, residentMegabytes());
        return true;
    };
    CsvWriter(profile(), tenHours->dataSet(), {}).write(file, look);
    return most - before;
}

} // namespace

int main(int argc, char** argv)
{
    Diagnostics::setSink([](std::string_view) {});
    const QCoreApplication application(argc, argv);
    profile().loadProfil(QStringLiteral(KOLT_PROFILE), QStringLiteral("915"));
    hour = std::make_unique<Card>(1.0);
    tenHours = std::make_unique<Card>(10.0);
    if (!hour->isGood || !tenHours->isGood) {
        std::fprintf(stderr, "bench_export: no card to work on: %s\n",
                     qUtf8Printable(hour->error + tenHours->error));
        return 2;
    }
    int chosen = 0;
    profile().select([&](const ProfileParameter&) { return chosen++ < 6; });
    using Bound = Bench::Figure::Bound;
    // Ten million cells a minute.
    const double slowest = static_cast<double>(cells().size()) / 10e6 * 60e3;
    const bool fast = Bench::runAndPrint(
        argc, argv,
        {{"CSV of an hour at 100 ms, ms", "writeCsv", "", Bound::AtMost, slowest},
         {"  QTextStream's operators / CSV", "textStreamCells", "writeCsv", Bound::AtLeast, 5.0},
         {"KML of ten hours, ms", "writeKmlOfTenHours", "", Bound::AtMost, 2000.0},
         {"  / formatting its coordinates once", "writeKmlOfTenHours", "formatCoordinates",
          Bound::AtMost, 20.0}});
    const bool small = Bench::printFigure("memory of writing ten hours as CSV, MB", csvMegabytes(),
                                          Bound::AtMost, 8.0);
    hour.reset();
    tenHours.reset();
    return fast && small ? 0 : 1;
}
