#pragma once

#include "analysis/DaySheet.h"
#include "app/dialogs/SheetReader.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTableWidget;

namespace KOLT {

class ColumnMemory;
class JobQueue;
class Profile;
class SettingsStore;

/// The flights of a day, of the loaded data or of the whole folder as a table with daily sums, to
/// be printed or saved.
///
/// Reads the files into a data set of its own, so that the pages keep theirs. Reading is a job of
/// the main window's queue, with progress; "Cancel" or closing the window ends it. The profile,
/// the settings and the queue must outlive the window.
class DialogDaySheet : public QDialog
{
    Q_OBJECT

public:
    DialogDaySheet(const Profile& profile, const SettingsStore& settings, JobQueue& jobs,
                   QWidget* parent = nullptr);

    /// Shows the window with the sheet of the loaded data's day, or of the newest when nothing is
    /// loaded.
    void open(const SheetSource& source);

    const DaySheet& sheet() const { return m_sheet; }

signals:
    /// For the main window's status bar.
    void signalMessage(const QString& message);
    /// A row was double-clicked or confirmed with Return: a flight by its index in the cycle, or -1
    /// for the whole cycle.
    void signalOpen(const QString& folder, int cycle, int flight);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void createTable();
    void createButtons();
    void request();
    void work(const SheetChoice& choice);
    void showSheet();
    void fillTable();
    void fillRow(int index, const std::vector<DaySheet::Column>& columns);
    void setWorking(bool isWorking);
    void openRow(int index);
    DaySheet::Head head() const;
    QString remark() const;
    QString html() const;
    QString proposedName(const QString& suffix) const;
    void print();
    void savePdf();
    void saveCsv();
    void save(const QString& path, const QByteArray& content);

    const Profile& m_profile;
    const SettingsStore& m_settings;
    JobQueue& m_jobs;
    SheetSource m_source;
    std::vector<SheetChoice> m_choices; ///< by index in m_scope
    DaySheet m_sheet;
    QStringList m_unreadFiles;
    bool m_isWorking = false;
    bool m_isCancelled = false;
    QComboBox* m_scope = nullptr;
    QLabel* m_head = nullptr;
    QTableWidget* m_table = nullptr;
    ColumnMemory* m_widths = nullptr;
    QPlainTextEdit* m_notes = nullptr;
    QLabel* m_state = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_print = nullptr;
    QPushButton* m_pdf = nullptr;
    QPushButton* m_csv = nullptr;
};

} // namespace KOLT
