#include "app/ProjectSession.h"

#include "app/SettingsSaver.h"
#include "app/project/Project.h"
#include "app/settings/DataPaths.h"
#include "app/settings/ProgramSettings.h"
#include "base/SafeFile.h"
#include "base/XmlFile.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QDomDocument>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include <set>

namespace KOLT {

namespace {

constexpr int pauseMilliseconds = 1000;
const QLatin1String projectRoot("KoltProject");

/// Name of the root element; null for a file that cannot be read.
QString rootOf(const QString& path)
{
    QDomDocument document;
    readXmlFile(path, document);
    return document.documentElement().tagName();
}

} // namespace

ProjectSession::ProjectSession(Profile& profile, QWidget& window)
    : QObject(&window)
    , m_profile(profile)
    , m_window(window)
    , m_wanted(profile)
    , m_path(defaultPath())
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(pauseMilliseconds);
    m_timer.callOnTimeout(this, [this] { saveDefault(); });
    Project::instance().setProfile(&m_profile);
    ProgramSettings().setLastProject(m_path);
}

QString ProjectSession::defaultPath()
{
    return QFile::decodeName(DataPaths::instance().dataPath()) +
           QStringLiteral("/CurrentProject.xml");
}

QString ProjectSession::otherVariantsPath()
{
    return QFile::decodeName(DataPaths::instance().dataPath()) +
           QStringLiteral("/OtherVariants.xml");
}

void ProjectSession::storePath(const QString& path)
{
    ProgramSettings().setLastProject(path);
    saveSettings(&m_window);
    emit signalPathStored();
}

void ProjectSession::setState(const QString& path, bool isModified)
{
    m_path = path;
    m_isModified = isModified;
    emit signalStateChanged();
}

void ProjectSession::setModified()
{
    setState(m_path, true);
    setStale();
}

void ProjectSession::setStale()
{
    m_wanted.remember();
    m_isStale = true;
    m_timer.start();
}

void ProjectSession::restoreSelection()
{
    m_wanted.apply();
}

/// Takes over the names in the file that was read, including those of other variants.
void ProjectSession::takeNames()
{
    m_wanted.clear();
    for (const auto& [name, number] : Project::instance().names())
        m_wanted.add(QString::fromUtf8(name));
    m_wanted.remember();
}

void ProjectSession::readLast()
{
    const QString path = ProgramSettings().lastProject();
    if (!QFile::exists(path)) {
        Project::instance().clear();
        selectDefaultParameters(m_profile);
    } else if (Project::instance().read(path) != 0) {
        setState(path, m_isModified);
    } else {
        replaceUnreadable(path);
    }
    takeNames();
    m_wanted.load(otherVariantsPath());
    m_wanted.apply();
    emit signalSelectionChanged();
}

void ProjectSession::replaceUnreadable(const QString& path)
{
    selectDefaultParameters(m_profile);
    const QString aside = moveAside(path);
    if (!aside.isEmpty())
        Messages::warn(&m_window, tr("The project file\n%1\ncannot be read. It is kept as\n%2\nand "
                                     "some default parameters are selected instead.")
                                      .arg(path, aside));
}

bool ProjectSession::mayDrop()
{
    if (!m_isModified)
        return true;
    QMessageBox box(QMessageBox::Warning, tr("KOLT Warning"),
                    tr("Current Project not saved !\nSave it now ?"),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, &m_window);
    box.button(QMessageBox::Yes)->setText(tr("Yes"));
    box.button(QMessageBox::No)->setText(tr("No"));
    box.button(QMessageBox::Cancel)->setText(tr("Cancel"));
    switch (box.exec()) {
    case QMessageBox::Yes:
        return save();
    case QMessageBox::No:
        return true;
    default:
        return false;
    }
}

void ProjectSession::newProject()
{
    if (!mayDrop())
        return;
    setState({}, false);
    Project::instance().clear();
    m_wanted.clear();
    setStale();
    emit signalSelectionChanged();
}

void ProjectSession::open()
{
    if (!mayDrop())
        return;
    const QString path =
        QFileDialog::getOpenFileName(&m_window, tr("Open KOLT Project"),
                                     ProgramSettings().lastProject(), tr("Project Files (*.xml)"));
    if (!path.isEmpty())
        take(path);
}

void ProjectSession::openFile(const QString& path)
{
    if (mayDrop())
        take(path);
}

bool ProjectSession::isProject(const QString& path)
{
    return rootOf(path) == projectRoot;
}

void ProjectSession::take(const QString& path)
{
    // Checked first: reading drops the current content.
    const QString root = rootOf(path);
    if (!root.isEmpty() && root != projectRoot) {
        Messages::warn(
            &m_window,
            tr("The file\n%1\nis not a KOLT project. The selected parameters are unchanged.")
                .arg(path));
        return;
    }
    if (root.isEmpty() || Project::instance().read(path) == 0) {
        Messages::warn(
            &m_window,
            tr("The project file\n%1\ncannot be read. The selected parameters are unchanged.")
                .arg(path));
        return;
    }
    setState(path, false);
    takeNames();
    setStale();
    storePath(path);
    emit signalSelectionChanged();
}

bool ProjectSession::save()
{
    return m_path.isEmpty() ? saveAs() : write(m_path);
}

bool ProjectSession::saveAs()
{
    QString path =
        askForSavePath(&m_window, tr("Save KOLT Project"), ProgramSettings().lastProject(),
                       tr("Project Files (*.xml)"), QStringLiteral("xml"));
    if (path.isEmpty())
        return false;
    if (!path.section(QLatin1Char('/'), -1).contains(QLatin1Char('.')))
        path += QStringLiteral(".xml"); // native dialogs may not append the suffix
    return write(path);
}

bool ProjectSession::write(const QString& path)
{
    if (m_profile.parameters().empty()) {
        Messages::warn(&m_window, tr("Without a profile there is no selection, so the project is "
                                     "not saved. Please install a valid profile first."));
        return false;
    }
    Project::instance().write(path);
    const WriteResult& result = Project::instance().lastWrite();
    if (result.status == WriteResult::Status::Refused) {
        Messages::warn(&m_window, result.error);
        return false;
    }
    if (!result) {
        Messages::warn(&m_window, tr("The project could not be saved to\n%1\nPlease check that the "
                                     "folder can be written and is not full, or save it elsewhere.")
                                      .arg(path));
        return false;
    }
    setState(path, false);
    storePath(path);
    emit signalSaved(path);
    return true;
}

void ProjectSession::saveDefault()
{
    m_timer.stop();
    if (!m_isStale || m_profile.parameters().empty())
        return; // nothing can be selected without a profile
    Project::instance().write(defaultPath());
    m_isStale = !Project::instance().lastWrite() || !m_wanted.save(otherVariantsPath());
    if (m_isStale)
        tellNotSaved(defaultPath());
}

void ProjectSession::saveOnExit()
{
    const bool isElsewhere = !m_path.isEmpty() && m_path != defaultPath();
    saveDefault();
    if (m_isModified && isElsewhere && !m_profile.parameters().empty()) {
        Project::instance().write(m_path);
        if (!Project::instance().lastWrite())
            tellNotSaved(m_path);
    }
    m_isModified = false;
}

void ProjectSession::tellNotSaved(const QString& path)
{
    Messages::warn(&m_window, tr("The selected parameters could not be saved to\n%1\nThe folder "
                                 "cannot be written, or is full.")
                                  .arg(path));
}

void selectDefaultParameters(Profile& profile)
{
    constexpr std::size_t firstOnes = 6;
    std::set<const ProfileParameter*> chosen;
    for (const Role role : {Role::EngineSpeed, Role::ThrottleA, Role::FuelA, Role::Altitude,
                            Role::GroundSpeed, Role::Track}) {
        const ProfileParameter* const parameter = profile.parameterByRole(role);
        if (parameter != nullptr)
            chosen.insert(parameter);
    }
    for (const ProfileParameter& parameter : profile.parameters()) {
        if (chosen.size() >= firstOnes)
            break;
        if (parameter.rule != DecodingRule::NotImplemented)
            chosen.insert(&parameter);
    }
    profile.select([&](const ProfileParameter& parameter) { return chosen.contains(&parameter); });
}

} // namespace KOLT
