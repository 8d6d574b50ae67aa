#include "benchmarks/Figures.h"

#include "base/Diagnostics.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace KOLT::Bench {

namespace {

/// Approximate time of a block: long enough that clock resolution and cold caches do not matter.
constexpr auto blockSeconds = "0.05";

/// A baseline that takes less did not do its work.
constexpr double shortestBaseline = 20e-6;

/// Keeps the result of a block, which is one run of a benchmark for some iterations.
class BlockReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        const Run& run = runs.front();
        error = run.error_occurred ? run.error_message : std::string();
        iterations = run.iterations;
        if (iterations > 0)
            seconds = run.real_accumulated_time / static_cast<double>(iterations);
    }

    double seconds = 0.0; ///< per iteration
    std::int64_t iterations = 0;
    std::string error = "it was not run";
};

/// `iterations` 0: as many as take `blockSeconds`.
BlockReporter runBlock(Benchmark function, std::int64_t iterations = 0)
{
    benchmark::ClearRegisteredBenchmarks();
    auto* const registered = benchmark::RegisterBenchmark("block", function);
    if (iterations > 0)
        registered->Iterations(iterations);
    BlockReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter, "block");
    return reporter;
}

/// One side of a pair: the measured benchmark or the baseline.
class Side
{
public:
    explicit Side(Benchmark function)
        : m_function(function)
    {
        if (function == nullptr)
            return;
        runBlock(function, 1); // warm-up: data that are made once do not count
        m_iterations = runBlock(function).iterations;
    }

    /// Runs another block and returns its seconds per iteration. Without a benchmark returns one
    /// millisecond, so that the ratio is in milliseconds.
    double next(std::string& error)
    {
        if (m_function == nullptr)
            return 1e-3;
        const BlockReporter block = runBlock(m_function, m_iterations);
        if (!block.error.empty())
            error = block.error;
        m_milliseconds.append(block.seconds * 1e3);
        return block.seconds;
    }

    const QJsonArray& milliseconds() const { return m_milliseconds; }

private:
    Benchmark m_function;
    std::int64_t m_iterations = 0;
    QJsonArray m_milliseconds;
};

void measure(const Figure& figure, int pairs, QJsonObject& result)
{
    Side measured(figure.measured);
    Side baseline(figure.baseline);
    QJsonArray values;
    std::string error;
    for (int i = 0; i < pairs && error.empty(); ++i) {
        const double time = measured.next(error);
        const double divisor = baseline.next(error);
        if (divisor < shortestBaseline && error.empty())
            error = "the baseline did no work: it took " + std::to_string(divisor * 1e3) + " ms";
        if (error.empty())
            values.append(time / divisor);
    }
    result[QStringLiteral("values")] = values;
    result[QStringLiteral("measured_ms")] = measured.milliseconds();
    result[QStringLiteral("baseline_ms")] = baseline.milliseconds();
    if (!error.empty())
        result[QStringLiteral("error")] = QString::fromStdString(error);
}

void print(const Figure& figure, int pairs)
{
    const bool atMost = figure.bound == Bound::AtMost;
    QJsonObject result{{QStringLiteral("name"), QString::fromStdString(figure.name)},
                       {QStringLiteral("bound"), QLatin1String(atMost ? "<=" : ">=")},
                       {QStringLiteral("target"), figure.target}};
    if (figure.value)
        result[QStringLiteral("values")] = QJsonArray{figure.value()};
    else
        measure(figure, pairs, result);
    std::printf("%s\n", QJsonDocument(result).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

} // namespace

int run(int argc, char** argv, const std::vector<Figure>& figures)
{
    Diagnostics::setSink([](std::string_view) {});
    int pairs = 5;
    std::string only;
    for (int i = 1; i < argc; i += 2) {
        const std::string_view option = argv[i];
        if (i + 1 < argc && option == "--pairs")
            pairs = std::atoi(argv[i + 1]);
        else if (i + 1 < argc && option == "--only")
            only = argv[i + 1];
        else {
            std::fprintf(stderr, "usage: %s [--pairs N] [--only TEXT]\n", argv[0]);
            return 2;
        }
    }
    std::string blockTime = std::string("--benchmark_min_time=") + blockSeconds;
    std::vector<char*> arguments{argv[0], blockTime.data()};
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    for (const Figure& figure : figures) {
        if (figure.name.find(only) != std::string::npos)
            print(figure, pairs);
    }
    return 0;
}

} // namespace KOLT::Bench
