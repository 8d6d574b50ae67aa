#include "tests/monkey/Monkey.h"

#include "app/DialogMain.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTabBar>
#include <QTreeWidget>
#include <QWheelEvent>
#include <QtTest>

#include <algorithm>
#include <array>
#include <utility>

namespace KOLT::Test {

namespace {

/// What a user would see of the widgets in a window.
QList<QWidget*> visibleWidgets(QWidget& window)
{
    QList<QWidget*> found;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == &window &&
            !widget->visibleRegion().isEmpty())
            found << widget;
    }
    return found;
}

} // namespace

Monkey::Monkey(unsigned seed, const QString& folder, Watchdog& watchdog)
    : m_random(seed)
    , m_folder(folder)
    , m_watchdog(watchdog)
    , m_kinds{{"click", 30, &Monkey::clickSomewhere},
              {"double click", 4, &Monkey::doubleClickSomewhere},
              {"context menu", 4, &Monkey::openContextMenu},
              {"drag", 8, &Monkey::drag},
              {"wheel", 8, &Monkey::turnWheel},
              {"key", 14, &Monkey::pressKey},
              {"text", 4, &Monkey::typeText},
              {"size", 3, &Monkey::resizeWindow},
              {"page", 8, &Monkey::switchPage},
              {"cycle", 6, &Monkey::chooseCycle},
              {"play", 3, &Monkey::playOrPause},
              {"drop", 3, &Monkey::dropFiles},
              {"command", 6, &Monkey::triggerCommand},
              {"import", 2, &Monkey::importCard},
              {"library", 5, &Monkey::useLibrary},
              {"notes", 2, &Monkey::useNotes},
              {"close and open", 1, &Monkey::closeAndOpen},
              {"close during load", 1, &Monkey::closeDuringLoad},
              {"close during import", 1, &Monkey::closeDuringImport}}
{
    // Queued: a timer is silent while its own slot runs, also in the dialogs that this opens.
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!std::exchange(m_isStepDue, true))
            QMetaObject::invokeMethod(this, &Monkey::step, Qt::QueuedConnection);
    });
}

Monkey::~Monkey() = default;

void Monkey::run(int steps)
{
    m_left = steps;
    while (m_left > 0) {
        open();
        m_mustReopen = false;
        m_timer.start(0);
        while (m_left > 0 && !m_mustReopen)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        m_timer.stop();
        m_window.reset();
    }
}

QString Monkey::summary() const
{
    QStringList lines;
    for (const Kind& kind : m_kinds)
        lines << QStringLiteral("%1 %2").arg(QLatin1String(kind.name)).arg(kind.done);
    return lines.join(QLatin1String(", "));
}

void Monkey::open()
{
    m_watchdog.setStep(QStringLiteral("opening the window"));
    m_window = std::make_unique<DialogMain>();
    m_window->setEndProcess([](int) {});
    m_watchdog.restart();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        m_complaints << QStringLiteral("%1: the window does not open").arg(m_number);
    QApplication::setActiveWindow(m_window.get());
    m_watchdog.restart();
}

void Monkey::step()
{
    m_isStepDue = false;
    if (m_left <= 0 || m_mustReopen) {
        leaveDialogs();
        return;
    }
    --m_left;
    ++m_number;
    if (handleDialog())
        return;
    int sum = 0;
    for (const Kind& kind : m_kinds)
        sum += kind.weight;
    int pick = below(sum);
    const auto kind =
        std::ranges::find_if(m_kinds, [&](const Kind& one) { return (pick -= one.weight) < 0; });
    act(*kind);
}

/// So that the event loops of dialogs and menus return.
void Monkey::leaveDialogs()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    else if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

void Monkey::act(Kind& kind)
{
    ++kind.done;
    m_watchdog.setStep(QStringLiteral("step %1: %2").arg(m_number).arg(QLatin1String(kind.name)));
    (this->*kind.act)();
}

int Monkey::below(int end)
{
    return end <= 1 ? 0 : static_cast<int>(m_random() % static_cast<unsigned>(end));
}

QWidget* Monkey::top() const
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    return m_window.get();
}

/// A visible widget of the window in front; now and then another window that is open.
QWidget* Monkey::target()
{
    QWidget* window = top();
    if (window == m_window.get() && chance(25)) {
        QWidgetList windows = QApplication::topLevelWidgets();
        windows.removeIf([](const QWidget* one) { return !one->isVisible(); });
        if (!windows.isEmpty())
            window = windows[below(static_cast<int>(windows.size()))];
    }
    const QList<QWidget*> widgets = visibleWidgets(*window);
    return widgets.isEmpty() ? window : widgets[below(static_cast<int>(widgets.size()))];
}

QPoint Monkey::pointIn(const QWidget& widget)
{
    const QRect seen = widget.visibleRegion().boundingRect();
    return seen.topLeft() + QPoint(below(seen.width()), below(seen.height()));
}

void Monkey::clickSomewhere()
{
    QWidget* const widget = target();
    static constexpr std::array modifiers{Qt::NoModifier, Qt::NoModifier, Qt::NoModifier,
                                          Qt::ControlModifier, Qt::ShiftModifier};
    QTest::mouseClick(widget, chance(95) ? Qt::LeftButton : Qt::MiddleButton,
                      modifiers[static_cast<std::size_t>(below(modifiers.size()))],
                      pointIn(*widget));
}

void Monkey::doubleClickSomewhere()
{
    QWidget* const widget = target();
    QTest::mouseDClick(widget, Qt::LeftButton, {}, pointIn(*widget));
}

void Monkey::openContextMenu()
{
    QWidget* const widget = target();
    const QPoint point = pointIn(*widget);
    const QPointer<QWidget> alive(widget);
    QTest::mouseClick(widget, Qt::RightButton, {}, point);
    if (!alive)
        return;
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, widget->mapToGlobal(point));
    QApplication::sendEvent(widget, &event);
}

void Monkey::drag()
{
    const QPointer<QWidget> widget = target();
    const QPoint from = pointIn(*widget);
    const QPoint to = pointIn(*widget);
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    if (widget)
        QTest::mouseMove(widget, (from + to) / 2);
    if (widget)
        QTest::mouseMove(widget, to);
    if (widget)
        QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

void Monkey::turnWheel()
{
    QWidget* const widget = target();
    const QPoint point = pointIn(*widget);
    const QPoint angle(chance(10) ? 120 : 0, (below(7) - 3) * 120);
    QWheelEvent event(point, widget->mapToGlobal(point), {}, angle, Qt::NoButton,
                      chance(15) ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void Monkey::pressKey()
{
    static constexpr std::array keys{
        Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space,  Qt::Key_Return, Qt::Key_Escape,
        Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Home,
        Qt::Key_End,  Qt::Key_PageUp,  Qt::Key_Delete, Qt::Key_A,      Qt::Key_C,
        Qt::Key_Z,    Qt::Key_S,       Qt::Key_F,      Qt::Key_1,      Qt::Key_5,
        Qt::Key_Plus, Qt::Key_Minus,   Qt::Key_F1,     Qt::Key_F2,     Qt::Key_F5};
    static constexpr std::array<Qt::KeyboardModifiers::Int, 5> modifiers{
        Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier};
    QWidget* widget = QApplication::focusWidget();
    if (widget == nullptr || QApplication::activePopupWidget() != nullptr)
        widget = top();
    QTest::keyClick(widget, keys[static_cast<std::size_t>(below(keys.size()))],
                    Qt::KeyboardModifiers::fromInt(
                        modifiers[static_cast<std::size_t>(below(modifiers.size()))]));
}

void Monkey::typeText()
{
    QList<QLineEdit*> edits = top()->findChildren<QLineEdit*>();
    edits.removeIf([](const QLineEdit* edit) { return !edit->isVisible() || !edit->isEnabled(); });
    if (edits.isEmpty())
        return;
    static const QStringList texts{"12",  "-1e308", "Fuel", "00:10:00", "*", "\\",
                                   "nan", "0",      "~",    "%1",       "",  "99999999999"};
    QLineEdit* const edit = edits[below(static_cast<int>(edits.size()))];
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, texts[below(static_cast<int>(texts.size()))]);
    m_lastBadInput = m_number; // a name that cannot be written, an address that is none
}

void Monkey::resizeWindow()
{
    static constexpr std::array sizes{QSize(600, 400),  QSize(900, 600),   QSize(1000, 800),
                                      QSize(1366, 768), QSize(1600, 1000), QSize(400, 900)};
    m_window->resize(sizes[static_cast<std::size_t>(below(sizes.size()))]);
}

void Monkey::switchPage()
{
    QList<QTabBar*> bars = top()->findChildren<QTabBar*>();
    bars.removeIf([](const QTabBar* bar) { return !bar->isVisible() || bar->count() == 0; });
    if (bars.isEmpty())
        return;
    QTabBar* const bar = bars[below(static_cast<int>(bars.size()))];
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(below(bar->count())).center());
}

void Monkey::chooseCycle()
{
    auto* const tree = m_window->findChild<QTreeWidget*>(QStringLiteral("cyclesTree"));
    if (tree == nullptr || !tree->isVisible() || tree->topLevelItemCount() == 0 ||
        QApplication::activePopupWidget() != nullptr)
        return;
    QTreeWidgetItem* item = tree->topLevelItem(below(tree->topLevelItemCount()));
    if (item->childCount() > 0 && chance(70))
        item = item->child(below(item->childCount()));
    tree->scrollToItem(item);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(item).center());
}

void Monkey::playOrPause()
{
    QTest::keyClick(m_window.get(), Qt::Key_Space);
}

void Monkey::dropFiles()
{
    const QDir from(
        m_folder.filePath(chance(60) ? QStringLiteral("card") : QStringLiteral("broken")));
    QList<QUrl> urls;
    if (chance(30)) {
        urls << QUrl::fromLocalFile(from.path());
    } else {
        const QStringList names = from.entryList(QDir::Files);
        for (int i = below(3); i >= 0; --i)
            urls << QUrl::fromLocalFile(
                from.filePath(names.value(below(static_cast<int>(names.size())))));
    }
    m_lastBadInput = m_number;
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &event);
}

} // namespace KOLT::Test
