#include "app/settings/ProgramSettings.h"

namespace KOLT {

namespace {

constexpr int defaultFontPixels = 12;
constexpr int imperial = 1; ///< as stored; everything else is metric

} // namespace

QString ProgramSettings::language() const
{
    return QString::fromUtf8(m_store.getText("Locale", "us"));
}

void ProgramSettings::setLanguage(const QString& locale)
{
    m_store.setText("Locale", locale.toUtf8());
}

int ProgramSettings::fontPixels() const
{
    return m_store.getInteger("FontSize", defaultFontPixels);
}

void ProgramSettings::setFontPixels(int pixels)
{
    m_store.setInteger("FontSize", pixels);
}

QString ProgramSettings::variant() const
{
    return QString::fromUtf8(m_store.getText("Profile", "915"));
}

void ProgramSettings::setVariant(const QString& variant)
{
    m_store.setText("Profile", variant.toUtf8());
}

UnitSystem ProgramSettings::units() const
{
    return m_store.getInteger("Unit", 0) == imperial ? UnitSystem::Imperial : UnitSystem::Metric;
}

void ProgramSettings::setUnits(UnitSystem units)
{
    m_store.setInteger("Unit", units == UnitSystem::Imperial ? imperial : 0);
}

QString ProgramSettings::lastFolder() const
{
    return QString::fromUtf8(m_store.getText("LastPath", "."));
}

void ProgramSettings::setLastFolder(const QString& folder)
{
    m_store.setText("LastPath", folder.toUtf8());
}

QString ProgramSettings::lastProject() const
{
    return QString::fromUtf8(m_store.getText("LastProjectPath"));
}

void ProgramSettings::setLastProject(const QString& path)
{
    m_store.setText("LastProjectPath", path.toUtf8());
}

} // namespace KOLT
