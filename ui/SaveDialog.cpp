#include "ui/SaveDialog.h"

#include "base/WriteGuard.h"
#include "ui/Messages.h"

#include <QFileDialog>
#include <QFileInfo>

namespace KOLT {

QString askForSavePath(QWidget* parent, const QString& title, const QString& proposed,
                       const QString& filter, const QString& suffix)
{
    const QFileInfo proposal(proposed);
    QFileDialog dialog(parent, title, proposal.path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(proposal.fileName());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString path = dialog.selectedFiles().value(0);
    const QString objection = writeObjection(path);
    if (objection.isEmpty())
        return path;
    Messages::warn(parent, objection);
    return {};
}

} // namespace KOLT
