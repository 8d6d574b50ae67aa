#pragma once

#include "app/CardChoice.h"
#include "export/ExportName.h"
#include "record/CardContainer.h"

#include <QObject>

class QWidget;

namespace KOLT {

class JobQueue;
class Profile;
class ProgressDisplay;

/// The open card: opens folders, loads what the user chooses from them, and knows what is loaded.
///
/// Opening and loading are jobs of the queue, with progress; of several waiting choices only the
/// latest is loaded. Failures are reported in message boxes with `window` as their parent. The
/// arguments must outlive the session.
class CardSession : public QObject
{
    Q_OBJECT

public:
    CardSession(const Profile& profile, JobQueue& jobs, ProgressDisplay& progress, QWidget& window);

    CardContainer& container() { return m_card; }

    const CardContainer& container() const { return m_card; }

    const DataSet* dataSet() const { return m_card.dataSet(); }

    /// Opens a folder chosen by the user. The data of the previous one stay loaded.
    void open(const QString& folder);
    /// Opens the folder of the first path, and loads those of the paths that are files in it.
    void openDropped(const QStringList& paths);
    /// Opens a folder at once, from within a job. False when it cannot be opened.
    bool list(const QString& folder);

    void load(const CardChoice& choice);

    /// Determines flights and track again after the profile was reloaded. A single flight is loaded
    /// again if its files are still there, as flights are found in whole cycles.
    void reanalyse();

    /// Moves all dates and clock times, of what is listed and loaded. From within a job, or before
    /// there are any.
    void setClockOffset(int minutes);

    /// What is loaded from the open folder; none when the data are from a previous folder.
    CardChoice loaded() const { return m_isOfFolder ? m_loaded : CardChoice(); }

    QString nameOf(const CardChoice& choice) const;
    std::list<QString> filesOf(const CardChoice& choice) const;

    /// The origin of the loaded data, for exports.
    ExportSubject subject() const;

signals:
    /// The container lists another folder, or the same one again.
    void signalListed();
    /// The user opened this folder.
    void signalOpened(const QString& folder);
    /// The data set is about to be replaced: pointers into it must be dropped.
    void signalLoading(const QString& name);
    /// The flights of a cycle were found.
    void signalFlights(unsigned int cycle);
    /// Loading has ended; dataSet() is null if nothing was ever loaded. Not complete: some files
    /// could not be read, or the choice was not found.
    void signalLoaded(bool isComplete);
    /// No file of a choice can be read: loaded() is unchanged.
    void signalRefused();
    /// The data set was changed by reanalyse() or setClockOffset().
    void signalReanalysed();
    /// For the status bar.
    void signalMessage(const QString& message);

private:
    bool canLoad(const CardChoice& choice) const;
    void loadNow(const CardChoice& choice);
    bool read(const CardChoice& choice);
    void loadDropped(const QStringList& paths);
    void tellRefused(const CardChoice& choice);
    void tellUnreadFiles();

    CardContainer m_card;
    JobQueue& m_jobs;
    ProgressDisplay& m_progress;
    QWidget& m_window;
    CardChoice m_loaded;
    bool m_isOfFolder = false; ///< m_loaded is from the open folder
};

/// The loaded data in words: name, number of files and samples, times on the counter.
QString describeData(const CardSession& card);

} // namespace KOLT
