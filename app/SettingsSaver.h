#pragma once

#include <QTimer>

class QWidget;

namespace KOLT {

/// Saves the settings. Warns the user when they cannot be written, and when the existing file was
/// unreadable and has been moved aside.
void saveSettings(QWidget* parent);

/// Saves the settings a second after the last change, so that a series of changes is written once.
class SettingsSaver
{
public:
    explicit SettingsSaver(QWidget& window);

    void saveSoon() { m_timer.start(); }

    /// Saves pending changes at once, for the end of the program.
    void flush();

private:
    QWidget& m_window;
    QTimer m_timer;
};

} // namespace KOLT
