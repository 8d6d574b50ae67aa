#pragma once

class QToolBar;

namespace KOLT {

class Profile;
class Selector;

/// The selectors of variant and units in the tool bar.
class ProfileSelectors
{
public:
    explicit ProfileSelectors(QToolBar& toolBar);

    /// Offers the profile's variants, and shows the active one and the units.
    void refresh(const Profile& profile);

    Selector* variant() const { return m_variant; }

    /// The index is the number of the UnitSystem.
    Selector* units() const { return m_units; }

private:
    Selector* m_variant;
    Selector* m_units;
};

} // namespace KOLT
