// The graph against a general plotting widget: ten traces of a million samples, panned by a tenth
// of the window and drawn again, in one run.

#include "benchmarks/Figures.h"
#include "benchmarks/ShownWindow.h"
#include "graph/ui/WidgetGraph.h"

#include <QApplication>
#include <qcustomplot.h>

#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>

using namespace KOLT;

namespace {

constexpr int traces = 10;
constexpr int samples = 1'000'000;
constexpr double spacing = 0.05; ///< seconds
constexpr double span = samples * spacing * 0.5;
constexpr QSize pictureSize(1600, 900);

double valueOf(int trace, int sample)
{
    return std::sin(sample * 1e-4 + trace) + static_cast<double>(sample % 1009) * 1e-4;
}

/// Start of the window at a step: alternates by a tenth of the span.
double startOf(int step)
{
    return span * 0.1 * (step % 2);
}

class PannedGraph : public WidgetGraph
{
public:
    PannedGraph()
    {
        resize(pictureSize);
        editGraph().setTraceCount(traces);
        for (int i = 0; i < traces; ++i) {
            editGraph().trace(i).reserve(samples);
            for (int k = 0; k < samples; ++k)
                editGraph().trace(i).append(k * spacing, valueOf(i, k));
        }
        Bench::showAndWait(*this);
    }

    void panTo(double start)
    {
        setWindow(start, start + span);
        makeCurrent();
        paintGL();
        glFinish();
    }
};

std::unique_ptr<PannedGraph> graph;
std::unique_ptr<QCustomPlot> plot;

void makePlot()
{
    plot = std::make_unique<QCustomPlot>();
    plot->resize(pictureSize);
    for (int i = 0; i < traces; ++i) {
        QCPGraph* const trace = plot->addGraph();
        QVector<double> times(samples);
        QVector<double> values(samples);
        for (int k = 0; k < samples; ++k) {
            times[k] = k * spacing;
            values[k] = valueOf(i, k);
        }
        trace->setData(times, values, true);
    }
    plot->yAxis->setRange(-1.5, 1.5);
    Bench::showAndWait(*plot);
}

void panGraph(benchmark::State& state)
{
    int step = 0;
    for (auto _ : state)
        graph->panTo(startOf(step++));
}

void panPlot(benchmark::State& state)
{
    int step = 0;
    for (auto _ : state) {
        const double start = startOf(step++);
        plot->xAxis->setRange(start, start + span);
        plot->replot(QCustomPlot::rpImmediateRefresh);
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    graph = std::make_unique<PannedGraph>();
    makePlot();
    const int status = Bench::run(argc, argv,
                                  {{"pan of a plotting widget / pan of the graph", panPlot,
                                    panGraph, Bench::Bound::AtLeast, 3.0}});
    graph.reset();
    plot.reset();
    return status;
}
