#pragma once

#include <QString>

#include <set>

namespace KOLT {

class Profile;

/// The parameters that the user selected, in all variants of the profile. A project file holds
/// those of one variant only, as it is written from the profile's flags; the others are kept here
/// and selected again when their variant is loaded.
class WantedParameters
{
public:
    /// The profile must outlive this.
    explicit WantedParameters(Profile& profile)
        : m_profile(profile)
    {
    }

    /// Updates the names from the selected flags of the profile's parameters.
    void remember();
    /// Selects the wanted parameters in the profile.
    void apply() const;

    /// Adds a full name, or a plain name that stands for that parameter of every device.
    void add(const QString& name) { m_names.insert(name); }

    void clear() { m_names.clear(); }

    /// Adds the names in a file; a missing or unreadable file adds none.
    void load(const QString& path);
    /// Writes the names that the loaded variant does not have. False on failure.
    bool save(const QString& path) const;

private:
    Profile& m_profile;
    std::set<QString> m_names;
};

} // namespace KOLT
