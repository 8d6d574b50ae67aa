#pragma once

#include <QStringList>

namespace KOLT {

/// The recently opened folders, newest first, kept in the settings as "RecentFolder1" to
/// "RecentFolder10". Saving the settings is up to the caller.
class RecentFolders
{
public:
    static constexpr int maxFolders = 10;

    /// Reads the list from the settings.
    RecentFolders();

    const QStringList& folders() const { return m_folders; }

    /// Puts the folder at the front.
    void add(const QString& folder);
    void remove(const QString& folder);

private:
    void store() const;

    QStringList m_folders;
};

} // namespace KOLT
