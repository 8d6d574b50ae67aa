#pragma once

#include <QObject>

class QKeySequence;
class QWidget;

namespace KOLT {

class DialogData;

/// The keys of the main window that no menu has: the pages, the replay and steps in time. A widget
/// that has a use of its own for such a key keeps it.
class KeyCommands : public QObject
{
public:
    /// Both must outlive this.
    KeyCommands(QWidget& window, DialogData& data);

protected:
    /// Watches the application, as widgets would take some of the keys before the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    template <typename Action>
    void add(const QKeySequence& keys, Action action);
    void reachToolBars();
    void turnPage(int by);

    QWidget& m_window;
    DialogData& m_data;
};

} // namespace KOLT
