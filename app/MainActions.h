#pragma once

#include <QAction>

#include <map>

class QActionGroup;
class QMainWindow;
class QMenu;

namespace KOLT {

/// The commands of the main window. An action carries the command's number as its data.
enum class Command {
    NewProject = 0,
    OpenProject = 1,
    OpenDataFolder = 2,
    SaveProject = 4,
    SaveProjectAs = 5,
    Quit = 6,
    About = 8,
    ProfileInfo = 9,
    Help = 10,
    Preferences = 15,
    ExportKml = 17,
    ExportCsv = 18,
    DaySheet = 20,
    ExportGpx = 21,
    Recording = 22,
    EngineReport = 23,
    ImportCard = 24,
    Engine = 25,
    Notes = 26
};

/// Creates the actions of all commands and the menus. All actions are added to the window, so that
/// shortcuts also work for actions without a menu entry.
class MainActions : public QObject
{
    Q_OBJECT

public:
    explicit MainActions(QMainWindow& window);

    QAction* operator[](Command command) const { return m_actions.at(command); }

    /// Creates the menus "&File", "&Extras" and "&Help".
    void createMenus();

    /// Exports need loaded data.
    void setExportsEnabled(bool isEnabled);

    /// Lists these folders in "&File", newest first. Each action carries its folder as its data.
    void setRecentFolders(const QStringList& folders);

signals:
    void signalCommand(QAction* action);
    void signalRecent(QAction* action);
    void signalExtrasAboutToShow();

private:
    void create(Command command, const QString& text, const QKeySequence& shortcut,
                const QString& tip, const QString& statusTip = {});

    QMainWindow& m_window;
    QActionGroup* m_commands;
    QActionGroup* m_recent;
    std::map<Command, QAction*> m_actions;
    QMenu* m_fileMenu = nullptr;
    QAction* m_recentEnd = nullptr; ///< the recent folders are inserted before it
};

} // namespace KOLT
