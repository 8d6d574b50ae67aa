#pragma once

#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/layout/Canvas.h"
#include "libs/zinc/view/ViewModel.h"

namespace Zinc2D {

/// The draw lists of a view's elements at the current values. A list is rebuilt only when a
/// variable changed that the element or a group around it depends on.
class ViewFrame
{
public:
    ViewFrame() = default;

    /// Sets the view and its variables, which must both outlive this object or the next call.
    void setModel(const ViewModel& model, VariableTable& variables);

    /// Rebuilds what has changed and returns the number of rebuilt elements.
    int update();

    std::size_t size() const { return m_nodes.size(); }

    const DrawList& drawList(std::size_t element) const { return m_nodes[element].list; }

    /// Incremented whenever the element's draw list is rebuilt.
    unsigned revision(std::size_t element) const { return m_nodes[element].revision; }

private:
    struct Node
    {
        const Element* element = nullptr;
        bool isDirty = true;
        bool hasMoved = true; ///< of groups: their contents must be rebuilt
        Placement placement;  ///< of groups: of their contents
        DrawList list;
        unsigned revision = 0;
    };

    Placement placementOf(const Element& group, const Placement& outer) const;
    void rebuildGroup(Node& node, const Placement& outer);
    void rebuild(Node& node, const Placement& outer);

    VariableTable* m_variables = nullptr;
    std::vector<Node> m_nodes;
    std::vector<std::vector<int>> m_dependents; ///< indices of elements, by variable slot
    bool m_isNew = false;
};

} // namespace Zinc2D
