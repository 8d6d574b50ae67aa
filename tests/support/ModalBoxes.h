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

/// Answers the modal boxes that come up, in order, as long as it lives: message boxes by the text
/// of a button, file dialogs by a path. A box without an answer is dismissed and noted.
class ModalBoxes : public QObject
{
public:
    ModalBoxes()
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalBoxes::look);
        m_timer.start(5);
    }

    /// The text of a button, the path for a file dialog, or empty to cancel.
    void answer(const QString& text) { m_answers.push_back(text); }

    /// What to do with the next dialog of another kind; from within its own event loop.
    void handle(std::function<void(QDialog&)> handler) { m_handlers.push_back(std::move(handler)); }

    /// "title|text|button, button" of the message boxes with the buttons from the left,
    /// titles of the file dialogs.
    const QStringList& seen() const { return m_seen; }

    bool isDone() const { return m_answers.empty() && m_handlers.empty(); }

private:
    void look()
    {
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        if (qobject_cast<QMessageBox*>(modal) == nullptr &&
            qobject_cast<QFileDialog*>(modal) == nullptr && !m_handlers.empty()) {
            // Queued: this timer must go on for the boxes that come up meanwhile.
            QMetaObject::invokeMethod(
                modal,
                [modal, handler = std::move(m_handlers.front())] {
                    handler(*qobject_cast<QDialog*>(modal));
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
        // Typing deselects what was proposed; a text that is set does so only with the focus.
        dialog.findChild<QListView*>(QStringLiteral("listView"))->clearSelection();
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        // Queued: it may ask whether to replace a file, and that box has to be answered too.
        QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
    }

    QTimer m_timer;
    std::deque<QString> m_answers;
    std::deque<std::function<void(QDialog&)>> m_handlers;
    QStringList m_seen;
};

} // namespace KOLT::Test
