#include "app/SettingsSaver.h"

#include "app/settings/SettingsStore.h"
#include "ui/Messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QWidget>

namespace KOLT {

namespace {

constexpr int pauseMilliseconds = 1000;

} // namespace

void saveSettings(QWidget* parent)
{
    SettingsStore& settings = SettingsStore::instance();
    if (!settings.save())
        Messages::warn(parent,
                       QCoreApplication::translate(
                           "KOLT::Messages",
                           "The settings could not be saved to\n%1\nThey are kept until "
                           "the program ends. Please check that the folder can be "
                           "written and is not full, and that no other program has the "
                           "file open.")
                           .arg(QDir::toNativeSeparators(QFile::decodeName(settings.fileName()))));
    const QString keptCopy = settings.takeKeptCopy();
    if (!keptCopy.isEmpty())
        Messages::warn(parent,
                       QCoreApplication::translate(
                           "KOLT::Messages",
                           "The settings could not be read, and KOLT continues without them. "
                           "Please check language, units and the variant of the profile. "
                           "The file is kept as\n%1")
                           .arg(keptCopy));
}

SettingsSaver::SettingsSaver(QWidget& window)
    : m_window(window)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(pauseMilliseconds);
    m_timer.callOnTimeout(&m_window, [this] { saveSettings(&m_window); });
}

void SettingsSaver::flush()
{
    if (!m_timer.isActive())
        return;
    m_timer.stop();
    saveSettings(&m_window);
}

} // namespace KOLT
