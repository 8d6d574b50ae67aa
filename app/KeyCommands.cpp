#include "app/KeyCommands.h"

#include "analysis/ui/DialogData.h"
#include "graph/ui/WidgetGraphBase.h"
#include "map/ui/WidgetMap.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QShortcut>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>

namespace KOLT {

namespace {

constexpr int pageCount = static_cast<int>(DialogData::Page::Map); ///< the map has no tab
constexpr double smallStep = 1.0;                                  ///< seconds
constexpr double largeStep = 10.0;

bool isAltArrow(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return modifiers == Qt::AltModifier && event.key() >= Qt::Key_Left &&
           event.key() <= Qt::Key_Down;
}

/// Graph and map move by arrows, with any modifier; a combo box opens its list.
bool usesAltArrows(const QObject* widget)
{
    return qobject_cast<const WidgetGraphBase*>(widget) != nullptr ||
           qobject_cast<const WidgetMap*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr;
}

bool isPlainSpace(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Space && event.modifiers() == Qt::NoModifier &&
           !event.isAutoRepeat();
}

} // namespace

KeyCommands::KeyCommands(QWidget& window, DialogData& data)
    : m_window(window)
    , m_data(data)
{
    add(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { turnPage(1); });
    add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), [this] { turnPage(-1); });
    for (int page = 0; page < pageCount; ++page)
        add(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + page)),
            [this, page] { m_data.goToPage(static_cast<DialogData::Page>(page)); });
    for (const auto& [key, seconds] :
         {std::pair(Qt::Key_Left, -smallStep), std::pair(Qt::Key_Right, smallStep),
          std::pair(Qt::Key_Down, -largeStep), std::pair(Qt::Key_Up, largeStep)})
        add(QKeySequence(Qt::ALT | key), [this, step = seconds] { m_data.stepTime(step); });
    reachToolBars();
    qApp->installEventFilter(this);
}

template <typename Action>
void KeyCommands::add(const QKeySequence& keys, Action action)
{
    connect(new QShortcut(keys, &m_window), &QShortcut::activated, this, action);
}

/// The toolkit leaves them out.
void KeyCommands::reachToolBars()
{
    for (const QToolBar* bar : m_window.findChildren<QToolBar*>()) {
        for (QAction* action : bar->actions()) {
            auto* const button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
            if (button != nullptr)
                button->setFocusPolicy(Qt::TabFocus);
        }
    }
}

void KeyCommands::turnPage(int by)
{
    const int page = static_cast<int>(m_data.arrangement().page);
    m_data.goToPage(static_cast<DialogData::Page>((page + by + pageCount) % pageCount));
}

bool KeyCommands::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        if (isAltArrow(*static_cast<QKeyEvent*>(event)) && usesAltArrows(watched)) {
            event->accept();
            return true;
        }
    } else if (event->type() == QEvent::KeyPress && isPlainSpace(*static_cast<QKeyEvent*>(event))) {
        // What no widget has used gets to the window. Tables would only select the row again.
        const auto* const table = qobject_cast<QTableView*>(watched);
        const bool isTable = table != nullptr && m_data.isAncestorOf(table);
        if (watched == &m_window || isTable) {
            m_data.toggleReplay();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT
