#include "libs/zinc/view/ViewFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace Zinc2D {

namespace {

constexpr qint64 maxFileBytes = 16 << 20;
constexpr std::size_t maxReports = 200;

} // namespace

bool ViewFile::open(const QString& path)
{
    m_path = path;
    m_source = ViewSource(path, {});
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report(0, file.errorString());
        return false;
    }
    const QByteArray content = file.read(maxFileBytes + 1);
    if (content.size() > maxFileBytes) {
        report(0, QStringLiteral("the file is too large"));
        return false;
    }
    QString text = QString::fromUtf8(content);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    m_source = ViewSource(path, text);
    m_xml.addData(text);
    if (m_xml.readNextStartElement())
        return true;
    report(m_xml.characterOffset(), m_xml.errorString());
    return false;
}

QString ViewFile::absolutePath(const QString& path) const
{
    return QFileInfo(m_path).absoluteDir().absoluteFilePath(path);
}

bool ViewFile::isGood()
{
    if (!m_xml.hasError())
        return true;
    report(m_xml.characterOffset(), m_xml.errorString());
    return false;
}

bool ViewFile::nextChild()
{
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::EndElement || token == QXmlStreamReader::Invalid)
            return false;
        if (token == QXmlStreamReader::StartElement)
            return true;
        if (token == QXmlStreamReader::Characters && !m_xml.isWhitespace())
            report(textStart(), QStringLiteral("text between elements is not shown"));
    }
    return false;
}

void ViewFile::leave()
{
    const QString name = elementName().toString();
    while (nextChild()) {
        report(QStringLiteral("\"%1\" cannot contain \"%2\"").arg(name, elementName()));
        skip();
    }
}

ViewFile::Attributes ViewFile::attributes() const
{
    const qsizetype tag = tagStart();
    const QHash<QString, qsizetype> offsets = m_source.attributeOffsets(tag);
    Attributes result;
    for (const QXmlStreamAttribute& attribute : m_xml.attributes()) {
        const QString name = attribute.qualifiedName().toString();
        result.push_back({name, attribute.value().toString(), offsets.value(name, tag)});
    }
    return result;
}

qsizetype ViewFile::tagStart() const
{
    // A tag cannot contain "<".
    const qsizetype end = std::max<qsizetype>(m_xml.characterOffset() - 1, 0);
    return std::max<qsizetype>(m_source.text().lastIndexOf(u'<', end), 0) + 1;
}

/// Start of the character data read last.
qsizetype ViewFile::textStart() const
{
    const QString& text = m_source.text();
    const qsizetype end = std::max<qsizetype>(m_xml.characterOffset() - 1, 0);
    qsizetype start = text.lastIndexOf(u'>', end) + 1;
    while (start < end && text[start].isSpace())
        ++start;
    return start;
}

void ViewFile::report(qsizetype offset, const QString& message)
{
    if (m_reports.size() >= maxReports)
        return;
    Diagnostic found = m_source.diagnostic(offset, message);
    // A fault in a style would be reported by each element that uses it.
    if (std::ranges::count(m_reports, found) == 0)
        m_reports.push_back(std::move(found));
}

void ViewFile::report(const Attribute& attribute, const QString& message, qsizetype character)
{
    report(m_source.offsetInValue(attribute.offset, character), message);
}

void ViewFile::reportUnknown(const Attribute& attribute)
{
    report(attribute,
           QStringLiteral("\"%1\" has no attribute \"%2\"").arg(elementName(), attribute.name));
}

} // namespace Zinc2D
