#pragma once

#include "libs/zinc/expression/ExpressionCompiler.h"
#include "libs/zinc/view/ViewFile.h"
#include "libs/zinc/view/ViewModel.h"

#include <QSet>

#include <optional>
#include <vector>

namespace Zinc2D {

struct ElementInfo;
struct PropertyInfo;
enum class PropertyKind;
class VariableTable;

/// Turns the attributes of a view file's elements into properties, and keeps account of the
/// variables that their expressions use. Faults are reported to the file.
class PropertyReader
{
public:
    using Attribute = ViewFile::Attribute;
    using Attributes = ViewFile::Attributes;

    PropertyReader(ViewFile& file, VariableTable& variables);

    /// The properties of the current element; faulty ones are left out.
    std::vector<PropertyValue> read(const ElementInfo& info, const Attributes& attributes);

    /// A number or colour; without a value if it is faulty.
    PropertyValue readExpression(const Attribute& attribute, PropertyKind kind);

    /// The absolute path of a file; empty if there is no such file.
    QString readFile(const Attribute& attribute);

    /// Makes a variable of the table a definition.
    void define(const QString& name, const Attribute& value);

    /// The variables used so far that have no definition.
    std::vector<VariableUse> undefinedVariables() const;

private:
    struct Use
    {
        int slot = 0;
        Attribute attribute; ///< of the first use
    };

    std::optional<PropertyValue> readProperty(const PropertyInfo& info, const Attribute& attribute);
    std::optional<PropertyValue> readLiteral(const PropertyInfo& info, const Attribute& attribute);
    void readPoints(const Attribute& attribute, PropertyValue& value);
    bool fits(const Expression& expression, const Attribute& attribute, PropertyKind kind);
    bool areColors(const Expression& expression, const Attribute& attribute);
    void markUsed(const Expression& expression, const Attribute& attribute);

    ViewFile& m_file;
    VariableTable& m_variables;
    std::vector<Use> m_uses;
    QSet<int> m_used; ///< the slots of m_uses
};

} // namespace Zinc2D
