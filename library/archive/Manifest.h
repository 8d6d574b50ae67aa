#pragma once

#include "library/archive/ArchivedCycle.h"

#include <optional>

namespace KOLT::Library {

/// What is known of one file of the archive. Header fields are kept, so that files can be told
/// apart without being read again.
struct ManifestFile
{
    QString name;
    QString sha256; ///< 64 hexadecimal digits, lower case
    qint64 bytes = 0;
    QDateTime dateTime; ///< of its header, as UTC; invalid when the header has none
    double start = 0.0; ///< seconds on the unit's counter
    double stop = 0.0;
    QString engine;
    QString engineType;
    QString ecuType;
    QString card;       ///< the folder that it came from
    QDateTime imported; ///< UTC
    QString program;    ///< version that imported it

    bool operator==(const ManifestFile&) const = default;
};

/// The file "manifest.json" in the folder of a cycle (docs/formats/library.md).
struct Manifest
{
    quint32 unit = 0;
    int sequence = 1;           ///< tells apart recordings of a unit that use the same file names
    QList<ManifestFile> files;  ///< in name order
    QList<ManifestFile> copies; ///< of the folder "copies"; the names are those there

    bool operator==(const Manifest&) const = default;
};

/// "<hash> <name>": tells files apart whose content is the same.
inline QString keyOf(const ManifestFile& file)
{
    return file.sha256 + QLatin1Char(' ') + file.name;
}

inline constexpr const char* manifestName = "manifest.json";
inline constexpr const char* copiesName = "copies";

/// Entries that make no sense are left out: without a hash or size, with a name that is no plain
/// file name, or named twice. None when the text is no manifest at all.
std::optional<Manifest> parseManifest(const QByteArray& json);

/// None when there is no file, or no manifest in it. When there is a file that cannot be read, also
/// the system's error.
std::optional<Manifest> readManifest(const QString& folder, QString* error = nullptr);

QByteArray manifestText(const Manifest& manifest);

/// The date-time of a cycle from its files in name order: that of the first, or of the one after
/// it less the stop of the first, as the listing of a card repairs it.
QDateTime dateTimeOf(const QList<ManifestFile>& files);

/// What the manifest tells of the cycle in `folder`, which is below the archive.
ArchivedCycle cycleOf(const Manifest& manifest, const QString& folder);

/// "<unit>/<year>/<date time> <start of the first file's hash>".
QString folderNameOf(quint32 unit, const QList<ManifestFile>& files);

} // namespace KOLT::Library
