#include "app/MainActions.h"

#include "ui/PaintedIcon.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace KOLT {

namespace {

constexpr int longestPath = 60;

/// Keeps the end of a long path, which tells folders apart better than its beginning.
QString shortened(const QString& path)
{
    return path.size() <= longestPath ? path : QStringLiteral("...") + path.right(longestPath);
}

QIcon icon(const QString& name)
{
    return lookIcon(name);
}

} // namespace

MainActions::MainActions(QMainWindow& window)
    : QObject(&window)
    , m_window(window)
    , m_commands(new QActionGroup(this))
    , m_recent(new QActionGroup(this))
{
    for (QActionGroup* group : {m_commands, m_recent})
        group->setExclusive(false);
    connect(m_commands, &QActionGroup::triggered, this, &MainActions::signalCommand);
    connect(m_recent, &QActionGroup::triggered, this, &MainActions::signalRecent);
    const auto keys = [](const char* text) { return QKeySequence(QLatin1String(text)); };
    create(Command::NewProject, tr("&New Project"), keys("Ctrl+N"), tr("Create new Project"));
    create(Command::OpenProject, tr("&Open Project"), keys("Ctrl+O"), tr("Open Project"),
           tr("Open Project File"));
    create(Command::OpenDataFolder, tr("&Open Data Folder"), keys("Ctrl+C"),
           tr("Open Data Folder"));
    create(Command::SaveProject, tr("&Save Project"), keys("Ctrl+S"), tr("Save Project"),
           tr("Save Project File"));
    create(Command::SaveProjectAs, tr("&Save Project as"), {}, tr("Save Project as"),
           tr("Save Project File as"));
    create(Command::Quit, tr("&Quit"), keys("Ctrl+Q"), tr("Quit Application"));
    create(Command::About, tr("About"), {}, tr("Show License Information"));
    create(Command::ProfileInfo, tr("Profile"), {}, tr("Show Profile Information"));
    create(Command::Help, tr("Help"), keys("F1"), tr("Help Window"));
    create(Command::Preferences, tr("Preferences"), {}, tr("Open Preferences Dialog"));
    create(Command::ExportKml, tr("Export Google KML File"), {},
           tr("Export Google Earth KML File"));
    create(Command::ExportCsv, tr("Export CSV File"), {}, tr("Export CSV File"));
    create(Command::ExportGpx, tr("Export GPX File"), {},
           tr("Export the flights as tracks to a GPX file"));
    create(Command::DaySheet, tr("Day Sheet"), {}, tr("Show the flights of the day as a sheet"));
    create(Command::Recording, tr("Recording"), {}, tr("Show what is doubtful in the recording"));
    create(Command::EngineReport, tr("Engine Report..."), {},
           tr("Make one document of the card for the shop and the aircraft's papers"));
    create(Command::ImportCard, tr("Import Card..."), {},
           tr("Copy the recordings of a card into the library, with proof"));
    create(Command::Engine, tr("Engine..."), {},
           tr("Show what an engine has lived through, and what is due"));
    create(Command::Notes, tr("Notes..."), {}, tr("Show and write notes on the loaded recording"));
    const std::pair<Command, const char*> icons[] = {{Command::OpenDataFolder, "open-folder"},
                                                     {Command::ExportKml, "export-kml"},
                                                     {Command::ExportCsv, "export-csv"},
                                                     {Command::ExportGpx, "gpx-export"},
                                                     {Command::DaySheet, "day-sheet"},
                                                     {Command::Recording, "recording"},
                                                     {Command::EngineReport, "engine-report"},
                                                     {Command::ImportCard, "import-card"},
                                                     {Command::Engine, "cycle"},
                                                     {Command::Notes, "file"},
                                                     {Command::Preferences, "preferences"},
                                                     {Command::About, "about"},
                                                     {Command::ProfileInfo, "profile"},
                                                     {Command::Help, "help"}};
    for (const auto& [command, name] : icons)
        m_actions[command]->setIcon(icon(QLatin1String(name)));
}

void MainActions::create(Command command, const QString& text, const QKeySequence& shortcut,
                         const QString& tip, const QString& statusTip)
{
    auto* const action = new QAction(text, &m_window);
    action->setData(static_cast<int>(command));
    action->setShortcut(shortcut);
    action->setToolTip(tip);
    action->setStatusTip(statusTip.isEmpty() ? tip : statusTip);
    m_commands->addAction(action);
    m_window.addAction(action);
    m_actions[command] = action;
}

void MainActions::createMenus()
{
    m_fileMenu = m_window.menuBar()->addMenu(tr("&File"));
    m_fileMenu->setToolTipsVisible(true);
    m_fileMenu->addAction(m_actions[Command::OpenDataFolder]);
    m_recentEnd = m_fileMenu->addSeparator();
    m_fileMenu->addAction(m_actions[Command::Quit]);
    QMenu* const extras = m_window.menuBar()->addMenu(tr("&Extras"));
    for (const Command command :
         {Command::Preferences, Command::ExportKml, Command::ExportCsv, Command::ExportGpx,
          Command::DaySheet, Command::Recording, Command::EngineReport, Command::ImportCard,
          Command::Engine, Command::Notes})
        extras->addAction(m_actions[command]);
    connect(extras, &QMenu::aboutToShow, this, &MainActions::signalExtrasAboutToShow);
    QMenu* const help = m_window.menuBar()->addMenu(tr("&Help"));
    for (const Command command : {Command::About, Command::ProfileInfo})
        help->addAction(m_actions[command]);
}

void MainActions::setExportsEnabled(bool isEnabled)
{
    for (const Command command : {Command::ExportKml, Command::ExportCsv, Command::ExportGpx})
        m_actions[command]->setEnabled(isEnabled);
}

void MainActions::setRecentFolders(const QStringList& folders)
{
    if (m_fileMenu == nullptr)
        return;
    for (QAction* action : m_recent->actions()) {
        m_recent->removeAction(action);
        m_fileMenu->removeAction(action);
        action->deleteLater(); // it may be the one being triggered
    }
    if (folders.isEmpty())
        return;
    auto* const separator = new QAction(m_recent);
    separator->setSeparator(true);
    m_fileMenu->insertAction(m_recentEnd, separator);
    int number = 1;
    for (const QString& folder : folders) {
        QString text = shortened(folder).replace(QLatin1Char('&'), QStringLiteral("&&"));
        auto* const action = new QAction(m_recent);
        action->setText(QStringLiteral("&%1  %2").arg(number++ % 10).arg(text));
        action->setToolTip(folder);
        action->setStatusTip(tr("Open this folder again"));
        action->setData(folder);
        m_fileMenu->insertAction(m_recentEnd, action);
    }
}

} // namespace KOLT
