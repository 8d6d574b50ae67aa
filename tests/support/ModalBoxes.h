#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <functional>

namespace KOLT::Test {

/// Answers modal boxes in the order in which they open: message boxes with a button, file dialogs
/// with a path. A box without an answer is dismissed; all are recorded.
class ModalBoxes : public QObject
{
public:
    ModalBoxes()
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalBoxes::look);
        m_timer.start(5);
    }

    /// The text of the button to press or the path to choose; empty to cancel.
    void answer(const QString& text) { m_answers.push_back(text); }

    /// Called for the next dialog of another kind, from within its event loop.
    void handle(std::function<void(QDialog&)> handler) { m_handlers.push_back(std::move(handler)); }

    /// "title|text|button, button" of message boxes, buttons from left to right; titles of file
    /// dialogs.
    const QStringList& seen() const { return m_seen; }

    bool isDone() const { return m_answers.empty() && m_handlers.empty(); }

private:
    void look()
    {
        QWidget* const modal = QApplication::activeModalWidget();
        // A dialog that processes events while it works for its handler is not to be dismissed.
        if (modal == nullptr || modal == m_handled)
            return;
        if (qobject_cast<QMessageBox*>(modal) == nullptr &&
            qobject_cast<QFileDialog*>(modal) == nullptr && !m_handlers.empty()) {
            // Queued, so that this timer goes on and handles boxes that open meanwhile.
            QMetaObject::invokeMethod(
                modal,
                [this, modal, handler = std::move(m_handlers.front())] {
                    m_handled = modal;
                    handler(*qobject_cast<QDialog*>(modal));
                    m_handled = nullptr;
                },
                Qt::QueuedConnection);
            m_handlers.pop_front();
            return;
        }
        QString text;
        if (!m_answers.empty()) {
            text = m_answers.front();
            m_answers.pop_front();
        }
        if (auto* const box = qobject_cast<QMessageBox*>(modal))
            answerBox(*box, text);
        else if (auto* const dialog = qobject_cast<QFileDialog*>(modal))
            answerDialog(*dialog, text);
        else if (auto* const other = qobject_cast<QDialog*>(modal))
            other->reject();
    }

    void answerBox(QMessageBox& box, const QString& text)
    {
        QStringList buttons;
        QAbstractButton* wanted = nullptr;
        QList<QAbstractButton*> inSight = box.buttons();
        std::ranges::sort(inSight, {}, &QWidget::x);
        for (QAbstractButton* button : inSight) {
            buttons << button->text();
            if (button->text() == text)
                wanted = button;
        }
        m_seen << QStringList{box.windowTitle(), box.text(), buttons.join(", ")}.join('|');
        if (wanted != nullptr)
            wanted->click();
        else
            box.reject();
    }

    void answerDialog(QFileDialog& dialog, const QString& path)
    {
        m_seen << dialog.windowTitle();
        if (path.isEmpty()) {
            dialog.reject();
            return;
        }
        if (dialog.fileMode() == QFileDialog::Directory)
            dialog.setDirectory(path);
        // setText() does not clear the selection, as typing does.
        dialog.findChild<QListView*>(QStringLiteral("listView"))->clearSelection();
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        // Queued: it may ask whether to replace a file, which must be answered too.
        QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
    }

    QTimer m_timer;
    std::deque<QString> m_answers;
    std::deque<std::function<void(QDialog&)>> m_handlers;
    QStringList m_seen;
    QWidget* m_handled = nullptr; ///< while its handler runs
};

} // namespace KOLT::Test
