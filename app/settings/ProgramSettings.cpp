#include "app/settings/ProgramSettings.h"

#include <algorithm>
#include <iterator>

namespace KOLT {

namespace {

constexpr int defaultFontPixels = 12;
constexpr int largestClockOffset = 14 * 60; ///< minutes
constexpr int imperial = 1;                 ///< as stored; everything else is metric
constexpr const char* lookNames[] = {"light", "dark", "system"}; ///< in the order of LookChoice

} // namespace

QString ProgramSettings::language() const
{
    return QString::fromUtf8(m_store.getText("Locale", "us"));
}

void ProgramSettings::setLanguage(const QString& locale)
{
    m_store.setText("Locale", locale.toUtf8());
}

ProgramSettings::LookChoice ProgramSettings::look() const
{
    const QByteArray name = m_store.getText("Look");
    const auto* const found =
        std::ranges::find_if(lookNames, [&](const char* known) { return name == known; });
    return found != std::end(lookNames) ? static_cast<LookChoice>(found - lookNames)
                                        : LookChoice::Light;
}

void ProgramSettings::setLook(LookChoice look)
{
    m_store.setText("Look", lookNames[static_cast<int>(look)]);
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

QString ProgramSettings::refusedProfile() const
{
    return QString::fromUtf8(m_store.getText("ProfileRefused"));
}

void ProgramSettings::setRefusedProfile(const QString& version)
{
    m_store.setText("ProfileRefused", version.toUtf8());
}

UnitSystem ProgramSettings::units() const
{
    return m_store.getInteger("Unit", 0) == imperial ? UnitSystem::Imperial : UnitSystem::Metric;
}

void ProgramSettings::setUnits(UnitSystem units)
{
    m_store.setInteger("Unit", units == UnitSystem::Imperial ? imperial : 0);
}

int ProgramSettings::clockOffset() const
{
    return std::clamp(m_store.getInteger("ClockOffset", 0), -largestClockOffset,
                      largestClockOffset);
}

void ProgramSettings::setClockOffset(int minutes)
{
    m_store.setInteger("ClockOffset", minutes);
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
