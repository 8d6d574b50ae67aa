#pragma once

#include <QStringList>

namespace KOLT {

/// The folders that were opened last, newest first, kept in the settings under "RecentFolder1" and
/// so on. Callers save the settings.
class RecentFolders
{
public:
    static constexpr int maxFolders = 10;

    /// Reads the list from the settings.
    RecentFolders();

    const QStringList& folders() const { return m_folders; }

    /// Moves the folder to the front, or puts it there.
    void add(const QString& folder);
    void remove(const QString& folder);

private:
    void store() const;

    QStringList m_folders;
};

} // namespace KOLT
