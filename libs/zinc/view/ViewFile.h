#pragma once

#include "libs/zinc/view/ViewSource.h"

#include <QXmlStreamReader>

#include <vector>

namespace Zinc2D {

/// Walks through the elements of a view file and collects reports of faults, with their positions:
/// at most 200, each once.
class ViewFile
{
public:
    /// An attribute as written in the file.
    struct Attribute
    {
        QString name;
        QString value;
        qsizetype offset = 0; ///< of the value
    };

    using Attributes = std::vector<Attribute>;

    /// Goes to the root element. False, with a report, if there is none or the file cannot be read.
    bool open(const QString& path);

    /// The path of a file that the view refers to.
    QString absolutePath(const QString& path) const;

    /// Advances to the next child of the current element; false at the end of that element.
    bool nextChild();

    /// Goes to the end of the current element.
    void skip() { m_xml.skipCurrentElement(); }

    /// Goes to the end of the current element, which takes no children, and reports any.
    void leave();
    /// False, with a report, if the file is not well-formed up to here.
    bool isGood();

    QStringView elementName() const { return m_xml.name(); }

    Attributes attributes() const;

    Diagnostic diagnostic(const Attribute& attribute, const QString& message) const
    {
        return m_source.diagnostic(attribute.offset, message);
    }

    /// Reports a fault of the current element.
    void report(const QString& message) { report(tagStart(), message); }

    /// Reports a fault of an attribute, at a character of its value.
    void report(const Attribute& attribute, const QString& message, qsizetype character = 0);
    /// Reports an attribute that the current element does not take.
    void reportUnknown(const Attribute& attribute);

    const std::vector<Diagnostic>& reports() const { return m_reports; }

private:
    qsizetype tagStart() const;
    qsizetype textStart() const;
    void report(qsizetype offset, const QString& message);

    QString m_path;
    ViewSource m_source;
    QXmlStreamReader m_xml;
    std::vector<Diagnostic> m_reports;
};

} // namespace Zinc2D
