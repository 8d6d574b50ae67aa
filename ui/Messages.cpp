#include "ui/Messages.h"

#include "base/SafeFile.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace KOLT::Messages {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("KOLT::Messages", text);
}

} // namespace

void warn(QWidget* parent, const QString& text)
{
    QMessageBox::warning(parent, translated(QT_TRANSLATE_NOOP("KOLT::Messages", "KOLT Warning")),
                         text);
}

void inform(QWidget* parent, const QString& text)
{
    QMessageBox::information(parent, translated(QT_TRANSLATE_NOOP("KOLT::Messages", "KOLT Info")),
                             text);
}

bool saveFile(QWidget* parent, const QString& path, const QByteArray& content)
{
    const WriteResult result = replaceFile(path, content);
    if (result)
        return true;
    if (result.status == WriteResult::Status::Refused) {
        warn(parent, result.error);
        return false;
    }
    warn(parent, translated(QT_TRANSLATE_NOOP(
                                "KOLT::Messages",
                                "The file could not be written:\n%1\n%2\nPlease check that the "
                                "folder can be written and is not full, or save it elsewhere."))
                     .arg(path, result.error));
    return false;
}

} // namespace KOLT::Messages
