#pragma once

#include "export/ExportProgress.h"

#include <QXmlStreamWriter>

namespace KOLT {

/// An XML document that is being exported: writes its elements, counts its steps and yields the
/// export's status. Characters that XML forbids even escaped are left out of texts.
class XmlExport
{
public:
    XmlExport(QIODevice& device, const ExportProgress& progress, std::size_t steps);

    void begin(const char* name) { m_xml.writeStartElement(QLatin1String(name)); }

    void end() { m_xml.writeEndElement(); }

    void attribute(const char* name, const QString& value)
    {
        m_xml.writeAttribute(QLatin1String(name), value);
    }

    void element(const char* name, const QString& text);

    /// Elements of other namespaces, and plain characters.
    QXmlStreamWriter& writer() { return m_xml; }

    /// Counts one step; false if the export was cancelled or the device failed.
    bool step() { return m_meter.step() && !m_xml.hasError(); }

    /// Ends the document, unless a step was false, and flushes the device.
    ExportStatus finish();

private:
    QXmlStreamWriter m_xml;
    ExportMeter m_meter;
};

} // namespace KOLT
