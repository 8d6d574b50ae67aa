#pragma once

#include "libs/zinc/expression/Expression.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace Zinc2D {

/// The named variables of a view, and which of them changed since somebody looked. A variable is
/// not set until it gets its first number. Definitions are variables that follow from others.
class VariableTable
{
public:
    /// The place of a name; it is made when there is none yet.
    int slot(const QString& name);

    /// All names that were set, defined or used.
    QStringList names() const { return m_slots.keys(); }

    const QString& name(int slot) const { return m_names[static_cast<std::size_t>(slot)]; }

    /// Numbers, but for definitions.
    ValueTypes types(int slot) const { return m_types[static_cast<std::size_t>(slot)]; }

    bool isDefined(int slot) const { return m_isDefined[static_cast<std::size_t>(slot)]; }

    bool isDefined(const QString& name) const
    {
        const auto found = m_slots.constFind(name);
        return found != m_slots.cend() && isDefined(*found);
    }

    const Value& value(int slot) const { return m_values[static_cast<std::size_t>(slot)]; }

    Value value(const QString& name) const;

    /// A number that is none takes the variable's value away. Definitions keep theirs.
    void set(const QString& name, double number);

    /// The variable follows from others from now on; its expression may only use variables that
    /// were known before.
    void define(const QString& name, Expression expression);

    /// Forgets all definitions; what was set stays.
    void dropDefinitions();

    /// No variable is set any more.
    void unsetAll();

    /// Brings definitions up to date and returns the variables that changed since the last call.
    std::vector<int> takeChanges();

    bool hasChanges() const { return !m_changed.empty(); }

private:
    struct Definition
    {
        int slot = 0;
        Expression expression;
    };

    void change(int slot, const Value& value);
    bool isAnyChanged(const std::vector<int>& variables) const;

    QHash<QString, int> m_slots;
    std::vector<QString> m_names;
    std::vector<Value> m_values;
    std::vector<ValueTypes> m_types;
    std::vector<bool> m_isChanged;
    std::vector<bool> m_isDefined;
    std::vector<int> m_changed;
    std::vector<Definition> m_definitions; ///< in an order in which each needs only earlier ones
};

} // namespace Zinc2D
