#pragma once

#include <QStringList>

namespace KOLT {

class SettingsStore;

/// The recently opened folders, newest first, kept in the settings as "RecentFolder1" to
/// "RecentFolder10". Saving the settings is up to the caller.
class RecentFolders
{
public:
    static constexpr int maxFolders = 10;

    /// Reads the list from the settings, which must outlive it.
    explicit RecentFolders(SettingsStore& settings);

    const QStringList& folders() const { return m_folders; }

    /// Puts the folder at the front.
    void add(const QString& folder);
    void remove(const QString& folder);

private:
    void store() const;

    SettingsStore& m_settings;
    QStringList m_folders;
};

} // namespace KOLT
