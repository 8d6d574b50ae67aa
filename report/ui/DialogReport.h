#pragma once

#include "report/EngineReport.h"

#include <QDialog>

#include <functional>

class QComboBox;
class QLabel;
class QLayout;
class QPrinter;
class QProgressBar;
class QPushButton;

namespace KOLT {

class Profile;

/// What a report is made of, and where it is offered to be saved.
struct ReportSource
{
    QString folder;
    int clockOffset = 0; ///< minutes
    QString directory;
    /// What is known of these engines beside the folder, as sections of HTML; may be empty.
    std::function<QString(const QStringList& engines)> ledger;
};

/// Makes the engine report of a folder, shows it as on paper, and saves it as a PDF file.
///
/// Reads the files into a data set of its own, so that the pages keep theirs; "Cancel" or closing
/// the window ends that. The profile must outlive the window.
class DialogReport : public QDialog
{
    Q_OBJECT

public:
    explicit DialogReport(const Profile& profile, QWidget* parent = nullptr);

    /// Shows the window and asks for read().
    void open(const ReportSource& source);

    /// Reads the folder. Processes events meanwhile; nothing else may use the profile.
    void read();

    const EngineReport& report() const { return m_report; }

signals:
    /// read() is to be called as soon as nothing else is read.
    void signalRead();
    /// For the main window's status bar.
    void signalMessage(const QString& message);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    QLayout* createButtons();
    void setWorking(bool isWorking);
    QString summary() const;
    void setUpPage(QPrinter& printer) const;
    void preview();
    void savePdf();

    const Profile& m_profile;
    ReportSource m_source;
    EngineReport m_report;
    bool m_hasReport = false;
    bool m_isWorking = false;
    bool m_isCancelled = false;
    QLabel* m_state = nullptr;
    QComboBox* m_paper = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_preview = nullptr;
    QPushButton* m_pdf = nullptr;
};

} // namespace KOLT
