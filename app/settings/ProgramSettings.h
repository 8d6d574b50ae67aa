#pragma once

#include "app/settings/SettingsStore.h"
#include "profile/ProfileParameter.h"

namespace KOLT {

/// The settings that belong to no room, typed, with their keys and defaults. Changes go to the
/// store only: saving it is up to the caller.
class ProgramSettings
{
public:
    explicit ProgramSettings(SettingsStore& store = SettingsStore::instance())
        : m_store(store)
    {
    }

    /// "us" or "de".
    QString language() const;
    void setLanguage(const QString& locale);

    /// How the windows look.
    enum class LookChoice { Light, Dark, System };

    LookChoice look() const;
    void setLook(LookChoice look);

    int fontPixels() const;
    void setFontPixels(int pixels);

    /// The active variant of the profile; the profile may not have it.
    QString variant() const;
    void setVariant(const QString& variant);

    /// The version of the shipped profile that the user did not want in place of an edited one.
    QString refusedProfile() const;
    void setRefusedProfile(const QString& version);

    UnitSystem units() const;
    void setUnits(UnitSystem units);

    /// What is added to the clock of recordings, in minutes.
    int clockOffset() const;
    void setClockOffset(int minutes);

    /// The last opened folder; "." before the first.
    QString lastFolder() const;
    void setLastFolder(const QString& folder);

    QString lastProject() const;
    void setLastProject(const QString& path);

private:
    SettingsStore& m_store;
};

} // namespace KOLT
