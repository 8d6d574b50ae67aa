#pragma once

#include "export/ExportProgress.h"
#include "record/DataSet.h"
#include "ui/EventPump.h"

#include <QDialog>

class QIODevice;
class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace KOLT {

/// Base of the export dialogs: the format's options, a summary of what will be written, and the
/// button "Export...", which asks for a file and writes it with progress and a cancel button. The
/// dialog is accepted once the file is written; after a failure (reported in a box) or cancelling
/// it stays open.
///
/// Events are processed while a file is written: data set and profile must not change until the
/// dialog has closed.
class DialogExport : public QDialog
{
    Q_OBJECT

public:
    /// What is exported, with its names.
    struct Source
    {
        const DataSet& dataSet;
        QString title;     ///< title of the document
        QString fileName;  ///< proposed file name
        QString folder;    ///< where the file dialog opens
        QString note = {}; ///< on where the data come from and what is doubtful about them
    };

    /// The written file; empty until an export is done.
    const QString& exportedPath() const { return m_exportedPath; }

    void reject() override;

signals:
    /// The user chose a file in this folder. Emitted before it is written with the current options.
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

    /// Place for the format's options.
    QVBoxLayout& optionsLayout() { return *m_optionsLayout; }

    const Source& source() const { return m_source; }

    /// For formats with several kinds of files: what the file dialog proposes and shows.
    void setFileKind(const QString& suffix, const QString& filter);

    /// Shows what will be written, or why nothing can be written.
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
    Format m_format;
    QString m_exportedPath;
    bool m_isPossible = false;
    bool m_isWorking = false;
    bool m_isCancelled = false;
    EventPump m_events;
    QWidget* m_options = nullptr;
    QVBoxLayout* m_optionsLayout = nullptr;
    QLabel* m_summary = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_export = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace KOLT
