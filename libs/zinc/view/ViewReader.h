#pragma once

#include "libs/zinc/expression/ExpressionCompiler.h"
#include "libs/zinc/view/ViewModel.h"
#include "libs/zinc/view/ViewSource.h"

#include <QSet>
#include <QXmlStreamReader>

#include <optional>

namespace Zinc2D {

struct ElementInfo;
struct PropertyInfo;
enum class PropertyKind;
class VariableTable;

/// Reads a view file (docs/formats/view.md).
///
/// What cannot be used is reported with its position and left out; the rest is read. Limits:
/// 16 MiB, 20,000 elements, groups nested 64 deep, 200 reports.
class ViewReader
{
public:
    /// Definitions are added to the table, which must not have any yet.
    explicit ViewReader(VariableTable& variables);

    /// Empty if the file cannot be read, is not XML, or is not a view with a size.
    std::optional<ViewModel> read(const QString& path);

    const std::vector<Diagnostic>& diagnostics() const { return m_diagnostics; }

private:
    /// An attribute as written in the file.
    struct Attribute
    {
        QString name;
        QString value;
        qsizetype offset = 0; ///< of the value
    };

    using Attributes = std::vector<Attribute>;

    bool load(const QString& path);
    bool readRoot();
    void collectVariables();
    void readChildren(int parent, int depth);
    void readChild(int parent, int depth);
    void readElement(const ElementInfo& info, int parent, int depth);
    void readParts(const ElementInfo& info, Element& element);
    void readDefinition();
    void markUsed(const Expression& expression, const Attribute& attribute);
    void readStyle();
    void readFont();
    void readOptional();
    bool nextChild();
    void leave();

    Attributes attributes() const;
    void addStyle(Attributes& attributes);
    bool hasRequired(const ElementInfo& info, const Attributes& attributes);
    void readProperties(const ElementInfo& info, const Attributes& attributes, Element& element);
    std::optional<PropertyValue> readProperty(const PropertyInfo& info, const Attribute& attribute);
    void compile(const Attribute& attribute, PropertyKind kind, PropertyValue& value);
    bool fits(const Expression& expression, const Attribute& attribute, PropertyKind kind);
    bool isUsablePart(const ElementInfo& parent, const Element& part);
    bool readWord(const PropertyInfo& info, const Attribute& attribute, PropertyValue& value);
    bool readFormat(const Attribute& attribute, PropertyValue& value);
    bool readFile(const Attribute& attribute, PropertyValue& value);
    void readPoints(const Attribute& attribute, PropertyValue& value);

    qsizetype tagStart() const;
    qsizetype textStart() const;
    void report(qsizetype offset, const QString& message);

    void reportTag(const QString& message) { report(tagStart(), message); }

    void reportIn(const Attribute& attribute, qsizetype character, const QString& message);

    VariableTable& m_variables;
    QString m_directory;
    ViewSource m_source;
    QXmlStreamReader m_xml;
    ViewModel m_model;
    QHash<QString, Attributes> m_styles;
    std::vector<std::pair<int, qsizetype>> m_uses; ///< slots of variables, offsets of first use
    QSet<int> m_used;                              ///< the same slots
    std::vector<Diagnostic> m_diagnostics;
    int m_elementCount = 0;
};

} // namespace Zinc2D
