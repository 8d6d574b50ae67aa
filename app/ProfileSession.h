#pragma once

#include "profile/Profile.h"

class QWidget;

namespace KOLT {

/// The installed profile, with the variant and the units in the settings. Failures are reported in
/// message boxes with `window` as their parent, which must outlive the session.
class ProfileSession
{
public:
    explicit ProfileSession(QWidget& window)
        : m_window(window)
    {
    }

    Profile& profile() { return m_profile; }

    const Profile& profile() const { return m_profile; }

    /// Loads the installed file. Pointers into the profile must be dropped before.
    void load();

    /// Warns the user if the profile could not be loaded, and offers the one that came with the
    /// program. True if it was installed, and has to be loaded.
    bool tellFailure() const;

    /// Stores the variant; it is used by the next load().
    void chooseVariant(const QString& variant);

    /// Stores the units and applies them.
    void chooseUnits(UnitSystem units);

private:
    QWidget& m_window;
    Profile m_profile;
    bool m_isLoaded = false;
};

} // namespace KOLT
