#include "tools/soak/Hand.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QWindow>

namespace KOLT::Soak::Hand {

namespace {

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

/// Runs what needs the event loop in the widget's window, unless the widget is gone by then.
template <typename Act>
void later(QWidget* widget, Act act)
{
    QMetaObject::invokeMethod(
        qApp,
        [alive = QPointer<QWidget>(widget), act] {
            if (alive && alive->isVisible() && alive->window()->windowHandle() != nullptr)
                act(*alive, *alive->window()->windowHandle());
        },
        Qt::QueuedConnection);
}

/// By a modal dialog.
bool isBlocked(const QWidget& widget)
{
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr && widget.window() != modal &&
           widget.window() != QApplication::activePopupWidget();
}

QPoint inWindow(const QWidget& widget, QPoint place)
{
    return widget.mapTo(widget.window(), place);
}

template <typename Is>
QWidget* visible(Is is)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->isVisible() && is(*widget))
            return widget;
    }
    return nullptr;
}

} // namespace

QMainWindow* mainWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* const found = qobject_cast<QMainWindow*>(window); found && found->isVisible())
            return found;
    }
    return nullptr;
}

bool isIdle()
{
    const QMainWindow* const window = mainWindow();
    if (window == nullptr)
        return false;
    const auto* const bar = window->findChild<QStatusBar*>();
    const auto* const progress = bar != nullptr ? bar->findChild<QProgressBar*>() : nullptr;
    return progress == nullptr || !progress->isVisible();
}

QWidget* named(const char* name)
{
    return visible([&](const QWidget& one) { return one.objectName() == QLatin1String(name); });
}

QWidget* ofClass(const char* name)
{
    return visible([&](const QWidget& one) { return one.inherits(name); });
}

QWidget* withTip(const char* tip)
{
    return visible([&](const QWidget& one) { return one.toolTip() == QLatin1String(tip); });
}

QWidget* titled(const QString& title)
{
    QWidget* const found =
        visible([&](const QWidget& one) { return one.isWindow() && one.windowTitle() == title; });
    return found != nullptr ? found : mainWindow();
}

QWidget* front()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? active : mainWindow();
}

bool click(QWidget* widget)
{
    return widget != nullptr && clickAt(widget, widget->rect().center());
}

bool clickAt(QWidget* widget, QPoint place)
{
    if (widget == nullptr || !widget->isVisible() || !widget->isEnabled() || isBlocked(*widget))
        return false;
    later(widget, [place](const QWidget& one, QWindow& window) {
        QTest::mouseClick(&window, Qt::LeftButton, {}, inWindow(one, place));
    });
    return true;
}

void drag(QWidget* widget, QPoint from, QPoint to)
{
    later(widget, [from, to](const QWidget& one, QWindow& window) {
        QTest::mousePress(&window, Qt::LeftButton, {}, inWindow(one, from));
        constexpr int steps = 10;
        for (int i = 1; i <= steps; ++i)
            QTest::mouseMove(&window, inWindow(one, from + (to - from) * i / steps));
        QTest::mouseRelease(&window, Qt::LeftButton, {}, inWindow(one, to));
    });
}

void wheel(QWidget* widget, int steps)
{
    later(widget, [steps](const QWidget& one, QWindow&) {
        const QPoint middle = one.rect().center();
        QWheelEvent event(middle, one.mapToGlobal(middle), {},
                          {0, steps * QWheelEvent::DefaultDeltasPerStep}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(const_cast<QWidget*>(&one), &event);
    });
}

void key(QWidget* window, int key, Qt::KeyboardModifiers modifiers)
{
    if (window != nullptr)
        later(window, [key, modifiers](const QWidget&, QWindow& handle) {
            QTest::keyClick(&handle, static_cast<Qt::Key>(key), modifiers);
        });
}

bool button(const QString& text, const QString& title)
{
    QWidget* const window = title.isEmpty() ? front() : titled(title);
    if (window == nullptr)
        return false;
    for (auto* one : window->findChildren<QAbstractButton*>()) {
        if ((plain(one->text()) == text || one->toolTip() == text) && one->window() == window &&
            click(one))
            return true;
    }
    return false;
}

bool tab(const QString& text)
{
    return visible([&](QWidget& one) {
               auto* const bar = qobject_cast<QTabBar*>(&one);
               for (int i = 0; bar != nullptr && i < bar->count(); ++i) {
                   if (plain(bar->tabText(i)) == text)
                       return clickAt(bar, bar->tabRect(i).center());
               }
               return false;
           }) != nullptr;
}

bool openMenu(const QString& title)
{
    QMenuBar* const bar = mainWindow() != nullptr ? mainWindow()->menuBar() : nullptr;
    for (QAction* action : bar != nullptr ? bar->actions() : QList<QAction*>()) {
        if (plain(action->text()) == title)
            return clickAt(bar, bar->actionGeometry(action).center());
    }
    return false;
}

bool menuEntry(const QString& text)
{
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (QAction* action : menu != nullptr ? menu->actions() : QList<QAction*>()) {
        if (plain(action->text()) == text && action->isEnabled())
            return clickAt(menu, menu->actionGeometry(action).center());
    }
    return false;
}

bool line(QAbstractItemView* view, const QModelIndex& index)
{
    if (view == nullptr || !view->isVisible() || !index.isValid())
        return false;
    view->scrollTo(index);
    return clickAt(view->viewport(), view->visualRect(index).center());
}

bool choosePath(const QString& path)
{
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* const edit =
        dialog != nullptr ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
    if (edit == nullptr || !dialog->isVisible())
        return false;
    edit->setText(path); // typed text would open a list of proposals in front of the buttons
    const QString text = dialog->acceptMode() == QFileDialog::AcceptSave ? QStringLiteral("Save")
                         : dialog->fileMode() == QFileDialog::Directory  ? QStringLiteral("Choose")
                                                                         : QStringLiteral("Open");
    return button(text);
}

void closeOthers()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window != mainWindow() && window->windowHandle() != nullptr)
            later(window, [](QWidget& one, QWindow&) { one.close(); });
    }
}

} // namespace KOLT::Soak::Hand
