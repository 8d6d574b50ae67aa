// The data window on the sample card: loading a flight until all pages are ready, a replay step,
// and a table of two million rows. Without OpenGL ("-platform offscreen") the OpenGL pages are
// replaced by notes, and the times are those of our own painting. With OpenGL each step composes
// the whole window; the software renderer needs 25 to 40 ms for an empty window of this size, so
// steps are compared with such a window.

#include "analysis/ui/DialogDataTable.h"
#include "analysis/ui/ReplayBar.h"
#include "app/DataWindow.h"
#include "app/settings/SettingsStore.h"
#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "benchmarks/ShownWindow.h"
#include "libs/tusk/gl/GlSupport.h"
#include "resources/Resources.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <utility>

using namespace KOLT;

namespace {

constexpr QSize windowSize(1600, 1000);
constexpr int cycle = 1;
constexpr int manyRows = 2'000'000;

Bench::Card& card()
{
    static Bench::Card card;
    return card;
}

/// One parameter with a sample in each tenth of a second: one row per sample.
const DataSet& longDataSet()
{
    static const auto dataSet = [] {
        auto set = std::make_unique<DataSet>();
        const auto id = static_cast<std::uint32_t>(card().profile.selectedParameters().front()->id);
        for (int i = 0; i < manyRows; ++i) {
            const auto ticks = static_cast<std::uint64_t>(i) * 3'200'000;
            set->messages.append(id, static_cast<std::uint32_t>(ticks >> 32),
                                 static_cast<std::uint32_t>(ticks));
        }
        set->stopSeconds = manyRows / 10.0;
        return set;
    }();
    return *dataSet;
}

/// Counts paint events in all windows.
class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject* /*object*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return false;
    }
};

std::unique_ptr<PaintCounter> painted;

/// Handles events until something was painted, so that painting is part of the measured time. False
/// if nothing is painted in time.
bool paint(benchmark::State& state)
{
    const int before = painted->count;
    const bool isPainted = Bench::waitUntil([&] { return painted->count > before; });
    if (!isPainted)
        state.SkipWithError("nothing was painted");
    return isPainted;
}

/// A data window that shows the data table.
std::unique_ptr<DialogData> openWindow()
{
    std::unique_ptr<DialogData> window(
        createDataWindow(card().profile, SettingsStore::instance(), DialogData::Display::Full)
            .window);
    window->resize(windowSize);
    Bench::showAndWait(*window);
    return window;
}

void loadFlight(benchmark::State& state)
{
    for (auto _ : state)
        card().container.loadFlight(cycle, 0);
}

void loadAndShowFlight(benchmark::State& state)
{
    const auto window = openWindow();
    for (auto _ : state) {
        window->clear();
        card().container.loadFlight(cycle, 0);
        window->setData(card().dataSet());
        if (!paint(state))
            return;
    }
}

/// Paints as much text as the visible part of the table into a pixmap.
void paintTexts(benchmark::State& state)
{
    QPixmap pixmap(windowSize);
    for (auto _ : state) {
        pixmap.fill(Qt::white);
        QPainter painter(&pixmap);
        for (int row = 0; row < 40; ++row) {
            for (int column = 0; column < 7; ++column)
                painter.drawText(QRect(column * 90, row * 20, 80, 20), Qt::AlignRight,
                                 QStringLiteral("1234.56"));
        }
    }
}

void replayStep(benchmark::State& state)
{
    card().container.loadFlight(cycle, 0);
    const auto window = openWindow();
    window->setData(card().dataSet());
    paint(state);
    double seconds = card().dataSet().startSeconds;
    for (auto _ : state) {
        seconds += 2.0; // 20 ms at the highest speed
        if (seconds > card().dataSet().stopSeconds)
            seconds = card().dataSet().startSeconds;
        window->setTime(seconds);
        if (!paint(state))
            return;
    }
}

/// The least that opening a table has to do: read each sample's tenth once.
void walkRows(benchmark::State& state)
{
    const ProfileParameter& parameter = *card().profile.selectedParameters().front();
    for (auto _ : state) {
        std::int64_t sum = 0;
        for (const StoredSample& sample : seriesOf(longDataSet().messages, parameter))
            sum += sample.tenths();
        benchmark::DoNotOptimize(sum);
    }
}

void openLongTable(benchmark::State& state)
{
    const auto window = openWindow();
    for (auto _ : state) {
        window->setData(longDataSet());
        if (!paint(state))
            return;
    }
}

void scrollPage(benchmark::State& state)
{
    const auto window = openWindow();
    window->setData(longDataSet());
    paint(state);
    auto* const view = window->findChild<DialogDataTable*>()->findChild<QTableView*>();
    QScrollBar* const bar = view->verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() + bar->pageStep());
        if (bar->value() == bar->maximum())
            bar->setValue(0);
        if (!paint(state))
            return;
    }
}

class ClearedWidget : public QOpenGLWidget
{
public:
    using QOpenGLWidget::QOpenGLWidget;

    int frames() const { return m_frames; }

protected:
    void paintGL() override
    {
        context()->functions()->glClearColor(0.2F, 0.3F, 0.4F, 1.0F);
        context()->functions()->glClear(GL_COLOR_BUFFER_BIT);
        ++m_frames;
    }

private:
    int m_frames = 0;
};

/// A window of the same size with a cleared OpenGL area in place of the map.
class BareWindow : public QWidget
{
public:
    BareWindow()
    {
        QSurfaceFormat format = m_area.format();
        format.setSamples(4);
        m_area.setFormat(format);
        resize(windowSize);
        m_area.setGeometry(windowSize.width() / 2, 0, windowSize.width() / 2, mapHeight);
        Bench::showAndWait(*this);
    }

    void updateTable() { update(0, 0, windowSize.width() / 2, windowSize.height()); }

    void updateMap() { m_area.update(); }

    int mapFrames() const { return m_area.frames(); }

private:
    static constexpr int mapHeight = 840;
    ClearedWidget m_area{this};
};

void composeStep(benchmark::State& state)
{
    BareWindow window;
    const int before = window.mapFrames();
    for (auto _ : state) {
        window.updateTable();
        window.updateMap();
        if (!paint(state))
            return;
    }
    if (window.mapFrames() - before < state.iterations())
        state.SkipWithError("the map's area was not drawn in each step");
}

void composeTable(benchmark::State& state)
{
    BareWindow window;
    for (auto _ : state) {
        window.updateTable();
        if (!paint(state))
            return;
    }
}

/// The part of a processor that the window needs at the replay's highest speed, with this page in
/// front, in percent. Times are of the process, so that other work does not count.
double replayShare(DialogData::Page page)
{
    card().container.loadFlight(cycle, 0);
    const auto window = openWindow();
    window->setData(card().dataSet());
    window->setCurrentPage(page);
    window->findChild<ReplayBar*>()->findChild<QDoubleSpinBox*>()->setValue(Replay::maxSpeed);
    window->toggleReplay();
    constexpr int warmUp = 500;
    constexpr int measured = 3000;
    QElapsedTimer timer;
    const auto runFor = [&](int milliseconds) {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    };
    runFor(warmUp);
    const int paintedBefore = painted->count;
    const std::clock_t before = std::clock();
    timer.start();
    runFor(measured);
    const double busy = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    const double share = busy * 1e5 / static_cast<double>(timer.elapsed());
    if (painted->count == paintedBefore) {
        std::fprintf(stderr, "nothing was painted during the replay\n");
        std::exit(1);
    }
    return share;
}

constexpr std::array<std::pair<DialogData::Page, const char*>, 7> replayedPages{{
    {DialogData::Page::Table, "data table"},
    {DialogData::Page::Graph, "graph"},
    {DialogData::Page::FaultMatrix, "faults"},
    {DialogData::Page::Limit, "limits"},
    {DialogData::Page::WarningLamps, "lamps"},
    {DialogData::Page::Statistic, "statistic"},
    {DialogData::Page::EmuView, "instruments"},
}};

std::vector<Bench::Figure> figures()
{
    using Bench::Bound;
    std::vector<Bench::Figure> result{
        {"click on a flight to pages ready, ms", loadAndShowFlight, nullptr, Bound::AtMost, 300.0},
        {"opening 2,000,000 rows, ms", openLongTable, nullptr, Bound::AtMost, 500.0},
        {"opening 2,000,000 rows / looking at each sample", openLongTable, walkRows, Bound::AtMost,
         30.0}};
    if (TUSK::OpenGL::isAvailable())
        result.insert(result.end(), {{"step of the replay / bare window composed", replayStep,
                                      composeStep, Bound::AtMost, 1.5},
                                     {"scrolling a page / bare window composed", scrollPage,
                                      composeTable, Bound::AtMost, 1.5}});
    else
        result.insert(
            result.end(),
            {{"click on a flight to pages ready / loading it", loadAndShowFlight, loadFlight,
              Bound::AtMost, 3.0},
             {"step of the replay, ms", replayStep, nullptr, Bound::AtMost, 8.0},
             {"step of the replay / painting as many texts", replayStep, paintTexts, Bound::AtMost,
              10.0},
             {"scrolling a page of 2,000,000 rows, ms", scrollPage, nullptr, Bound::AtMost, 16.0},
             {"scrolling a page / painting as many texts", scrollPage, paintTexts, Bound::AtMost,
              10.0}});
    for (const auto& [page, name] : replayedPages)
        result.push_back({std::string("replay at 100x, ") + name + ", % of a processor", nullptr,
                          nullptr, Bound::AtMost, TUSK::OpenGL::isAvailable() ? 100.0 : 50.0,
                          [page = page] { return replayShare(page); }});
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    initKoltResources();
    painted = std::make_unique<PaintCounter>();
    application.installEventFilter(painted.get());
    if (card().container.flightsOf(cycle).empty())
        return 2;
    int chosen = 0;
    card().profile.select([&](const ProfileParameter& parameter) {
        return parameter.rule == DecodingRule::Float && chosen++ < 6;
    });
    return Bench::run(argc, argv, figures());
}
