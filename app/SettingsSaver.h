#pragma once

#include <QTimer>

class QWidget;

namespace KOLT {

/// Saves the settings, and tells the user when they cannot be written, and when those in the file
/// could not be read.
void saveSettings(QWidget* parent);

/// Saves the settings a second after the last of many changes.
class SettingsSaver
{
public:
    explicit SettingsSaver(QWidget& window);

    void saveSoon() { m_timer.start(); }

    /// Saves at once what still waits; before the program ends.
    void flush();

private:
    QWidget& m_window;
    QTimer m_timer;
};

} // namespace KOLT
