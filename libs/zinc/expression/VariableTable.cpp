#include "libs/zinc/expression/VariableTable.h"

#include <algorithm>
#include <utility>

namespace Zinc2D {

int VariableTable::slot(const QString& name)
{
    const auto found = m_slots.constFind(name);
    if (found != m_slots.cend())
        return *found;
    const auto slot = static_cast<int>(m_variables.size());
    m_slots.insert(name, slot);
    m_variables.emplace_back().name = name;
    return slot;
}

Value VariableTable::value(const QString& name) const
{
    const auto found = m_slots.constFind(name);
    return found == m_slots.cend() ? Value() : value(*found);
}

void VariableTable::change(int slot, const Value& value)
{
    Variable& changed = variable(slot);
    if (changed.value == value)
        return;
    changed.value = value;
    if (!std::exchange(changed.isChanged, true))
        m_changed.push_back(slot);
}

void VariableTable::set(const QString& name, double number)
{
    const int place = slot(name);
    if (!isDefined(place))
        change(place, Value(number));
}

void VariableTable::define(const QString& name, Expression expression)
{
    const int place = slot(name);
    variable(place).isDefined = true;
    variable(place).types = expression.types();
    change(place, expression.evaluate(*this));
    m_definitions.push_back({place, std::move(expression)});
}

void VariableTable::dropDefinitions()
{
    for (const Definition& definition : m_definitions) {
        change(definition.slot, Value()); // before the text that it may refer to is gone
        variable(definition.slot).isDefined = false;
        variable(definition.slot).types = numberType;
    }
    m_definitions.clear();
}

void VariableTable::unsetAll()
{
    for (int slot = 0; slot < static_cast<int>(m_variables.size()); ++slot) {
        if (!isDefined(slot))
            change(slot, Value());
    }
}

std::vector<int> VariableTable::takeChanges()
{
    if (m_changed.empty())
        return {};
    const auto isChanged = [this](int slot) { return variable(slot).isChanged; };
    for (const Definition& definition : m_definitions) {
        if (std::ranges::any_of(definition.expression.variables(), isChanged))
            change(definition.slot, definition.expression.evaluate(*this));
    }
    for (const int slot : m_changed)
        variable(slot).isChanged = false;
    return std::exchange(m_changed, {});
}

} // namespace Zinc2D
