#include "graph/GraphScene.h"

#include "graph/SceneBuilder.h"

namespace KOLT {

GraphScene buildScene(const Graph& graph, const GraphInput& input, double pixelRatio)
{
    return SceneBuilder(graph, input, pixelRatio).build();
}

} // namespace KOLT
