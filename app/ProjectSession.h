#pragma once

#include "app/WantedParameters.h"
#include "profile/Profile.h"

#include <QObject>
#include <QTimer>

class QWidget;

namespace KOLT {

/// The project at work: its file, whether it has unsaved changes, and the commands on it.
///
/// Holds the user's selection of parameters in the profile's flags; the file is read and written by
/// Project. Failures are told to the user in boxes above `window`.
class ProjectSession : public QObject
{
    Q_OBJECT

public:
    /// Starts with the default project, "CurrentProject.xml" in the data path, not read yet. Both
    /// must outlive the session.
    ProjectSession(Profile& profile, QWidget& window);

    /// Empty for a new project that has no file yet.
    const QString& path() const { return m_path; }

    bool isModified() const { return m_isModified; }

    /// The user chose other parameters.
    void setModified();

    /// After the profile was loaded anew: selects what was selected before, and what only this
    /// variant has and was selected when it was in use before.
    void restoreSelection();

    /// Reads the last project. Where there is none yet, selects some parameters that nearly every
    /// pilot wants to see.
    void readLast();

    /// These ask first when there are unsaved changes.
    void newProject();
    void open();

    /// False when nothing was saved, because the user cancelled or it failed.
    bool save();
    bool saveAs();

    /// Saves unsaved changes without asking, at the program's end. What the next start reopens, the
    /// default project, is brought up to date a second after each change, and here.
    void saveOnExit();

signals:
    /// Other parameters are selected now.
    void signalSelectionChanged();
    void signalPathStored();

private:
    bool mayDrop();
    bool write(const QString& path);
    void replaceUnreadable(const QString& path);
    void storePath(const QString& path);
    QString lastPath() const;
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
    bool m_isStale = false; ///< the default project is not what is selected
    QTimer m_timer;
};

/// Selects the parameters for a first start: engine speed, altitude, speed, throttle and fuel by
/// their roles; the first ones of a profile without these.
void selectDefaultParameters(Profile& profile);

} // namespace KOLT
