// The instrument view: setting a hundred variables and building the frame, and drawing a frame of
// the installed panel with the software renderer. Each is compared with the least possible work.

#include "benchmarks/Figures.h"
#include "benchmarks/Stage.h"
#include "libs/tusk/gl/Primitives.h"
#include "libs/zinc/drawing/ZincView.h"
#include "libs/zinc/view/ViewReader.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>

using namespace Zinc2D;
namespace Bench = KOLT::Bench;

namespace {

constexpr QSize pictureSize(1280, 720);
constexpr int variableCount = 100;
constexpr int textsPerGauge = 6;

/// Values to set in turn, so that every variable changes.
double valueOf(int variable, int round)
{
    return (variable * 37 + round * 13) % 100;
}

QString nameOf(int variable)
{
    return QStringLiteral("Parameter %1").arg(variable);
}

/// With what the view draws with.
class ViewStage : public Bench::Stage
{
public:
    ViewStage()
        : Stage(pictureSize)
    {
        m_handler.initialize();
        m_handler.enableBlending();
    }

    TUSK::OpenGL::GlHandler& handler() { return m_handler; }

private:
    TUSK::OpenGL::GlHandler m_handler;
};

std::unique_ptr<ViewStage> stage;

/// A view with a gauge for each of a hundred variables.
QByteArray hundredGauges()
{
    QByteArray content = "<view width='1280' height='720' background='#101010'>";
    for (int i = 0; i < variableCount; ++i)
        content += QStringLiteral("<gauge x='%1' y='%2' radius='30' value='[%3]' min='0' max='100' "
                                  "major='25' format='%.0f' state='[%3] &gt; 90'>"
                                  "<range from='0' to='90' color='#00ff00'/></gauge>")
                       .arg(50 + i % 18 * 70)
                       .arg(50 + i / 18 * 100)
                       .arg(nameOf(i))
                       .toUtf8();
    return content + "</view>";
}

struct Core
{
    VariableTable variables;
    ViewModel model;
    ViewFrame frame;
    std::vector<QString> names;

    Core()
    {
        const QTemporaryDir directory;
        QFile file(directory.filePath(QStringLiteral("panel.v")));
        ViewReader reader(variables);
        std::optional<ViewModel> read;
        if (file.open(QIODevice::WriteOnly) && file.write(hundredGauges()) > 0 && file.flush())
            read = reader.read(file.fileName());
        if (!read || !reader.diagnostics().empty())
            std::abort();
        model = std::move(*read);
        frame.setModel(model, variables);
        for (int i = 0; i < variableCount; ++i)
            names.push_back(nameOf(i));
    }

    void set(int round)
    {
        for (int i = 0; i < variableCount; ++i)
            variables.set(names[static_cast<std::size_t>(i)], valueOf(i, round));
    }
};

/// Variables, expressions and draw lists, without drawing.
void setHundredAndBuild(benchmark::State& state)
{
    Core core;
    int round = 0;
    for (auto _ : state) {
        core.set(++round);
        if (core.frame.update() != variableCount)
            state.SkipWithError("not all were rebuilt");
    }
}

void setHundredUnchanged(benchmark::State& state)
{
    Core core;
    core.set(1);
    core.frame.update();
    for (auto _ : state) {
        core.set(1);
        if (core.frame.update() != 0)
            state.SkipWithError("something was rebuilt");
    }
}

/// The least possible work: storing a hundred named values and formatting each six times, as a
/// gauge has five labels and a number.
void keepAndFormatHundred(benchmark::State& state)
{
    std::vector<QString> names;
    for (int i = 0; i < variableCount; ++i)
        names.push_back(nameOf(i));
    QHash<QString, double> values;
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int i = 0; i < variableCount; ++i)
            values[names[static_cast<std::size_t>(i)]] = valueOf(i, round);
        for (const double value : std::as_const(values)) {
            for (int i = 0; i < textsPerGauge; ++i)
                benchmark::DoNotOptimize(QString::asprintf("%.0f", value + i));
        }
    }
}

/// The installed panel at its nominal size.
class Panel
{
public:
    Panel()
    {
        m_view.initializeGraphics(stage->handler());
        if (!m_view.load(QStringLiteral(KOLT_VIEW)))
            std::abort();
        m_view.startView(true);
        m_view.setViewport(pictureSize);
        for (const QString& name : m_view.variables().names()) {
            if (!m_view.variables().isDefined(name))
                m_names.push_back(name);
        }
        frame(0);
    }

    ~Panel() { m_view.releaseGraphics(); }

    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    void frame(int round)
    {
        for (std::size_t i = 0; i < m_names.size(); ++i)
            m_view.setVar(m_names[i], valueOf(static_cast<int>(i), round));
        m_view.setVar(QStringLiteral("VARIANT"), 915);
        m_view.setVar(QStringLiteral("UNIT"), 0);
        stage->clear(Qt::white);
        QMatrix4x4 matrix;
        matrix.ortho(0.0F, 1280.0F, 0.0F, 720.0F, -1.0F, 1.0F);
        stage->handler().matrices().load(matrix);
        m_view.draw(true);
        stage->gl().glFinish();
    }

    long rebuilt() const { return m_view.rebuiltElements(); }

private:
    ZincView m_view;
    std::vector<QString> m_names;
};

void drawChangedFrame(benchmark::State& state)
{
    Panel panel;
    int round = 0;
    for (auto _ : state)
        panel.frame(++round);
}

void drawUnchangedFrame(benchmark::State& state)
{
    Panel panel;
    const long rebuilt = panel.rebuilt();
    for (auto _ : state)
        panel.frame(0);
    if (panel.rebuilt() != rebuilt)
        state.SkipWithError("something was rebuilt");
}

/// One rectangle that fills the framebuffer: the cost of any background.
void drawRectangle(benchmark::State& state)
{
    TUSK::OpenGL::TriangleStrip area;
    for (const auto& [x, y] : {std::pair(-1.0F, -1.0F), {1.0F, -1.0F}, {-1.0F, 1.0F}, {1.0F, 1.0F}})
        area.add(x, y);
    stage->handler().matrices().load({});
    for (auto _ : state) {
        stage->clear(Qt::white);
        area.draw(stage->handler(), Qt::black);
        stage->gl().glFinish();
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    stage = std::make_unique<ViewStage>();
    using Bench::Bound;
    const int status = Bench::run(
        argc, argv,
        {{"100 variables set, frame built, ms", setHundredAndBuild, nullptr, Bound::AtMost, 1.0},
         {"100 variables set / values kept, texts formatted", setHundredAndBuild,
          keepAndFormatHundred, Bound::AtMost, 10.0},
         {"100 set to what they are / all changed", setHundredUnchanged, setHundredAndBuild,
          Bound::AtMost, 0.05},
         {"frame of 1280 x 720, all changed, ms", drawChangedFrame, nullptr, Bound::AtMost, 10.0},
         {"frame of 1280 x 720, all changed / rectangle", drawChangedFrame, drawRectangle,
          Bound::AtMost, 15.0},
         {"frame without changes / all changed", drawUnchangedFrame, drawChangedFrame,
          Bound::AtMost, 0.9}});
    stage.reset();
    return status;
}
