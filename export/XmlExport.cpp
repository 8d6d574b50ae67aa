#include "export/XmlExport.h"

#include "base/XmlText.h"
#include "export/ExportFile.h"

namespace KOLT {

XmlExport::XmlExport(QIODevice& device, const ExportProgress& progress, std::size_t steps)
    : m_xml(&device)
    , m_meter(progress, steps)
{
    m_xml.setAutoFormatting(true);
    m_xml.setAutoFormattingIndent(1);
    m_xml.writeStartDocument();
}

void XmlExport::element(const char* name, const QString& text)
{
    m_xml.writeTextElement(QLatin1String(name), xmlText(text, InvalidXml::Drop));
}

ExportStatus XmlExport::finish()
{
    if (m_meter.isCancelled())
        return ExportStatus::Cancelled;
    m_xml.writeEndDocument();
    return finishExport(*m_xml.device(), !m_xml.hasError());
}

} // namespace KOLT
