#pragma once

#include "analysis/ui/DialogData.h"
#include "analysis/ui/DialogDataTable.h"
#include "app/DialogMain.h"
#include "app/MainActions.h"
#include "app/ProjectSession.h"
#include "app/RecentFolders.h"
#include "app/project/Project.h"
#include "app/settings/DataPaths.h"
#include "app/settings/InstalledProfile.h"
#include "app/settings/SettingsStore.h"
#include "app/settings/WindowState.h"
#include "app/startup/Startup.h"
#include "record/CardContainer.h"
#include "resources/Resources.h"
#include "tests/support/Buttons.h"
#include "tests/support/ModalBoxes.h"
#include "tests/support/RecordingFixture.h"

#include <QAction>
#include <QDir>
#include <QTableView>
#include <QTreeWidget>

/// Shared by the tests of the main window.
namespace KOLT::Test {

/// A main window with its own data path and cards; the user's files are not touched.
class MainWindowFixture
{
protected:
    void prepareOnce()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
        initKoltResources();
        const DiagnosticsCapture output;
        DataPaths::instance();
        Startup::applyFontSize();
        Startup::applyStyleSheet(*qApp);
    }

    bool prepare()
    {
        m_output = std::make_unique<DiagnosticsCapture>();
        m_cards = std::make_unique<QTemporaryDir>();
        const QString data = QFile::decodeName(DataPaths::instance().dataPath());
        for (const char* name :
             {"/CurrentProject.xml", "/OtherVariants.xml", "/Profile.xml.bak", "/KOLT.ini"})
            QFile::remove(data + name);
        const QByteArray profile =
            "<KorvanProfile name='Test'><Variants><Variant name='915'/><Variant "
            "name='850'/></Variants>" +
            unit("unitMetric='l' unitImperial='gal' factor='2' offset='0'") +
            device({"name='Speed' id='1' dataType='FLOAT' koltDataType='EngineSpeed'",
                    "name='Fuel' id='1' startByte='4' dataType='FLOAT' precision='1' "
                    "unitMetric='l' unitImperial='gal' koltDataType='FuelA'",
                    "name='Only 850' id='2' dataType='FLOAT' variant='850'"}) +
            "</KorvanProfile>";
        SettingsStore& settings = SettingsStore::instance();
        settings.setText("LastPath", m_cards->path().toUtf8());
        settings.setText("Profile", "915");
        settings.setInteger("Unit", 0);
        for (int i = 1; i <= RecentFolders::maxFolders; ++i)
            settings.setText("RecentFolder" + QByteArray::number(i), {});
        storeWindowState({}, settings);
        Startup::loadSettings();
        m_exitCodes.clear();
        return writeFile(InstalledProfile::path(), profile);
    }

    /// Opens the window and waits until it has started up.
    bool open()
    {
        m_window = std::make_unique<DialogMain>();
        m_window->setEndProcess([this](int exitCode) { m_exitCodes << exitCode; });
        if (!QTest::qWaitForWindowExposed(m_window.get()))
            return false;
        QApplication::setActiveWindow(m_window.get());
        return waitFor([this] { return !m_window->card().folder().isEmpty(); });
    }

    /// Waits until the window is idle and the condition holds.
    template <typename Condition>
    bool waitFor(Condition&& condition) const
    {
        return QTest::qWaitFor([&] { return condition() && !m_window->isBusy(); });
    }

    /// Opens the window with a folder and loads its first cycle.
    bool openCycle(const QString& path)
    {
        SettingsStore::instance().setText("LastPath", path.toUtf8());
        if (!open())
            return false;
        auto* const tree = m_window->findChild<QTreeWidget*>("cyclesTree");
        tree->setCurrentItem(tree->topLevelItem(1)); // its parent is the day
        return waitFor([this] { return m_window->card().dataSet() != nullptr; });
    }

    /// Makes a folder with cycles of two files, each with one sample per second.
    QString folder(const QString& name, int cycles = 1)
    {
        const QString path = m_cards->filePath(name);
        QDir().mkpath(path);
        for (int cycle = 0; cycle < cycles; ++cycle) {
            for (int file = 0; file < 2; ++file) {
                RecordBytes bytes;
                if (file > 0)
                    bytes.date(2026, 7, 28 + cycle, 12, 0, 10);
                for (int i = 0; i < 10; ++i)
                    bytes.sample(1, file * 10 + i, floats(static_cast<float>(i), 1.5F));
                writeFile(QStringLiteral("%1/%2.CAN").arg(path).arg(10 * cycle + file),
                          bytes.bytes());
            }
        }
        return path;
    }

    QAction* action(Command command) const
    {
        const auto actions = m_window->actions();
        return *std::ranges::find_if(actions, [command](const QAction* candidate) {
            return candidate->data().toInt() == static_cast<int>(command);
        });
    }

    void trigger(Command command) const { action(command)->trigger(); }

    /// Checks a parameter and confirms, as the user does.
    void confirmSelection(const QString& parameter)
    {
        for (auto* tree : m_window->findChildren<QTreeWidget*>()) {
            for (QTreeWidgetItem* item :
                 tree->findItems(parameter, Qt::MatchExactly | Qt::MatchRecursive))
                item->setCheckState(0, item->checkState(0) == Qt::Checked ? Qt::Unchecked
                                                                          : Qt::Checked);
        }
        QCoreApplication::processEvents(); // the draft is updated by a timer
        click(*m_window, "Confirm Selection");
    }

    /// Lets the user choose the file of newProfile; `steps` are those up to its installation.
    template <typename Steps>
    bool installNewProfile(Steps&& steps)
    {
        const QString file = m_cards->filePath("new.xml");
        ModalBoxes boxes;
        boxes.answer(file);
        boxes.answer("OK"); // installed
        if (!writeFile(file, newProfile))
            return false;
        steps();
        return boxes.isDone() &&
               waitFor([this] { return profile().parameters().front().name == "New"; });
    }

    const Profile& profile() const { return m_window->profile(); }

    const DataSet* dataSet() const { return m_window->card().dataSet(); }

    QAbstractItemModel* table() const
    {
        return m_window->findChild<DialogDataTable*>()->findChild<QTableView*>()->model();
    }

    /// A setting as the next start would read it from the file.
    static QString setting(const char* key)
    {
        const DiagnosticsCapture output;
        SettingsStore file;
        file.setFileName(SettingsStore::instance().fileName());
        file.load();
        return file.getText(key);
    }

    QTemporaryDir m_home;
    std::unique_ptr<QTemporaryDir> m_cards;
    std::unique_ptr<DialogMain> m_window;
    QList<int> m_exitCodes;
    std::unique_ptr<DiagnosticsCapture> m_output;
};

} // namespace KOLT::Test
