#include "library/ui/NoteEditor.h"

#include "ui/FirstSize.h"

#include <QCoreApplication>
#include <QInputDialog>
#include <QPlainTextEdit>
#include <QShortcut>

namespace KOLT {

namespace {

constexpr QSize firstSize(440, 240);

} // namespace

std::optional<QString> askForNote(QWidget* parent, const QString& label, const QString& text)
{
    QInputDialog dialog(parent);
    dialog.setWindowTitle(QCoreApplication::translate("KOLT::NotesWindow", "Note"));
    dialog.setOption(QInputDialog::UsePlainTextEditForTextInput);
    dialog.setLabelText(label);
    dialog.setTextValue(text);
    resizeForFont(dialog, firstSize);
    auto* const edit = dialog.findChild<QPlainTextEdit*>();
    if (edit != nullptr) {
        edit->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        edit->setTabChangesFocus(true); // leads to the buttons
    }
    const auto* const done = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), &dialog);
    QObject::connect(done, &QShortcut::activated, &dialog, &QDialog::accept);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString entered = dialog.textValue().trimmed();
    return entered.isEmpty() ? std::nullopt : std::optional(entered);
}

} // namespace KOLT
