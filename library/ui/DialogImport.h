#pragma once

#include "library/archive/ArchiveSettings.h"
#include "library/ui/ImportRunner.h"

#include <QDialog>

#include <vector>

class QLabel;
class QLayout;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace KOLT::Library {

/// Imports a card into the library, which the first import creates, with progress, and tells how
/// many files are safe. Closing the window cancels; what is complete stays.
class DialogImport : public QDialog
{
    Q_OBJECT

public:
    explicit DialogImport(QWidget* parent = nullptr);

    /// Shows the window with a card to start with. While an import is running, only that.
    void open(const ArchiveSettings& settings, const QString& card);

    ImportRunner& runner() { return m_runner; }

signals:
    /// The library was created or opened.
    void signalSettings(const KOLT::Library::ArchiveSettings& settings);
    /// An import has ended, or some were taken back: the library has changed, or may have.
    void signalChanged();
    /// For the main window's status bar.
    void signalMessage(const QString& message);

protected:
    void reject() override;

private:
    QLayout* createFolders();
    QLayout* createButtons();
    void start();
    QString openArchive(Archive& archive);
    void showProgress(const ImportProgress& progress);
    void showResult(const ImportResult& result);
    void setWorking(bool isWorking);
    void growToText();
    void openImports();

    ImportRunner m_runner;
    ArchiveSettings m_settings;
    std::vector<QWidget*> m_places; ///< where folders are chosen
    QLineEdit* m_card = nullptr;
    QLineEdit* m_library = nullptr;
    QLabel* m_state = nullptr;
    QProgressBar* m_progress = nullptr;
    QTreeWidget* m_failed = nullptr;
    QPushButton* m_import = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_imports = nullptr;
};

} // namespace KOLT::Library
