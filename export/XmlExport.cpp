#include "export/XmlExport.h"

#include "export/ExportFile.h"

namespace KOLT {

namespace {

/// The text without control characters, lone surrogates and noncharacters.
QString allowed(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        const char16_t code = character.unicode();
        if (character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            result += character;
            result += text[++i];
        } else if (code == u'\t' || code == u'\n' || code == u'\r' ||
                   (code >= u' ' && !character.isSurrogate() && code < 0xFFFE)) {
            result += character;
        }
    }
    return result;
}

} // namespace

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
    m_xml.writeTextElement(QLatin1String(name), allowed(text));
}

ExportStatus XmlExport::finish()
{
    if (m_meter.isCancelled())
        return ExportStatus::Cancelled;
    m_xml.writeEndDocument();
    return finishExport(*m_xml.device(), !m_xml.hasError());
}

} // namespace KOLT
