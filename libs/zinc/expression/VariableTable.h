#pragma once

#include "libs/zinc/expression/Expression.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace Zinc2D {

/// The named variables of a view, and which of them changed since the last takeChanges(). A
/// variable is not set until it gets its first number. A definition is computed from others.
class VariableTable
{
public:
    /// Index of the variable of that name, which is added if it is new.
    int slot(const QString& name);

    /// All names that were set, defined or used.
    QStringList names() const { return m_slots.keys(); }

    const QString& name(int slot) const { return variable(slot).name; }

    /// The types it can hold: numbers, or what a definition's expression yields.
    ValueTypes types(int slot) const { return variable(slot).types; }

    bool isDefined(int slot) const { return variable(slot).isDefined; }

    bool isDefined(const QString& name) const
    {
        const auto found = m_slots.constFind(name);
        return found != m_slots.cend() && isDefined(*found);
    }

    const Value& value(int slot) const { return variable(slot).value; }

    Value value(const QString& name) const;

    /// NaN and infinity unset the variable. A definition is not changed.
    void set(const QString& name, double number);

    /// Makes the variable a definition. Definitions are evaluated in the order of these calls, so
    /// the expression must not use one that is defined later.
    void define(const QString& name, Expression expression);

    /// Removes all definitions; values that were set stay.
    void dropDefinitions();

    /// Unsets all variables; definitions follow with takeChanges().
    void unsetAll();

    /// Evaluates definitions and returns the slots of all variables that changed since the last
    /// call.
    std::vector<int> takeChanges();

    bool hasChanges() const { return !m_changed.empty(); }

private:
    struct Variable
    {
        QString name;
        Value value;
        ValueTypes types = numberType;
        bool isDefined = false;
        bool isChanged = false; ///< and listed in m_changed
    };

    struct Definition
    {
        int slot = 0;
        Expression expression;
    };

    const Variable& variable(int slot) const { return m_variables[static_cast<std::size_t>(slot)]; }

    Variable& variable(int slot) { return m_variables[static_cast<std::size_t>(slot)]; }

    void change(int slot, const Value& value);

    QHash<QString, int> m_slots;
    std::vector<Variable> m_variables;
    std::vector<int> m_changed;
    std::vector<Definition> m_definitions; ///< each depends only on earlier ones
};

} // namespace Zinc2D
