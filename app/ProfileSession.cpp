#include "app/ProfileSession.h"

#include "app/SettingsSaver.h"
#include "app/dialogs/InstallProfile.h"
#include "app/settings/DataPaths.h"
#include "app/settings/ProgramSettings.h"
#include "ui/Messages.h"

#include <QCoreApplication>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>

namespace KOLT {

namespace {

struct ProfileSessionText
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProfileSession)
};

} // namespace

void ProfileSession::load()
{
    const QString path = InstalledProfile::path();
    const ProgramSettings settings;
    m_profile.loadVariants(path);
    m_isLoaded = m_profile.loadProfil(path, m_profile.variantOrFirst(settings.variant()));
    m_profile.setUnitSystem(settings.units());
}

bool ProfileSession::tellFailure() const
{
    if (m_isLoaded)
        return false;
    const QString text =
        ProfileSessionText::tr("The profile file\n%1\ncannot be read, so no values can be shown.")
            .arg(InstalledProfile::path());
    const QString shipped = DataPaths::shippedProfileFile();
    if (!QFile::exists(shipped)) {
        Messages::warn(&m_window, text + QLatin1Char('\n') +
                                      ProfileSessionText::tr("Please install a valid one with "
                                                             "\"Profile\" in the menu \"Help\"."));
        return false;
    }
    QMessageBox box(QMessageBox::Warning, ProfileSessionText::tr("KOLT Warning"),
                    text + QLatin1Char('\n') +
                        ProfileSessionText::tr("The profile that came with the program can be used "
                                               "instead; the broken file is kept as a backup."),
                    QMessageBox::Cancel, &m_window);
    const QPushButton* const use =
        box.addButton(ProfileSessionText::tr("Use the shipped profile"), QMessageBox::AcceptRole);
    box.button(QMessageBox::Cancel)->setText(ProfileSessionText::tr("Cancel"));
    box.exec();
    return box.clickedButton() == use &&
           installProfileSilently(&m_window, shipped) == InstalledProfile::Result::Installed;
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
