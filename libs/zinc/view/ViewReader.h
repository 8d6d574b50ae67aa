#pragma once

#include "libs/zinc/view/PropertyReader.h"
#include "libs/zinc/view/ViewFile.h"
#include "libs/zinc/view/ViewModel.h"

#include <QHash>

#include <optional>

namespace Zinc2D {

struct ElementInfo;
class VariableTable;

/// Reads one view file (docs/formats/view.md).
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

    const std::vector<Diagnostic>& diagnostics() const { return m_file.reports(); }

private:
    using Attribute = ViewFile::Attribute;
    using Attributes = ViewFile::Attributes;

    bool readRoot();
    void readChildren(int parent, int depth);
    void readChild(int parent, int depth);
    bool readDeclaration();
    void readDefinition();
    void readStyle();
    void readFont();
    void readOptional();
    void readAlternative();
    void addSteps(Element& element);
    void readElement(const ElementInfo& info, int parent, int depth);
    void readParts(const ElementInfo& info, Element& element);
    std::optional<Element> readAttributes(const ElementInfo& info);
    bool isUsablePart(const ElementInfo& parent, const Element& part);
    bool hasRequired(const ElementInfo& info, const Attributes& attributes);
    bool isFull();
    void addStyle(Attributes& attributes);

    ViewFile m_file;
    PropertyReader m_properties;
    ViewModel m_model;
    QHash<QString, Attributes> m_styles;
    int m_elementCount = 0;
};

} // namespace Zinc2D
