#pragma once

#include "base/SafeFile.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>

/// Reading and writing the program's XML files: settings, project and profile.
namespace KOLT {

enum class XmlStatus {
    Ok,
    NotOpened, ///< missing, unreadable, or not a plain file
    NotParsed  ///< not XML, or beyond the limits below
};

/// Files beyond these limits are refused: the DOM tree is freed recursively, so depth costs stack,
/// and an element of four bytes becomes a node of some hundred.
constexpr qint64 maxXmlFileBytes = 64LL * 1024 * 1024;
constexpr int maxXmlElements = 1'000'000;
constexpr int maxXmlDepth = 200;
constexpr int maxXmlAttributes = 2'000; ///< of one element

/// Reads the file into `document`, which is left as it was on failure.
XmlStatus parseXmlFile(const QString& path, QDomDocument& document);

/// The same, and says so: on failure one of "could not open file <path>" and "could not set content
/// <path>" is printed; in every case "readXmlFile <path> 1|0" follows.
XmlStatus readXmlFile(const QString& path, QDomDocument& document);

/// Writes the document as UTF-8 with an indentation of 4. The file is replaced as a whole or not at
/// all. On failure prints "could not open file for writing !<path>".
WriteResult writeXmlFile(const QString& path, const QDomDocument& document);

/// Text for an attribute: UTF-8 decoded, characters that no XML file may hold replaced by U+FFFD.
/// Without this one odd file name would make the whole file unreadable.
QString xmlText(const QByteArray& bytes);

} // namespace KOLT
