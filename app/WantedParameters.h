#pragma once

#include <QString>

#include <set>

namespace KOLT {

class Profile;

/// The parameters that the user selected in any variant of the profile. A project file has those of
/// one variant only, as it is written from the profile's flags; what others have is kept here, and
/// is selected again with its variant.
class WantedParameters
{
public:
    /// The profile must outlive this.
    explicit WantedParameters(Profile& profile)
        : m_profile(profile)
    {
    }

    /// Takes over what is selected now, of the parameters that the profile has.
    void remember();
    /// Selects what is wanted.
    void apply() const;

    /// Wants a parameter by its full name, or by its name on every device.
    void add(const QString& name) { m_names.insert(name); }

    void clear() { m_names.clear(); }

    /// Reads names from a file on top of what is there; the file may be missing.
    void load(const QString& path);
    /// Writes what the profile does not have just now; false when that failed.
    bool save(const QString& path) const;

private:
    Profile& m_profile;
    std::set<QString> m_names;
};

} // namespace KOLT
