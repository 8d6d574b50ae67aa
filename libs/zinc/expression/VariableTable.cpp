#include "libs/zinc/expression/VariableTable.h"

#include <algorithm>
#include <utility>

namespace Zinc2D {

int VariableTable::slot(const QString& name)
{
    const auto found = m_slots.constFind(name);
    if (found != m_slots.cend())
        return *found;
    const auto slot = static_cast<int>(m_values.size());
    m_slots.insert(name, slot);
    m_names.push_back(name);
    m_values.emplace_back();
    m_types.push_back(numberType);
    m_isChanged.push_back(false);
    m_isDefined.push_back(false);
    return slot;
}

Value VariableTable::value(const QString& name) const
{
    const auto found = m_slots.constFind(name);
    return found == m_slots.cend() ? Value() : value(*found);
}

void VariableTable::change(int slot, const Value& value)
{
    const auto index = static_cast<std::size_t>(slot);
    if (m_values[index] == value)
        return;
    m_values[index] = value;
    if (m_isChanged[index])
        return;
    m_isChanged[index] = true;
    m_changed.push_back(slot);
}

void VariableTable::set(const QString& name, double number)
{
    const int place = slot(name);
    if (!m_isDefined[static_cast<std::size_t>(place)])
        change(place, Value(number));
}

void VariableTable::define(const QString& name, Expression expression)
{
    const int place = slot(name);
    m_isDefined[static_cast<std::size_t>(place)] = true;
    m_types[static_cast<std::size_t>(place)] = expression.types();
    change(place, expression.evaluate(*this));
    m_definitions.push_back({place, std::move(expression)});
}

void VariableTable::dropDefinitions()
{
    for (const Definition& definition : m_definitions) {
        change(definition.slot, Value()); // before the text that it may refer to is gone
        m_isDefined[static_cast<std::size_t>(definition.slot)] = false;
        m_types[static_cast<std::size_t>(definition.slot)] = numberType;
    }
    m_definitions.clear();
}

void VariableTable::unsetAll()
{
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        if (!m_isDefined[i])
            change(static_cast<int>(i), Value());
    }
}

bool VariableTable::isAnyChanged(const std::vector<int>& variables) const
{
    return std::ranges::any_of(
        variables, [this](int slot) { return m_isChanged[static_cast<std::size_t>(slot)]; });
}

std::vector<int> VariableTable::takeChanges()
{
    if (m_changed.empty())
        return {};
    for (const Definition& definition : m_definitions) {
        if (isAnyChanged(definition.expression.variables()))
            change(definition.slot, definition.expression.evaluate(*this));
    }
    for (const int slot : m_changed)
        m_isChanged[static_cast<std::size_t>(slot)] = false;
    return std::exchange(m_changed, {});
}

} // namespace Zinc2D
