#include "cli/Recording.h"

#include "app/settings/DataPaths.h"
#include "app/settings/ProgramSettings.h"
#include "cli/Verbs.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace KOLT::Cli {

namespace {

/// The profile in the user's data path, otherwise the one shipped with the program.
QString installedProfile()
{
    const QString installed = DataPaths::instance().profileFile();
    return QFile::exists(installed) ? installed : DataPaths::shippedProfileFile();
}

QString variantNames(const Profile& profile)
{
    QStringList names;
    for (const Variant& variant : profile.variants())
        names << variant.name;
    return names.join(QStringLiteral(", "));
}

} // namespace

SettingsStore& installedSettings()
{
    SettingsStore& settings = SettingsStore::instance();
    const QByteArray file = DataPaths::instance().settingsFile();
    if (settings.fileName().isEmpty() && QFile::exists(QFile::decodeName(file))) {
        settings.setFileName(file);
        settings.load();
    }
    return settings;
}

QString Recording::openProfile()
{
    const QString path = m_arguments.profile.isEmpty() ? installedProfile() : m_arguments.profile;
    const bool isRead = m_profile.loadVariants(path);
    const QString variant = m_arguments.variant.value_or(
        m_profile.variantOrFirst(ProgramSettings(installedSettings()).variant()));
    // An empty variant takes the elements of all variants.
    if (m_arguments.variant && !variant.isEmpty() && !m_profile.hasVariant(variant))
        return QStringLiteral("the profile %1 has no variant \"%2\"; it has %3")
            .arg(path, variant, variantNames(m_profile));
    if (!isRead || !m_profile.loadProfil(path, variant))
        return QStringLiteral("%1 cannot be read or is not a KOLT profile").arg(path);
    m_profile.setUnitSystem(m_arguments.units.value_or(UnitSystem::Metric));
    return {};
}

QString Recording::openFolder()
{
    m_card.setClockOffset(m_arguments.clockOffset.value_or(
        m_arguments.verb->usesClockOfSettings() ? ProgramSettings(installedSettings()).clockOffset()
                                                : 0));
    if (!m_card.readContainer(m_arguments.folder))
        return QStringLiteral("there is no folder %1").arg(m_arguments.folder);
    if (!QFileInfo(m_arguments.folder).isReadable())
        return QStringLiteral("the folder %1 cannot be read").arg(m_arguments.folder);
    return {};
}

QString Recording::load()
{
    if (m_arguments.flight) {
        const auto index = static_cast<std::size_t>(*m_arguments.flight) - 1;
        if (!m_card.loadFlight(*m_arguments.cycle, index))
            return QStringLiteral("there is no flight %1 of cycle %2 in %3")
                .arg(*m_arguments.flight)
                .arg(*m_arguments.cycle)
                .arg(m_arguments.folder);
        return {};
    }
    if (m_arguments.cycle) {
        if (!m_card.loadCycle(*m_arguments.cycle))
            return QStringLiteral("there is no cycle %1 in %2")
                .arg(*m_arguments.cycle)
                .arg(m_arguments.folder);
        return {};
    }
    std::list<QString> paths;
    for (const QString& name : *m_arguments.files)
        paths.push_back(QStringLiteral("%1/%2").arg(m_arguments.folder, name));
    m_card.loadFiles(paths);
    return {};
}

QString Recording::openAndLoad()
{
    QString error = openProfile();
    if (error.isEmpty())
        error = openFolder();
    return error.isEmpty() ? load() : error;
}

QString unreadError(const std::vector<QString>& names)
{
    if (names.empty())
        return {};
    return QStringLiteral("incomplete: %1 could not be read")
        .arg(QStringList(names.begin(), names.end()).join(QStringLiteral(", ")));
}

bool writeOutput(const QByteArray& bytes)
{
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout) ==
           static_cast<std::size_t>(bytes.size());
}

QString finishOutput()
{
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        return QStringLiteral("the output could not be written");
    return {};
}

} // namespace KOLT::Cli
