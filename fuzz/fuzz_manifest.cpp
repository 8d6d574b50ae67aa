// Reads arbitrary bytes as a manifest of the archive. Writing what was read and reading it again
// must give the same, and no name may lead out of the cycle's folder.

#include "fuzz/FuzzFile.h"
#include "library/archive/Manifest.h"

using namespace KOLT;
using namespace KOLT::Library;

namespace {

void checkNames(const QList<ManifestFile>& files)
{
    for (const ManifestFile& file : files) {
        if (file.name.isEmpty() || file.name.contains(QLatin1Char('/')) ||
            file.name.contains(QLatin1Char('\\')) || file.name == QLatin1String("..") ||
            file.sha256.size() != 64 || file.bytes < 0)
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::optional<Manifest> manifest = parseManifest(json);
    if (!manifest)
        return 0;
    checkNames(manifest->files);
    checkNames(manifest->copies);
    const QByteArray text = manifestText(*manifest);
    const std::optional<Manifest> again = parseManifest(text);
    if (!again || manifestText(*again) != text)
        std::abort();
    const QString folder = folderNameOf(manifest->unit, manifest->files);
    if (folder.contains(QLatin1String("..")) || folder.startsWith(QLatin1Char('/')))
        std::abort();
    cycleOf(*manifest, folder);
    return 0;
}
