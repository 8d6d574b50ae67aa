#pragma once

#include <QString>

#include <functional>

/// The folders in which file dialogs were last left, by what they ask for ("Snapshot"). The faces
/// know no settings, so the program sets where the folders are kept; without that none is known.
namespace KOLT::DialogFolders {

struct Keeper
{
    std::function<QString(const QString& kind)> load;
    std::function<void(const QString& kind, const QString& folder)> store;
};

void setKeeper(Keeper keeper);

/// The proposed path, moved to the last folder of this kind if that still exists.
QString proposal(const QString& kind, const QString& proposed);

/// A file was chosen; an empty path changes nothing.
void note(const QString& kind, const QString& path);

} // namespace KOLT::DialogFolders
