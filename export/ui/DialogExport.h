#pragma once

#include "export/ExportProgress.h"
#include "record/DataSet.h"

#include <QDialog>
#include <QElapsedTimer>

class QIODevice;
class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace KOLT {

/// What all exports of the window have in common: below the options of a format a line that says
/// what will be written, "Export...", which asks for the file, and while it is written progress and
/// a cancel button. The dialog is accepted once the file is there; after a failure, which a box
/// tells, and after a cancelled export it stays open.
///
/// While a file is written, events are handled: the data set and the profile must stay as they are
/// until the dialog has closed.
class DialogExport : public QDialog
{
    Q_OBJECT

public:
    /// What is exported, and how that is called.
    struct Source
    {
        const DataSet& dataSet;
        QString title;    ///< what the documents are called
        QString fileName; ///< proposed
        QString folder;   ///< offered first
    };

    /// Where the file went; empty before it is there.
    const QString& exportedPath() const { return m_exportedPath; }

    void reject() override;

signals:
    /// The user chose a file in this folder; it is about to be written with the options of now.
    void signalChosen(const QString& folder);

protected:
    struct Format
    {
        QString windowTitle;
        QString suffix;
        QString filter; ///< of the file dialog
        QString failureTitle;
        QString failureText;
    };

    DialogExport(Source source, Format format, QWidget* parent);

    /// Where a format puts its options.
    QVBoxLayout& optionsLayout() { return *m_optionsLayout; }

    const Source& source() const { return m_source; }

    /// Says what will be written, or why nothing can be.
    void setSummary(const QString& text, bool isPossible);

    virtual ExportStatus write(QIODevice& device, const ExportProgress& progress) = 0;

    void closeEvent(QCloseEvent* event) override;

private:
    void start();
    void exportTo(const QString& path);
    bool goOn(int percent);
    void setWorking(bool isWorking);
    void tellFailure(const QString& path, const QString& error);

    const Source m_source;
    const Format m_format;
    QString m_exportedPath;
    bool m_isPossible = false;
    bool m_isWorking = false;
    bool m_isCancelled = false;
    QElapsedTimer m_sinceEvents;
    QWidget* m_options = nullptr;
    QVBoxLayout* m_optionsLayout = nullptr;
    QLabel* m_summary = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_export = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace KOLT
