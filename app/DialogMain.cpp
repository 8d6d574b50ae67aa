#include "app/DialogMain.h"

#include "app/base/Diagnostics.h"
#include "app/settings/CommandLineOptions.h"
#include "app/settings/DataPaths.h"
#include "app/settings/SettingsStore.h"
#include "record/DialogCard.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>

namespace KOLT {

namespace {

constexpr int startupMilliseconds = 1000;
constexpr QSize windowSize(1000, 800);
constexpr int listStretch = 1;
constexpr int pagesStretch = 2;
constexpr auto lastPathKey = "LastPath";

QString lastPath()
{
    return QString::fromUtf8(SettingsStore::instance().getText(lastPathKey, "."));
}

/// The waiting cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }

    ~WaitCursor() { QApplication::restoreOverrideCursor(); }

    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

DialogMain::DialogMain()
{
    loadProfile();
    auto* const splitter = new QSplitter(this);
    m_cardDialog = new DialogCard(m_card, splitter);
    auto* const pages = new QWidget(splitter);
    splitter->addWidget(m_cardDialog);
    splitter->addWidget(pages);
    splitter->setStretchFactor(0, listStretch);
    splitter->setStretchFactor(1, pagesStretch);
    setCentralWidget(splitter);
    connect(m_cardDialog, &DialogCard::signalLoadRecord, this, &DialogMain::slotLoadRecord);
    connect(m_cardDialog, &DialogCard::signalLoadCycle, this, &DialogMain::slotLoadCycle);

    const bool isEmuDisplay = CommandLineOptions::instance().isGiven("-emu");
    if (!isEmuDisplay)
        createMenus();
    m_cardDialog->setVisible(!isEmuDisplay);
    statusBar();
    QTimer::singleShot(startupMilliseconds, this, &DialogMain::slotTimeoutStartup);
    resize(windowSize);
    splitter->setSizes({windowSize.width() * listStretch / (listStretch + pagesStretch),
                        windowSize.width() * pagesStretch / (listStretch + pagesStretch)});
    refreshTitle();
    show();
}

DialogMain::~DialogMain() = default;

QAction* DialogMain::createAction(Command command, const QString& text,
                                  const QKeySequence& shortcut, const QString& tip)
{
    auto* const action = new QAction(text, this);
    action->setData(static_cast<int>(command));
    action->setShortcut(shortcut);
    action->setStatusTip(tip);
    action->setToolTip(tip);
    return action;
}

void DialogMain::createMenus()
{
    auto* const group = new QActionGroup(this);
    group->setExclusive(false);
    QAction* const open =
        createAction(Command::OpenDataFolder, tr("&Open Data Folder"),
                     QKeySequence(QStringLiteral("Ctrl+C")), tr("Open Data Folder"));
    QAction* const quit = createAction(
        Command::Quit, tr("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), tr("Quit Application"));
    group->addAction(open);
    group->addAction(quit);
    connect(group, &QActionGroup::triggered, this, &DialogMain::slotMenu);
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(open);
    file->addSeparator();
    file->addAction(quit);
}

void DialogMain::loadProfile()
{
    const QString path =
        QFile::decodeName(DataPaths::instance().dataPath()) + QStringLiteral("/Profile.xml");
    const QString variant = QString::fromUtf8(SettingsStore::instance().getText("Profile", "915"));
    if (!m_profile.loadProfil(path, variant))
        statusBar()->showMessage(
            tr("The profile %1 cannot be read: no values can be shown.").arg(path));
}

void DialogMain::slotMenu(QAction* action)
{
    const int id = action->data().toInt();
    Diagnostics::print("DialogMain::slotMenu id %d\n", id);
    switch (static_cast<Command>(id)) {
    case Command::OpenDataFolder:
        askForFolder();
        break;
    case Command::Quit:
        close();
        break;
    }
}

void DialogMain::askForFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Open SD Card"), lastPath());
    if (folder.isEmpty() || !openFolder(folder))
        return;
    SettingsStore& settings = SettingsStore::instance();
    settings.setText(lastPathKey, folder.toUtf8());
    if (!settings.save())
        QMessageBox::warning(this, tr("KOLT Warning"),
                             tr("The settings could not be saved to\n%1")
                                 .arg(QFile::decodeName(settings.fileName())));
    refreshTitle();
}

bool DialogMain::openFolder(const QString& folder)
{
    const WaitCursor wait;
    const bool isOpen = m_card.readContainer(folder);
    m_cardDialog->refresh();
    statusBar()->showMessage(isOpen ? tr("Record files: %1").arg(m_card.files().size())
                                    : tr("There is no folder %1").arg(folder));
    return isOpen;
}

void DialogMain::slotTimeoutStartup()
{
    openFolder(lastPath());
    refreshTitle();
}

void DialogMain::slotLoadRecord(const std::list<QString>& paths)
{
    const WaitCursor wait;
    m_card.loadFiles(paths);
}

void DialogMain::slotLoadCycle(unsigned int cycle, int flight)
{
    const WaitCursor wait;
    if (flight < 0)
        m_card.loadCycle(static_cast<int>(cycle));
    else
        m_card.loadFlight(static_cast<int>(cycle), static_cast<std::size_t>(flight));
}

void DialogMain::refreshTitle()
{
    setWindowTitle(QStringLiteral("KOLT ") + lastPath().section(QLatin1Char('/'), -2));
}

bool DialogMain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::ShiftModifier;
        if (key->key() == Qt::Key_Z && modifiers == Qt::ControlModifier && !key->isAutoRepeat())
            return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace KOLT
