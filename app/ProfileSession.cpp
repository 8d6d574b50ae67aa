#include "app/ProfileSession.h"

#include "app/SettingsSaver.h"
#include "app/settings/InstalledProfile.h"
#include "app/settings/ProgramSettings.h"
#include "ui/Messages.h"

#include <QCoreApplication>

namespace KOLT {

void ProfileSession::load()
{
    const QString path = InstalledProfile::path();
    const ProgramSettings settings;
    m_profile.loadVariants(path);
    m_isLoaded = m_profile.loadProfil(path, m_profile.variantOrFirst(settings.variant()));
    m_profile.setUnitSystem(settings.units());
}

void ProfileSession::tellFailure() const
{
    if (!m_isLoaded)
        Messages::warn(&m_window,
                       QCoreApplication::translate(
                           "KOLT::ProfileSession",
                           "The profile file\n%1\ncannot be read, so no values can be shown. "
                           "Please install a valid one with \"Profile\" in the menu \"Help\".")
                           .arg(InstalledProfile::path()));
}

void ProfileSession::chooseVariant(const QString& variant)
{
    ProgramSettings().setVariant(variant);
    saveSettings(&m_window);
}

void ProfileSession::chooseUnits(UnitSystem units)
{
    ProgramSettings().setUnits(units);
    saveSettings(&m_window);
    m_profile.setUnitSystem(units);
}

} // namespace KOLT
