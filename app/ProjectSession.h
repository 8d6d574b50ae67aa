#pragma once

#include "app/WantedParameters.h"
#include "profile/Profile.h"

#include <QObject>
#include <QTimer>

class QWidget;

namespace KOLT {

/// The current project: its file, whether it has unsaved changes, and the commands on it.
///
/// The selected parameters are flags in the profile; Project reads and writes the file. Failures
/// are reported in message boxes with `window` as their parent.
class ProjectSession : public QObject
{
    Q_OBJECT

public:
    /// Starts with the default project, "CurrentProject.xml" in the data path, without reading it.
    /// Both arguments must outlive the session.
    ProjectSession(Profile& profile, QWidget& window);

    /// Empty for a new project without a file.
    const QString& path() const { return m_path; }

    bool isModified() const { return m_isModified; }

    /// The user changed the selection.
    void setModified();

    /// Call after the profile was reloaded: selects again what was selected before, including
    /// parameters that were selected the last time this variant was in use.
    void restoreSelection();

    /// Reads the last project; selectDefaultParameters() where there is none yet.
    void readLast();

    /// Ask first when there are unsaved changes.
    void newProject();
    void open();
    void openFile(const QString& path);

    /// Whether a file can be read and its root element is that of a project.
    static bool isProject(const QString& path);

    /// False when the user cancelled or saving failed.
    bool save();
    bool saveAs();

    /// Saves unsaved changes without asking, for the end of the program. Also writes the default
    /// project, which the next start opens and which is otherwise written a second after each
    /// change.
    void saveOnExit();

signals:
    /// The selection was replaced.
    void signalSelectionChanged();
    void signalPathStored();
    /// Another file, or other unsaved changes.
    void signalStateChanged();
    /// On the user's command.
    void signalSaved(const QString& path);

private:
    bool mayDrop();
    void setState(const QString& path, bool isModified);
    bool write(const QString& path);
    void replaceUnreadable(const QString& path);
    void take(const QString& path);
    void storePath(const QString& path);
    void setStale();
    void takeNames();
    void saveDefault();
    void tellNotSaved(const QString& path);
    static QString defaultPath();
    static QString otherVariantsPath();

    Profile& m_profile;
    QWidget& m_window;
    WantedParameters m_wanted;
    QString m_path;
    bool m_isModified = false;
    bool m_isStale = false; ///< the default project's file lacks the latest selection
    QTimer m_timer;
};

/// Selects parameters for a first start: engine speed, throttle, fuel, altitude, ground speed and
/// track by their roles, filled up to six with the first parameters of the profile.
void selectDefaultParameters(Profile& profile);

} // namespace KOLT
