#include "app/WindowMemory.h"

#include "analysis/ui/DialogData.h"
#include "app/SettingsSaver.h"
#include "app/settings/SettingsStore.h"
#include "ui/ColumnMemory.h"
#include "ui/DialogFolders.h"

#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int settlingMilliseconds = 200;

/// Moves and shrinks a window so that it lies on its screen with its frame.
void bringOnScreen(QWidget& window)
{
    const QRect room = window.screen()->availableGeometry();
    const QRect frame = window.frameGeometry();
    if (room.contains(frame))
        return;
    window.resize(window.size().boundedTo(room.size() - (frame.size() - window.size())));
    const QSize size = window.frameGeometry().size();
    window.move(
        std::clamp(frame.x(), room.x(), std::max(room.x(), room.right() + 1 - size.width())),
        std::clamp(frame.y(), room.y(), std::max(room.y(), room.bottom() + 1 - size.height())));
}

} // namespace

WindowMemory::WindowMemory(const Parts& parts, SettingsStore& store, SettingsSaver& saver)
    : m_parts(parts)
    , m_store(store)
    , m_saver(saver)
{
    m_stored = loadWindowState(store);
    restore(m_stored);
    m_settling.setSingleShot(true);
    m_settling.setInterval(settlingMilliseconds);
    connect(&m_settling, &QTimer::timeout, this, &WindowMemory::settle);
    connect(&parts.panels, &QSplitter::splitterMoved, this, &WindowMemory::note);
    connect(&parts.lists, &QSplitter::splitterMoved, this, &WindowMemory::note);
    connect(&parts.data, &DialogData::signalArranged, this, &WindowMemory::note);
    parts.window.installEventFilter(this);
    keepFolders();
    keepColumns();
}

WindowMemory::~WindowMemory()
{
    DialogFolders::setKeeper({});
    ColumnMemory::setKeeper({});
}

void WindowMemory::keepFolders()
{
    const auto keyOf = [](const QString& kind) { return "Folder" + kind.toLatin1(); };
    DialogFolders::setKeeper({[this, keyOf](const QString& kind) {
                                  return QString::fromUtf8(m_store.getText(keyOf(kind)));
                              },
                              [this, keyOf](const QString& kind, const QString& folder) {
                                  m_store.setText(keyOf(kind), folder.toUtf8());
                                  m_saver.saveSoon();
                              }});
}

void WindowMemory::keepColumns()
{
    ColumnMemory::setKeeper({[this](const QString& table) { return loadColumns(table, m_store); },
                             [this](const QString& table, const ColumnMemory::Widths& widths) {
                                 storeColumns(table, widths, m_store);
                                 m_saver.saveSoon();
                             }});
}

void WindowMemory::restore(const WindowState& state)
{
    QMainWindow& window = m_parts.window;
    const QSize size = state.size.boundedTo(window.screen()->availableSize());
    window.resize(size);
    const int width = size.width();
    m_parts.panels.setSizes(state.panels.isEmpty() ? QList<int>{width / 3, width * 2 / 3}
                                                   : state.panels);
    if (!state.lists.isEmpty())
        m_parts.lists.setSizes(state.lists);
    m_parts.data.arrange(
        {static_cast<DialogData::Page>(state.page), state.map, state.pages, state.columns});
    if (state.isMaximized)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

WindowState WindowMemory::current() const
{
    const QMainWindow& window = m_parts.window;
    const DialogData::Arrangement data = m_parts.data.arrangement();
    WindowState state;
    state.isMaximized = window.isMaximized();
    state.size = state.isMaximized ? window.normalGeometry().size() : window.size();
    state.panels = m_parts.panels.sizes();
    state.lists = m_parts.lists.sizes();
    state.pages = data.sizes;
    state.map = data.map;
    state.page = static_cast<int>(data.page);
    state.columns = data.columns;
    return state;
}

void WindowMemory::settle()
{
    if (!m_parts.window.isMaximized())
        bringOnScreen(m_parts.window);
    m_known = current();
    m_isSettled = true;
}

void WindowMemory::note()
{
    if (!m_isSettled)
        return;
    const WindowState state = current();
    if (state == m_known)
        return;
    // What gave way to a small screen stays stored as it was.
    const auto take = [&](auto member) {
        if (state.*member != m_known.*member)
            m_stored.*member = state.*member;
    };
    take(&WindowState::size);
    take(&WindowState::isMaximized);
    take(&WindowState::panels);
    take(&WindowState::lists);
    take(&WindowState::pages);
    take(&WindowState::map);
    take(&WindowState::page);
    take(&WindowState::columns);
    m_known = state;
    storeWindowState(m_stored, m_store);
    m_saver.saveSoon();
}

bool WindowMemory::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        if (!m_isSettled)
            m_settling.start();
        break;
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        // Afterwards, when the parts have got their new sizes too.
        QMetaObject::invokeMethod(this, &WindowMemory::note, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace KOLT
