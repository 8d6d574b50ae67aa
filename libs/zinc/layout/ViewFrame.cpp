#include "libs/zinc/layout/ViewFrame.h"

#include "libs/zinc/layout/ElementLayout.h"

#include <algorithm>

namespace Zinc2D {

namespace {

const Placement unplaced;

void collectVariables(const Element& element, std::vector<int>& found)
{
    for (const PropertyValue& property : element.properties) {
        for (const Expression& expression : property.expressions)
            found.insert(found.end(), expression.variables().begin(), expression.variables().end());
    }
    for (const Element& part : element.parts)
        collectVariables(part, found);
}

} // namespace

void ViewFrame::setModel(const ViewModel& model, VariableTable& variables)
{
    m_variables = &variables;
    m_nodes.clear();
    m_dependents.clear();
    m_isNew = true;
    std::vector<int> used;
    for (const Element& element : model.elements) {
        const auto index = static_cast<int>(m_nodes.size());
        m_nodes.emplace_back().element = &element;
        used.clear();
        collectVariables(element, used);
        std::ranges::sort(used);
        used.erase(std::unique(used.begin(), used.end()), used.end());
        for (const int slot : used) {
            const auto place = static_cast<std::size_t>(slot);
            m_dependents.resize(std::max(m_dependents.size(), place + 1));
            m_dependents[place].push_back(index);
        }
    }
}

int ViewFrame::update()
{
    if (m_variables == nullptr || (!m_isNew && !m_variables->hasChanges()))
        return 0;
    m_isNew = false;
    for (const int slot : m_variables->takeChanges()) {
        const auto place = static_cast<std::size_t>(slot);
        if (place >= m_dependents.size())
            continue; // no element uses it
        for (const int index : m_dependents[place])
            m_nodes[static_cast<std::size_t>(index)].isDirty = true;
    }
    int rebuilt = 0;
    for (Node& node : m_nodes) {
        const int parent = node.element->parent;
        const Node* const group = parent < 0 ? nullptr : &m_nodes[static_cast<std::size_t>(parent)];
        const bool hasGroupMoved = group != nullptr && group->hasMoved;
        const bool isDue = node.isDirty || hasGroupMoved;
        node.isDirty = false;
        const Placement& outer = group != nullptr ? group->placement : unplaced;
        if (node.element->type == ElementType::Group) {
            node.hasMoved = false;
            if (isDue)
                rebuildGroup(node, outer);
        } else if (isDue) {
            rebuild(node, outer);
            ++rebuilt;
        }
    }
    return rebuilt;
}

void ViewFrame::rebuildGroup(Node& node, const Placement& outer)
{
    const Placement placement = placementOf(*node.element, outer);
    node.hasMoved = node.revision++ == 0 || !(placement == node.placement);
    node.placement = placement;
}

Placement ViewFrame::placementOf(const Element& group, const Placement& outer) const
{
    const Properties properties(group, *m_variables);
    Placement placement = outer;
    placement.isVisible =
        outer.isVisible && properties.isVisible() &&
        !properties.isMissing({Property::X, Property::Y, Property::Rotate, Property::Scale});
    if (!placement.isVisible)
        return placement;
    const double turn = properties.number(Property::Rotate, 0.0);
    const double scale = properties.number(Property::Scale, 1.0);
    const QPointF place = properties.place();
    placement.transform.translate(place.x(), place.y());
    placement.transform.rotate(turn);
    placement.transform.scale(scale, scale);
    placement.scale *= std::abs(scale);
    placement.angle += turn;
    placement.opacity *= properties.opacity();
    return placement;
}

void ViewFrame::rebuild(Node& node, const Placement& outer)
{
    node.list.clear();
    ++node.revision;
    if (!outer.isVisible)
        return;
    const Properties properties(*node.element, *m_variables);
    Placement placement = outer;
    placement.opacity *= properties.opacity();
    Canvas canvas(node.list, placement);
    layoutElement(properties, canvas);
}

} // namespace Zinc2D
