// How dialogs are answered.
#include "tests/monkey/Monkey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>

namespace KOLT::Test {

namespace {

constexpr int badInputLasts = 25; ///< steps: a message can wait behind others

} // namespace

/// Message boxes and file dialogs are answered on purpose: in a file dialog, random events could
/// rename and remove the files of the machine. Other dialogs are used like windows, and closed at
/// times.
bool Monkey::handleDialog()
{
    QWidget* const modal = QApplication::activeModalWidget();
    if (QApplication::activePopupWidget() != nullptr || modal == nullptr)
        return false;
    m_watchdog.setStep(
        QStringLiteral("step %1: dialog \"%2\"").arg(m_number).arg(modal->windowTitle()));
    if (auto* const box = qobject_cast<QMessageBox*>(modal)) {
        answer(*box);
        return true;
    }
    if (auto* const dialog = qobject_cast<QFileDialog*>(modal)) {
        chooseFile(*dialog);
        return true;
    }
    if (auto* const dialog = qobject_cast<QDialog*>(modal);
        dialog != nullptr && handleInput(*dialog))
        return true;
    const bool isToolkits = QByteArray(modal->metaObject()->className()).startsWith('Q');
    if (isToolkits || chance(15)) { // print and colour dialogs are not ours to try
        modal->close();
        return true;
    }
    return false;
}

void Monkey::answer(QMessageBox& box)
{
    // Questions have a cause in what was clicked, more than one button, and the title of warnings.
    const bool isWarning =
        box.windowTitle().endsWith(QLatin1String("Warning")) && box.buttons().size() == 1;
    if (box.text().isEmpty())
        m_complaints << QStringLiteral("%1: an empty message").arg(m_number);
    if (isWarning && m_number - m_lastBadInput > badInputLasts)
        m_complaints
            << QStringLiteral("%1: a message without a cause: %2").arg(m_number).arg(box.text());
    const QList<QAbstractButton*> buttons = box.buttons();
    if (buttons.isEmpty() || chance(20))
        box.reject();
    else
        buttons[below(static_cast<int>(buttons.size()))]->click();
}

void Monkey::chooseFile(QDialog& dialog)
{
    auto& files = static_cast<QFileDialog&>(dialog);
    if (chance(30)) {
        files.reject();
        return;
    }
    const bool isSaving = files.acceptMode() == QFileDialog::AcceptSave;
    const bool isForLibrary = files.windowTitle().contains(QLatin1String("Library")) && chance(70);
    QString path = m_folder.filePath(isSaving       ? QStringLiteral("out/file%1").arg(below(3))
                                     : isForLibrary ? QStringLiteral("library")
                                     : chance(80)   ? QStringLiteral("card")
                                                    : QStringLiteral("broken"));
    if (!isSaving && files.fileMode() != QFileDialog::Directory) {
        const QStringList names = QDir(path).entryList(QDir::Files);
        path += QLatin1Char('/') + names.value(below(static_cast<int>(names.size())));
        m_lastBadInput = m_number; // a recording where a profile is asked for
    }
    if (files.fileMode() == QFileDialog::Directory)
        files.setDirectory(path);
    if (auto* const list = files.findChild<QListView*>(QStringLiteral("listView")))
        list->clearSelection();
    if (auto* const edit = files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        edit->setText(path);
    QMetaObject::invokeMethod(&files, "accept", Qt::QueuedConnection);
}

/// Texts are written, and work that shows its progress is mostly left to end.
bool Monkey::handleInput(QDialog& dialog)
{
    if (auto* const input = qobject_cast<QInputDialog*>(&dialog)) {
        const QString text =
            QStringLiteral("Seen in step %1 <b>%2").arg(m_number).arg(QChar(0x2708));
        if (auto* const edit = input->findChild<QPlainTextEdit*>())
            edit->setPlainText(text);
        else if (auto* const line = input->findChild<QLineEdit*>())
            line->setText(text);
        input->done(chance(80) ? QDialog::Accepted : QDialog::Rejected);
        return true;
    }
    if (auto* const progress = qobject_cast<QProgressDialog*>(&dialog)) {
        if (chance(3))
            progress->cancel();
        return true;
    }
    return false;
}

} // namespace KOLT::Test
