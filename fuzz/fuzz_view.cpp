// Reads arbitrary bytes as a view and draws it: without values, with ordinary and with very large
// ones. All coordinates must be finite, and a frame without changes must not rebuild anything.

#include "fuzz/FuzzFile.h"
#include "libs/zinc/drawing/MeshBuilder.h"
#include "libs/zinc/layout/ViewFrame.h"
#include "libs/zinc/view/ViewReader.h"

#include <cmath>

using namespace Zinc2D;

namespace {

void buildMeshes(const ViewFrame& frame)
{
    std::vector<TUSK::OpenGL::MeshVertex> vertices;
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const DrawList& list = frame.drawList(i);
        for (const DrawCommand& command : list.commands) {
            const std::span points(list.points.data() + command.firstPoint, command.pointCount);
            if (command.kind == DrawCommand::Kind::Fill ||
                command.kind == DrawCommand::Kind::Stroke)
                addMesh(command, points, {1.5, {3.0, 4.0}}, vertices);
            if (command.clip >= static_cast<int>(list.clips.size()))
                std::abort();
        }
    }
    for (const auto& vertex : vertices) {
        if (!std::isfinite(vertex.x) || !std::isfinite(vertex.y))
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static KOLT::Fuzz::FuzzFile file("panel.v");
    VariableTable variables;
    ViewReader reader(variables);
    const std::optional<ViewModel> model = reader.read(file.set(data, size));
    if (!model && reader.diagnostics().empty())
        std::abort();
    for (const Diagnostic& diagnostic : reader.diagnostics()) {
        if (diagnostic.line < 1 || diagnostic.column < 1 || diagnostic.text().isEmpty())
            std::abort();
    }
    if (!model)
        return 0;
    ViewFrame frame;
    frame.setModel(*model, variables);
    frame.update();
    buildMeshes(frame);
    for (const double value : {1.0, -3.7, 1e300}) {
        for (const QString& name : variables.names())
            variables.set(name, value);
        frame.update();
        buildMeshes(frame);
    }
    if (frame.update() != 0)
        std::abort();
    return 0;
}
