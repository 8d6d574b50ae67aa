// The graph: rebuilding the columns of long traces, a frame of fifty traces, and feeding samples.

#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "benchmarks/ShownWindow.h"
#include "graph/TraceFeeder.h"
#include "graph/ui/WidgetGraph.h"
#include "profile/ValueDecoder.h"

#include <QApplication>

#include <GL/gl.h>
#include <array>
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
constexpr double ticksPerSecond = 1e9 / RecordFormat::nanosecondsPerTick;

struct Feed
{
    std::unique_ptr<Profile> profile;
    DataSet dataSet;
};

/// A profile of FLOAT parameters, two per message, and an empty data set.
std::unique_ptr<Feed> feedOf(int parameters)
{
    QByteArray xml;
    for (int i = 0; i < parameters; ++i)
        xml += "<Parameter name='p" + QByteArray::number(i) + "' id='" +
               QByteArray::number(i / 2 + 1) + "' startByte='" + QByteArray::number(i % 2 * 4) +
               "' dataType='FLOAT' factor='1.5'/>";
    auto feed = std::make_unique<Feed>();
    feed->profile = Bench::profileOf(xml);
    return feed;
}

void add(DataSet& dataSet, std::uint32_t id, int index, std::array<float, 2> values)
{
    const auto ticks = static_cast<std::uint64_t>(index * spacing * ticksPerSecond);
    StoredSample* const sample = dataSet.messages.append(
        id, static_cast<std::uint32_t>(ticks >> 32), static_cast<std::uint32_t>(ticks));
    for (std::size_t byte = 0; byte < sample->data.size(); ++byte)
        sample->data[byte] = static_cast<unsigned char>(
            std::bit_cast<std::uint32_t>(values[byte / 4]) >> (8 * (byte % 4)));
}

/// A recording with one parameter per trace, the messages interleaved as the unit sends them.
const Feed& recording()
{
    static const auto made = [] {
        auto feed = feedOf(traces);
        unsigned noise = 1;
        for (int k = 0; k < samplesPerTrace; ++k) {
            for (std::uint32_t id = 1; id <= traces / 2; ++id) {
                std::array<float, 2> values{};
                for (float& value : values) {
                    noise = noise * 1664525U + 1013904223U;
                    value = static_cast<float>(std::sin(k * 1e-4) + (noise >> 16) * 1e-6);
                }
                add(feed->dataSet, id, k, values);
            }
        }
        return feed;
    }();
    return *made;
}

/// All traces, filled like the page fills them.
Graph& longGraph()
{
    static const auto graph = [] {
        auto made = std::make_unique<Graph>();
        made->setSize(pictureSize.width(), pictureSize.height());
        made->setTraceCount(traces);
        int index = 0;
        for (const ProfileParameter& parameter : recording().profile->parameters())
            feedTrace(*made, index++, *recording().profile, parameter, recording().dataSet);
        made->setWindow(0.0, samplesPerTrace * spacing);
        return made;
    }();
    return *graph;
}

void rebuildColumns(benchmark::State& state)
{
    Graph& graph = longGraph();
    double shift = 0.0; // alternates the window: for the same one the runs are stored
    for (auto _ : state) {
        shift = spacing - shift;
        for (int i = 0; i < traces; ++i)
            graph.trace(i).rebuild(graph.window().start + shift, graph.window().end,
                                   graph.pixelSeconds());
    }
}

/// Merges every sample into columns, without the pyramid.
void mergeAllSamples(benchmark::State& state)
{
    const Graph& graph = longGraph();
    std::vector<GraphColumn> columns;
    for (auto _ : state) {
        for (int i = 0; i < traces; ++i) {
            columns.clear();
            for (int k = 0; k < samplesPerTrace; ++k)
                mergeSample(columns, graph.pixelSeconds(), k * spacing, k);
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
        Graph& graph = editGraph();
        graph.setTraceCount(traces);
        for (int i = 0; i < traces; ++i) {
            unsigned noise = static_cast<unsigned>(i) + 1;
            for (int k = 0; k < 40'000; ++k) {
                noise = noise * 1664525U + 1013904223U;
                graph.trace(i).append(k * spacing,
                                      std::sin(k * 1e-3) + static_cast<double>(noise >> 16) * 1e-6);
            }
        }
        setWindow(0.0, 2000.0);
        Bench::showAndWait(*this);
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
    /// Draws only one line strip per trace, through both ends of its columns.
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
                    strip.push_back(static_cast<float>(graph().scaleOf(i).yOf(value)));
                }
            }
        }
        return result;
    }

    bool m_isBare = false;
    std::vector<std::vector<float>> m_strips;
};

std::unique_ptr<BenchGraph> widget; ///< deleted before the application

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

const Feed& longSeries()
{
    static const auto made = [] {
        auto feed = feedOf(1);
        for (int i = 0; i < fedSamples; ++i)
            add(feed->dataSet, 1, i, {static_cast<float>(i % 1000), 0.0F});
        return feed;
    }();
    return *made;
}

void decodeOnly(benchmark::State& state)
{
    const ProfileParameter& parameter = longSeries().profile->parameters().front();
    for (auto _ : state) {
        double sum = 0.0;
        for (const StoredSample& sample : seriesOf(longSeries().dataSet.messages, parameter)) {
            sum += decodeNumber(sample.data, parameter);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void decodeAndAppend(benchmark::State& state)
{
    Graph graph;
    for (auto _ : state)
        feedTrace(graph, 0, *longSeries().profile, longSeries().profile->parameters().front(),
                  longSeries().dataSet);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    widget = std::make_unique<BenchGraph>();
    using Bench::Bound;
    const int status = Bench::run(
        argc, argv,
        {{"columns of 50 x 1,000,000 samples, ms", rebuildColumns, nullptr, Bound::AtMost, 8.0},
         {"all samples one by one / columns of 50 x 1,000,000", mergeAllSamples, rebuildColumns,
          Bound::AtLeast, 20.0},
         {"frame of 50 traces / bare strips", drawFrame, drawBareStrips, Bound::AtMost, 1.5},
         {"decode and append 10,000,000 / decode", decodeAndAppend, decodeOnly, Bound::AtMost,
          2.0}});
    widget.reset();
    return status;
}
