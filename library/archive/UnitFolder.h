#pragma once

#include "library/archive/Archive.h"
#include "library/archive/CyclePlan.h"

namespace KOLT {
struct RecordInfo;
}

namespace KOLT::Library {

/// What lies in the folder of a unit: what the manifests name, and files that none names, as an
/// import was interrupted, or a manifest was lost. Of these the headers are read and the hashes
/// computed.
struct UnitContent
{
    std::vector<PlanFile> files;
    std::map<QString, Manifest> manifests; ///< by folder, as on the disk
    QStringList folders;                   ///< of cycles, with or without a manifest
    QString error; ///< for the user: something is there and cannot be read; nothing may be changed
};

UnitContent readUnit(const Archive& archive, quint32 unit);

struct Header
{
    ManifestFile file; ///< without hash
    quint32 unit = 0;  ///< 0: cut short

    bool operator==(const Header&) const = default;
};

/// The header of a file of the archive; none when reading fails, even now and then.
std::optional<Header> readHeader(const QString& path, const QString& name);

/// What a header tells of a file, without its hash.
ManifestFile describeFile(const QString& name, const RecordInfo& info, qint64 bytes);

} // namespace KOLT::Library
