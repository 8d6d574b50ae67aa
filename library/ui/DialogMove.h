#pragma once

#include "library/archive/ArchiveMove.h"

#include <QDialog>

#include <memory>
#include <thread>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace KOLT::Library {

/// Moves the library to another folder: copies it there with proof, with progress, and keeps the
/// old folder. Closing the window while it copies cancels, which leaves nothing at the new place.
class DialogMove : public QDialog
{
    Q_OBJECT

public:
    explicit DialogMove(const Archive& archive, QWidget* parent = nullptr);
    /// Cancels, and waits.
    ~DialogMove() override;

    bool isRunning() const { return m_move != nullptr; }

    /// Where the library is now; empty unless it was moved.
    const QString& moved() const { return m_moved; }

signals:
    void signalProgress(const KOLT::Library::MoveProgress& progress);
    void signalFinished(const KOLT::Library::MoveResult& result);

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    QLayout* createFolders();
    QLayout* createButtons();
    void chooseFolder();
    QString target() const;
    void start();
    void cancel();
    void showProgress(const MoveProgress& progress);
    void finish(const MoveResult& result);
    void showState();
    void growToText();

    Archive m_archive;
    std::unique_ptr<ArchiveMove> m_move;
    std::thread m_thread;
    bool m_isClosing = false; ///< when it has ended
    QString m_moved;
    QLineEdit* m_folder = nullptr;
    QPushButton* m_choose = nullptr;
    QLabel* m_state = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_start = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace KOLT::Library
