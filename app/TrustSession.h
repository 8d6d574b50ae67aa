#pragma once

#include "analysis/Findings.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <optional>

class QWidget;

namespace KOLT {

class CardFiles;
class CardSession;
class DialogCard;
class DialogData;
class DialogRecording;
class JobQueue;

/// How far the open card and the loaded data can be believed, shown in the card lists, the data
/// window and the window "Recording".
///
/// What the files tell is shown as soon as a folder is listed, the rest of a cycle once it was
/// loaded, or read for the overview. Both are jobs that run after what the user waits for. The
/// arguments must outlive the session; `window` is the parent of the window.
class TrustSession : public QObject
{
    Q_OBJECT

public:
    TrustSession(const Profile& profile, CardSession& card, JobQueue& jobs, DialogCard& lists,
                 DialogData& data, QWidget& window);
    ~TrustSession() override;

    /// Shows what is found in the loaded data: all (-1), and one selected.
    void show(int finding = -1);

    /// Takes what was found in a cycle of the open card.
    void noteCycle(int cycle, const RecordingTrust& trust);

    /// To be called after the profile was loaded again.
    void refresh();

    /// Of the loaded data, found now if it was not yet; null without data.
    TrustList trust();

private:
    void lookAtFiles();
    void lookAtData();
    void startLoading();
    void endLoading();
    void showCycle(int cycle, const std::function<bool(const TrustFinding&)>& isWanted);
    void showFile(const QString& name);
    void showLoaded();
    void raise();
    void goTo(double seconds);
    std::shared_ptr<const CardFiles> files();

    const Profile& m_profile;
    CardSession& m_card;
    JobQueue& m_jobs;
    DialogCard& m_lists;
    DialogData& m_data;
    DialogRecording* m_dialog;
    QTimer m_fileTimer;
    QTimer m_dataTimer;
    std::shared_ptr<const CardFiles> m_files;     ///< of the open folder; null: not looked at yet
    std::shared_ptr<const CardFiles> m_dataFiles; ///< of the folder of the loaded data
    std::map<int, std::vector<TrustFinding>> m_known; ///< by cycle of the open folder
    std::optional<int> m_shownCycle; ///< that the window shows; none: the loaded data
};

} // namespace KOLT
