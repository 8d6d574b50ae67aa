// Loads arbitrary bytes as settings. Writing what was read and reading it again must give the same
// file.

#include "app/settings/SettingsStore.h"
#include "fuzz/FuzzFile.h"

using namespace KOLT;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Loads and saves; returns the content of the saved file.
QByteArray savedSettings(const QString& path)
{
    SettingsStore store;
    store.setFileName(QFile::encodeName(path));
    store.load();
    if (!store.save())
        std::abort();
    return contentOf(path);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fuzz::FuzzFile file("KOLT.ini");
    const QString settings = file.set(data, size);
    if (savedSettings(settings) != savedSettings(settings))
        std::abort();
    for (int i = 1; QFile::remove(
             settings + (i == 1 ? QStringLiteral(".broken") : QStringLiteral(".broken.%1").arg(i)));
         ++i) {
    }
    return 0;
}
