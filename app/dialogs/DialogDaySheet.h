#pragma once

#include "analysis/DaySheet.h"

#include <QDialog>

#include <list>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;

namespace KOLT {

class JobQueue;
class Profile;

/// The flights of the loaded data or of the whole folder as a table with daily sums, to be printed
/// or saved.
///
/// Reads the files into a data set of its own, so that the pages keep theirs. Reading is a job of
/// the main window's queue, with progress; "Cancel" or closing the window ends it. The profile and
/// the queue must outlive the window.
class DialogDaySheet : public QDialog
{
    Q_OBJECT

public:
    /// The data to choose from.
    struct Source
    {
        QString folder;
        QString loadedName; ///< empty when nothing of the folder is loaded
        std::list<QString> loadedFiles;
    };

    DialogDaySheet(const Profile& profile, JobQueue& jobs, QWidget* parent = nullptr);

    /// Shows the window with the sheet of the loaded data, or of the folder when nothing is loaded.
    void open(const Source& source);

    const DaySheet& sheet() const { return m_sheet; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    enum Scope { Loaded, WholeFolder };

    void createButtons();
    void request();
    void work(Scope scope);
    void showSheet();
    void setWorking(bool isWorking);
    QString title() const;
    QString remark() const;
    QString html() const;
    QString proposedName(const QString& suffix) const;
    void print();
    void savePdf();
    void saveCsv();

    const Profile& m_profile;
    JobQueue& m_jobs;
    Source m_source;
    DaySheet m_sheet{{}};
    QStringList m_unreadFiles;
    bool m_isWorking = false;
    bool m_isCancelled = false;
    QComboBox* m_scope = nullptr;
    QTableWidget* m_table = nullptr;
    QLabel* m_state = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_print = nullptr;
    QPushButton* m_pdf = nullptr;
    QPushButton* m_csv = nullptr;
};

} // namespace KOLT
