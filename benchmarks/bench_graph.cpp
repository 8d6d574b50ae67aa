// The graph: rebuilding the columns of long traces, a frame of fifty traces, and feeding samples.

#include "app/base/Diagnostics.h"
#include "benchmarks/Figures.h"
#include "graph/TraceFeeder.h"
#include "graph/WidgetGraph.h"
#include "profile/ValueDecoder.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <bit>
#include <cmath>
#include <memory>

using namespace KOLT;

namespace {

constexpr int traces = 50;
constexpr int samplesPerTrace = 1'000'000;
constexpr int fedSamples = 10'000'000;
constexpr QSize pictureSize(1600, 900);
constexpr double spacing = 0.05; ///< seconds

void fill(Graph& graph)
{
    graph.setTraceCount(traces);
    for (int i = 0; i < traces; ++i) {
        GraphTrace& trace = graph.trace(i);
        trace.reserve(samplesPerTrace);
        unsigned noise = static_cast<unsigned>(i) + 1;
        for (int k = 0; k < samplesPerTrace; ++k) {
            noise = noise * 1664525U + 1013904223U;
            trace.append(k * spacing, std::sin(k * 1e-4) + static_cast<double>(noise >> 16) * 1e-6,
                         1);
        }
    }
}

Graph& longGraph()
{
    static const auto graph = [] {
        auto made = std::make_unique<Graph>();
        fill(*made);
        made->setSize(pictureSize.width(), pictureSize.height());
        made->setWindow(0.0, samplesPerTrace * spacing);
        return made;
    }();
    return *graph;
}

void rebuildColumns(benchmark::State& state)
{
    Graph& graph = longGraph();
    for (auto _ : state) {
        for (int i = 0; i < traces; ++i)
            graph.trace(i).rebuild(graph.windowStart, graph.windowEnd, graph.pixelSeconds());
    }
}

/// The same, sample by sample.
void mergeAllSamples(benchmark::State& state)
{
    const Graph& graph = longGraph();
    std::vector<GraphColumn> columns;
    for (auto _ : state) {
        for (int i = 0; i < traces; ++i) {
            columns.clear();
            for (int k = 0; k < samplesPerTrace; ++k)
                mergeSample(columns, graph.pixelSeconds(), k * spacing, k, 1);
            benchmark::DoNotOptimize(columns.data());
        }
    }
}

/// Draws frames on demand.
class BenchGraph : public WidgetGraph
{
public:
    BenchGraph()
    {
        resize(pictureSize);
        show();
        Graph& graph = editGraph();
        graph.setTraceCount(traces);
        for (int i = 0; i < traces; ++i) {
            unsigned noise = static_cast<unsigned>(i) + 1;
            for (int k = 0; k < 40'000; ++k) {
                noise = noise * 1664525U + 1013904223U;
                graph.trace(i).append(
                    k * spacing, std::sin(k * 1e-3) + static_cast<double>(noise >> 16) * 1e-6, 1);
            }
        }
        setWindow(0.0, 2000.0);
        QCoreApplication::processEvents();
    }

    void frame(bool isBare)
    {
        m_isBare = isBare;
        makeCurrent();
        paintGL();
        glFinish();
    }

protected:
    void paintGL() override
    {
        if (!m_isBare)
            WidgetGraph::paintGL();
        else
            drawStrips();
    }

private:
    /// Nothing but a strip for each trace, through both ends of its columns.
    void drawStrips()
    {
        if (m_strips.empty())
            m_strips = strips();
        glClear(GL_COLOR_BUFFER_BIT);
        glEnableClientState(GL_VERTEX_ARRAY);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(0.0, width(), 0.0, height(), -1.0, 1.0);
        glLineWidth(1.0F);
        for (const std::vector<float>& strip : m_strips) {
            glVertexPointer(2, GL_FLOAT, 0, strip.data());
            glDrawArrays(GL_LINE_STRIP, 0, static_cast<GLsizei>(strip.size() / 2));
        }
        glDisableClientState(GL_VERTEX_ARRAY);
    }

    std::vector<std::vector<float>> strips() const
    {
        std::vector<std::vector<float>> result;
        for (int i = 0; i < traces; ++i) {
            std::vector<float>& strip = result.emplace_back();
            for (const GraphColumn& column : graph().trace(i).columns()) {
                for (const double value : {column.lowest, column.highest}) {
                    strip.push_back(static_cast<float>(graph().xOf(column.time)));
                    strip.push_back(static_cast<float>(graph().yOf(i, value)));
                }
            }
        }
        return result;
    }

    bool m_isBare = false;
    std::vector<std::vector<float>> m_strips;
};

std::unique_ptr<BenchGraph> widget; ///< lives as long as the application

void drawFrame(benchmark::State& state)
{
    for (auto _ : state)
        widget->frame(false);
}

void drawBareStrips(benchmark::State& state)
{
    for (auto _ : state)
        widget->frame(true);
}

struct Feed
{
    Profile profile;
    DataSet dataSet;
};

const Feed& feed()
{
    static const auto made = [] {
        auto feed = std::make_unique<Feed>();
        const QTemporaryDir directory;
        QFile file(directory.filePath(QStringLiteral("Profile.xml")));
        if (file.open(QIODevice::WriteOnly) &&
            file.write("<KorvanProfile><Device name='D'><Parameter name='p' id='1' "
                       "dataType='FLOAT' factor='1.5'/></Device></KorvanProfile>") > 0 &&
            file.flush())
            feed->profile.loadProfil(file.fileName(), {});
        for (int i = 0; i < fedSamples; ++i) {
            const auto ticks = static_cast<std::uint64_t>(i) * 320'000;
            StoredSample* const sample = feed->dataSet.messages.append(
                1, static_cast<std::uint32_t>(ticks >> 32), static_cast<std::uint32_t>(ticks));
            const auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(i % 1000));
            for (std::size_t byte = 0; byte < 4; ++byte)
                sample->data[byte] = static_cast<unsigned char>(bits >> (8 * byte));
        }
        return feed;
    }();
    return *made;
}

void decodeOnly(benchmark::State& state)
{
    const ProfileParameter& parameter = feed().profile.parameters().front();
    for (auto _ : state) {
        double sum = 0.0;
        for (const StoredSample& sample : seriesOf(feed().dataSet.messages, parameter)) {
            sum += decodeNumber(sample.data, parameter);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void decodeAndAppend(benchmark::State& state)
{
    Graph graph;
    for (auto _ : state)
        feedTrace(graph, 0, feed().profile, feed().profile.parameters().front(), feed().dataSet);
}

BENCHMARK(rebuildColumns)->Unit(benchmark::kMillisecond);
BENCHMARK(mergeAllSamples)->Unit(benchmark::kMillisecond);
BENCHMARK(drawFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(drawBareStrips)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeAndAppend)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    Diagnostics::setSink([](std::string_view) {});
    QApplication application(argc, argv);
    widget = std::make_unique<BenchGraph>();
    using Bound = KOLT::Bench::Figure::Bound;
    const bool met = KOLT::Bench::runAndPrint(
        argc, argv,
        {{"columns of 50 x 1,000,000 samples, ms", "rebuildColumns", "", Bound::AtMost, 8.0},
         {"  all samples one by one / this", "mergeAllSamples", "rebuildColumns", Bound::AtLeast,
          20.0},
         {"frame of 50 traces / bare strips", "drawFrame", "drawBareStrips", Bound::AtMost, 1.5},
         {"decode and append 10,000,000 / decode", "decodeAndAppend", "decodeOnly", Bound::AtMost,
          2.0}});
    widget.reset();
    return met ? 0 : 1;
}
