#pragma once

#include "app/settings/WindowState.h"

#include <QObject>
#include <QTimer>

class QMainWindow;
class QSplitter;

namespace KOLT {

class DialogData;
class SettingsSaver;
class SettingsStore;

/// Gives the main window the size and arrangement that the user left it with, and stores each
/// change of them. The window is kept within the screen that is there; a size that had to give way
/// stays stored for a larger screen. The folders of the file dialogs and the
/// columns of tables are kept too.
class WindowMemory : public QObject
{
public:
    struct Parts
    {
        QMainWindow& window;
        QSplitter& panels; ///< lists, data window
        QSplitter& lists;  ///< card, parameters
        DialogData& data;
    };

    /// All must outlive this. To be made before the window is first shown.
    WindowMemory(const Parts& parts, SettingsStore& store, SettingsSaver& saver);
    ~WindowMemory() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restore(const WindowState& state);
    WindowState current() const;
    void settle();
    void note();
    void keepFolders();
    void keepColumns();

    Parts m_parts;
    SettingsStore& m_store;
    SettingsSaver& m_saver;
    QTimer m_settling; ///< until the system has placed the window
    WindowState m_stored;
    WindowState m_known; ///< what the window was like at the last change
    bool m_isSettled = false;
};

} // namespace KOLT
