#include "ui/DialogFolders.h"

#include <QFileInfo>

#include <utility>

namespace KOLT::DialogFolders {

namespace {

Keeper& keeper()
{
    static Keeper keeper;
    return keeper;
}

} // namespace

void setKeeper(Keeper newKeeper)
{
    keeper() = std::move(newKeeper);
}

QString proposal(const QString& kind, const QString& proposed)
{
    const QString folder = keeper().load ? keeper().load(kind) : QString();
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        return proposed;
    return folder + QLatin1Char('/') + QFileInfo(proposed).fileName();
}

void note(const QString& kind, const QString& path)
{
    if (!path.isEmpty() && keeper().store)
        keeper().store(kind, QFileInfo(path).absolutePath());
}

} // namespace KOLT::DialogFolders
