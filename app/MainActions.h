#pragma once

#include <QAction>

#include <map>

class QActionGroup;
class QMainWindow;
class QMenu;

namespace KOLT {

/// The commands of the main window; an action carries its number as its data.
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
    ExportGpx = 21
};

/// Creates the actions of all commands and places them. All of them belong to the window, so that
/// the shortcuts of those without a menu work too.
class MainActions : public QObject
{
    Q_OBJECT

public:
    explicit MainActions(QMainWindow& window);

    QAction* operator[](Command command) const { return m_actions.at(command); }

    /// Fills the menu bar: "&File", "&Extras", "&Help".
    void createMenus();

    /// The folders offered in "&File", newest first; each action carries its folder as its data.
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
    QAction* m_recentEnd = nullptr; ///< the recent folders stand before it
};

} // namespace KOLT
