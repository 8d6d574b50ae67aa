#pragma once

#include "base/SafeFile.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>

/// Reading and writing the program's XML files: settings, project and profile.
namespace KOLT {

enum class XmlStatus {
    Ok,
    NotOpened, ///< missing, unreadable, or not a regular file
    NotParsed  ///< not XML, or beyond the limits below
};

/// Files beyond these limits are refused: the DOM tree is freed recursively, so depth costs stack,
/// and an element of four bytes becomes a node of some hundred bytes.
constexpr qint64 maxXmlFileBytes = 64LL * 1024 * 1024;
constexpr int maxXmlElements = 1'000'000;
constexpr int maxXmlDepth = 200;
constexpr int maxXmlAttributes = 2'000; ///< per element

/// Parses the file into `document`, which is unchanged on failure.
XmlStatus parseXmlFile(const QString& path, QDomDocument& document);

/// Like parseXmlFile(), and prints the result: on failure "could not open file <path>" or "could
/// not set content <path>", then in every case "readXmlFile <path> 1|0".
XmlStatus readXmlFile(const QString& path, QDomDocument& document);

/// Writes the document as UTF-8 with an indentation of 4. The file is replaced as a whole or not at
/// all. On failure prints "could not open file for writing !<path>".
WriteResult writeXmlFile(const QString& path, const QDomDocument& document);

} // namespace KOLT
