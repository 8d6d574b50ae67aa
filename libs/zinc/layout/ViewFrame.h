#pragma once

#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/layout/Canvas.h"
#include "libs/zinc/view/ViewModel.h"

namespace Zinc2D {

/// What a view looks like now: a draw list for each element, rebuilt only where a variable changed
/// that the element, or a group around it, depends on.
class ViewFrame
{
public:
    ViewFrame() = default;

    /// Shows a view from now on, which must stay, as must the table of its variables.
    void setModel(const ViewModel& model, VariableTable& variables);

    /// Takes over what changed and returns how many elements were rebuilt.
    int update();

    std::size_t size() const { return m_nodes.size(); }

    const DrawList& drawList(std::size_t element) const { return m_nodes[element].list; }

    /// Grows whenever the element's draw list is rebuilt.
    unsigned revision(std::size_t element) const { return m_nodes[element].revision; }

private:
    struct Node
    {
        const Element* element = nullptr;
        bool isDirty = true;
        bool hasMoved = true; ///< of groups: what is in them has to be rebuilt
        Placement placement;  ///< of groups: for what is in them
        DrawList list;
        unsigned revision = 0;
    };

    Placement placementOf(const Element& group, const Placement& outer) const;
    void rebuildGroup(Node& node, const Placement& outer);
    void rebuild(Node& node, const Placement& outer);

    VariableTable* m_variables = nullptr;
    std::vector<Node> m_nodes;
    std::vector<std::vector<int>> m_dependents; ///< by slot of a variable: elements
    bool m_isNew = false;
};

} // namespace Zinc2D
