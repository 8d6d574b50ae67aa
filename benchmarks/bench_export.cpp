// CSV of an hour of flying, against the same cells through QTextStream's operators, and KML of a
// cycle of ten hours, against formatting its coordinates alone.

#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "export/CsvWriter.h"
#include "export/KmlWriter.h"
#include "profile/ValueDecoder.h"
#include "record/SampleWalker.h"

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

/// A card whose first six parameters are selected.
std::unique_ptr<Bench::Card> cardOf(double hours)
{
    auto card = std::make_unique<Bench::Card>(hours);
    int chosen = 0;
    card->profile.select([&](const ProfileParameter&) { return chosen++ < 6; });
    return card;
}

const Bench::Card& hour()
{
    static const auto card = cardOf(1.0);
    return *card;
}

const Bench::Card& tenHours()
{
    static const auto card = cardOf(10.0);
    return *card;
}

/// A cell decoded beforehand: a number, or the text of a parameter that is not a number.
struct Cell
{
    double number = 0.0;
    QString text;
    int precision = -1; ///< decimals of the number; -1 for text
};

/// The cells of the CSV table, row by row.
std::vector<Cell> cellsOf(const Bench::Card& card, const CsvOptions& options)
{
    const DataSet& dataSet = card.dataSet();
    std::vector<SampleWalker> walkers;
    std::vector<const ProfileParameter*> parameters;
    for (const ProfileParameter& parameter : card.profile.parameters()) {
        walkers.emplace_back(seriesOf(dataSet.messages, parameter));
        parameters.push_back(&parameter);
    }
    const qint64 rows = CsvWriter(card.profile, dataSet, options).rowCount();
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
                    held[i].text = textOf(card.profile, *parameters[i], data, held[i].number);
            }
            cells.push_back(held[i]);
        }
    }
    return cells;
}

const std::vector<Cell>& cells()
{
    static const std::vector<Cell> cells = cellsOf(hour(), CsvOptions());
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
}

void writeCsv(benchmark::State& state)
{
    QFile file;
    openNull(file);
    const CsvWriter writer(hour().profile, hour().dataSet(), {});
    for (auto _ : state) {
        if (writer.write(file) != ExportStatus::Done)
            std::abort();
    }
}

void formatCoordinates(benchmark::State& state)
{
    std::array<char, 100> text{};
    for (auto _ : state) {
        for (const TrackPoint& point : tenHours().dataSet().track) {
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
            writeKml(file, tenHours().profile, tenHours().dataSet(), options,
                     QStringLiteral("Ten hours")) != ExportStatus::Done)
            std::abort();
    }
}

/// Resident memory in megabytes.
double residentMegabytes()
{
    std::ifstream file("/proc/self/statm");
    double total = 0.0;
    double resident = 0.0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

/// Growth of the memory while ten hours are written as CSV.
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
    CsvWriter(tenHours().profile, tenHours().dataSet(), {}).write(file, look);
    return most - before;
}

} // namespace

int main(int argc, char** argv)
{
    using Bench::Bound;
    // Ten million cells a minute.
    const double slowest = static_cast<double>(cells().size()) / 10e6 * 60e3;
    return Bench::run(argc, argv,
                      {{"CSV of an hour at 100 ms, ms", writeCsv, nullptr, Bound::AtMost, slowest},
                       {"QTextStream's operators / CSV of an hour", textStreamCells, writeCsv,
                        Bound::AtLeast, 5.0},
                       {"KML of ten hours, ms", writeKmlOfTenHours, nullptr, Bound::AtMost, 2000.0},
                       {"KML of ten hours / formatting its coordinates", writeKmlOfTenHours,
                        formatCoordinates, Bound::AtMost, 20.0},
                       {"memory of writing ten hours as CSV, MB", nullptr, nullptr, Bound::AtMost,
                        8.0, csvMegabytes}});
}
