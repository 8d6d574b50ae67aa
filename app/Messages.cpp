#include "app/Messages.h"

#include "app/settings/SettingsStore.h"

#include <QCoreApplication>
#include <QFile>
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

void saveSettings(QWidget* parent)
{
    SettingsStore& settings = SettingsStore::instance();
    if (!settings.save())
        warn(parent,
             translated(QT_TRANSLATE_NOOP(
                            "KOLT::Messages",
                            "The settings could not be saved to\n%1\nThey hold until the program "
                            "ends. Please check that the folder can be written and is not full."))
                 .arg(QFile::decodeName(settings.fileName())));
}

} // namespace KOLT::Messages
