#include "base/XmlFile.h"

#include "base/Diagnostics.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>

namespace KOLT {

namespace {

/// Whether some tag has more than maxXmlAttributes. Qt compares each attribute with all others of
/// its tag, which takes minutes for some hundred thousand.
bool hasTooManyAttributes(const QByteArray& content)
{
    int count = 0;
    for (qsizetype i = 0; i + 1 < content.size(); ++i) {
        if (content[i] == '<')
            count = 0;
        else if (content[i] == '=' && (content[i + 1] == '"' || content[i + 1] == '\''))
            ++count;
        if (count > maxXmlAttributes)
            return true;
    }
    return false;
}

/// Well-formed and within the limits. The stream reader also refuses expanding entities.
bool isAcceptableXml(const QByteArray& content)
{
    if (hasTooManyAttributes(content))
        return false;
    QXmlStreamReader reader(content);
    reader.setNamespaceProcessing(false); // like the DOM parser: prefixes need no declaration
    int depth = 0;
    int elements = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement &&
            (++depth > maxXmlDepth || ++elements > maxXmlElements))
            return false;
        if (token == QXmlStreamReader::EndElement)
            --depth;
    }
    return !reader.hasError();
}

} // namespace

XmlStatus parseXmlFile(const QString& path, QDomDocument& document)
{
    QFile file(path);
    // A pipe or device could block or never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return XmlStatus::NotOpened;
    const QByteArray content = file.read(std::min(file.size(), maxXmlFileBytes + 1));
    QDomDocument parsed;
    if (content.size() > maxXmlFileBytes || !isAcceptableXml(content) ||
        !parsed.setContent(content))
        return XmlStatus::NotParsed;
    document = parsed;
    return XmlStatus::Ok;
}

XmlStatus readXmlFile(const QString& path, QDomDocument& document)
{
    const XmlStatus status = parseXmlFile(path, document);
    if (status == XmlStatus::NotOpened)
        Diagnostics::print("could not open file <%s>\n", qUtf8Printable(path));
    else if (status == XmlStatus::NotParsed)
        Diagnostics::print("could not set content <%s>\n", qUtf8Printable(path));
    Diagnostics::print("readXmlFile <%s> %d\n", qUtf8Printable(path),
                       status == XmlStatus::Ok ? 1 : 0);
    return status;
}

WriteResult writeXmlFile(const QString& path, const QDomDocument& document)
{
    const WriteResult result = replaceFile(path, document.toByteArray(4));
    if (!result)
        Diagnostics::print("could not open file for writing !<%s>\n", qUtf8Printable(path));
    return result;
}

} // namespace KOLT
