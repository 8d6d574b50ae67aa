#include "library/ui/NoteEditor.h"

#include <QCoreApplication>
#include <QInputDialog>
#include <QPlainTextEdit>

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
    dialog.resize(firstSize);
    auto* const edit = dialog.findChild<QPlainTextEdit*>();
    if (edit != nullptr)
        edit->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString entered = dialog.textValue().trimmed();
    return entered.isEmpty() ? std::nullopt : std::optional(entered);
}

} // namespace KOLT
