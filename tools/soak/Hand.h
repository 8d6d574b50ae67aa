#pragma once

#include <QPoint>
#include <QString>

class QAbstractItemView;
class QMainWindow;
class QModelIndex;
class QTabBar;
class QWidget;

namespace KOLT::Soak {

/// Finds widgets of the running program, and uses them with events of the window system, as a
/// user's mouse and keyboard do. Knows the program only by what Qt tells of its widgets.
///
/// What finds nothing returns null or false, to be tried again. Events are sent from the event
/// loop: a click that opens a modal dialog returns at once.
namespace Hand {

QMainWindow* mainWindow();

/// Whether the main window lists or loads nothing.
bool isIdle();

/// The visible widget of a name, of a class such as "KOLT::WidgetMap", or with a tool tip.
QWidget* named(const char* name);
QWidget* ofClass(const char* name);
QWidget* withTip(const char* tip);

/// The visible window with this title; the main window without one.
QWidget* titled(const QString& title);

/// The window in front of all others: a popup, a modal dialog, or the active window.
QWidget* front();

/// Clicks the middle of a widget or a place in it. False without a widget that can be clicked.
bool click(QWidget* widget);
bool clickAt(QWidget* widget, QPoint place);

void drag(QWidget* widget, QPoint from, QPoint to);
void wheel(QWidget* widget, int steps);

void key(QWidget* window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Clicks the enabled button with this text (without its mnemonic) or this tool tip in the window
/// in front, or in the visible window with this title.
bool button(const QString& text, const QString& window = {});

/// Clicks the tab with this text, of any visible tab bar.
bool tab(const QString& text);

/// Clicks an entry of a menu of the main window's menu bar, which must be open; see openMenu().
bool openMenu(const QString& title);
bool menuEntry(const QString& text);

/// Clicks a line of a list, a table or a tree.
bool line(QAbstractItemView* view, const QModelIndex& index);

/// Answers the file dialog in front with a path.
bool choosePath(const QString& path);

/// Closes all windows but the main window.
void closeOthers();

} // namespace Hand

} // namespace KOLT::Soak
