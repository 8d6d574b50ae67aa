#include "analysis/ui/OverviewPage.h"
#include "analysis/ui/WelcomePanel.h"
#include "base/Volumes.h"
#include "base/WriteGuard.h"
#include "record/ui/DialogCard.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/support/Rows.h"

#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>

using namespace KOLT;
using namespace KOLT::Test;

/// The overview in front of the pages, and the first start.
class TestOverview : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init() { QVERIFY(prepare()); }

    void cleanup()
    {
        m_window.reset();
        m_output.reset();
    }

    void rowsFillAndOpen();
    void cancelledAndTakenUpAgain();
    void firstStartTakesADrop();
    void sampleCardIsReadOnly();
    void emptyFolderSaysWhy();
    void removableVolumes_data();
    void removableVolumes();

private:
    QTreeWidget* rows() const { return m_window->findChild<QTreeWidget*>("overviewTree"); }

    QTreeWidgetItem* row(int day, int cycle) const
    {
        return rows()->topLevelItem(day)->child(cycle);
    }

    void click(QTreeWidgetItem* item) const
    {
        rows()->scrollToItem(item);
        QTest::mouseClick(rows()->viewport(), Qt::LeftButton, {},
                          rows()->visualItemRect(item).center());
    }

    bool isFilled() const
    {
        return waitFor([this] {
            return !rows()->topLevelItem(0)->text(OverviewTable::Fuel).isEmpty() &&
                   row(0, 0) != nullptr && !row(0, 0)->text(OverviewTable::Trust).isEmpty();
        });
    }

    /// A card with a cycle on each of two days, of which the second has a flight.
    QString card();
};

QString TestOverview::card()
{
    const QString path = folder("flown", 2);
    RecordBytes bytes;
    bytes.date(2026, 7, 29, 12, 0, 20);
    for (int i = 0; i < 60; ++i)
        bytes.sample(3, 20 + i, floats(i > 10 && i < 40 ? 90.0F : 0.0F));
    writeFile(path + "/12.CAN", bytes.bytes());
    writeFile(InstalledProfile::path(),
              "<KorvanProfile name='Test'><Variants><Variant name='915'/></Variants>" +
                  threshold("T", {"val='7' color='red' state='LIMIT'"}) +
                  device({"name='Speed' id='1' dataType='FLOAT' thresholdId='T' "
                          "koltDataType='EngineSpeed'",
                          "name='Ground' id='3' dataType='FLOAT' koltDataType='GroundSpeed'"}) +
                  "</KorvanProfile>");
    return path;
}

void TestOverview::rowsFillAndOpen()
{
    SettingsStore::instance().setText("LastPath", card().toUtf8());
    QVERIFY(open() && isFilled());
    QVERIFY(rows()->isVisible());
    QCOMPARE(rows()->topLevelItem(0)->text(0), "29.07.2026");
    QCOMPARE(rows()->topLevelItem(0)->text(OverviewTable::Flights), "1");
    QTreeWidgetItem* const cycle = row(0, 0);
    QCOMPARE(cycle->text(0), "Cycle 2");
    QVERIFY(cycle->text(OverviewTable::Worst).startsWith("Speed 9"));
    // The lists know the worst state as well.
    auto* const lists = m_window->findChild<QTreeWidget*>("cyclesTree");
    QVERIFY(waitFor([&] { return lists->topLevelItem(3)->toolTip(0).contains("limit"); }));

    click(rows()->topLevelItem(0)); // a day opens nothing
    click(cycle->child(0));
    QVERIFY(waitFor([this] { return dataSet() != nullptr && dataSet()->flight() != nullptr; }));
    QVERIFY(!rows()->isVisible());
    QVERIFY(lists->topLevelItem(3)->child(0)->isSelected());

    lists->setFocus();
    QTest::keyClick(lists, Qt::Key_Escape);
    QVERIFY(rows()->isVisible() && rows()->hasFocus());
    rows()->setCurrentItem(row(1, 0));
    QTest::keyClick(rows(), Qt::Key_Return);
    QVERIFY(waitFor([this] { return dataSet()->flight() == nullptr; }));
    QVERIFY(!rows()->isVisible() && lists->topLevelItem(1)->isSelected());

    // The button beside the tabs goes there and back, and so does a tab.
    auto* const button = m_window->findChild<QToolButton*>("overviewButton");
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(rows()->isVisible() && button->isChecked());
    auto* const tabs = m_window->findChild<DialogData*>()->findChild<QTabBar*>();
    QCOMPARE(tabs->count(), 7);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
    QVERIFY(!rows()->isVisible() && !button->isChecked());
    const DataSet* const before = dataSet();
    QTest::mouseClick(button, Qt::LeftButton);
    click(row(1, 0)); // loaded already
    QVERIFY(!rows()->isVisible() && dataSet() == before);
}

void TestOverview::cancelledAndTakenUpAgain()
{
    SettingsStore::instance().setText("LastPath", folder("many", 28).toUtf8());
    QVERIFY(open());
    auto* const page = m_window->findChild<OverviewPage*>();
    auto* const button = page->findChild<QPushButton*>();
    if (button->isVisible() && button->text() == "Cancel")
        QTest::mouseClick(button, Qt::LeftButton);
    if (button->isVisible()) {
        const QString said = page->findChild<QLabel*>("hint")->text();
        QTest::qWait(60);
        QCOMPARE(page->findChild<QLabel*>("hint")->text(), said); // nothing goes on
        QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(waitFor([&] { return !button->isVisible(); }));
    for (int day = 0; day < rows()->topLevelItemCount() - 1; ++day)
        QVERIFY(!row(day, 0)->text(OverviewTable::Trust).isEmpty());
}

void TestOverview::firstStartTakesADrop()
{
    const QTemporaryDir empty;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(empty.path()));
    SettingsStore::instance().setText("LastPath", ".");
    const bool isOpen = open();
    QDir::setCurrent(before);
    QVERIFY(isOpen);
    auto* const welcome = m_window->findChild<WelcomePanel*>();
    QVERIFY(welcome->isVisible() && !rows()->isVisible());
    QVERIFY(!action(Command::DaySheet)->isEnabled());
    QCOMPARE(m_window->findChild<DialogCard*>()->whyEmpty(), "No folder is open yet.");

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(card())});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    QVERIFY(waitFor([&] { return rows()->isVisible(); }));
    QVERIFY(isFilled());
    QVERIFY(action(Command::DaySheet)->isEnabled());
}

void TestOverview::sampleCardIsReadOnly()
{
    const QTemporaryDir empty;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(empty.path()));
    SettingsStore::instance().setText("LastPath", ".");
    const bool isOpen = open();
    QDir::setCurrent(before);
    QVERIFY(isOpen);
    KOLT::Test::click(*m_window, "Try the sample card");
    QVERIFY(waitFor([&] { return m_window->card().files().size() == 3; }));
    QCOMPARE(m_window->card().cycles().size(), 1U);
    const QString folder = m_window->card().folder();
    QVERIFY(folder.startsWith(QFile::decodeName(DataPaths::instance().dataPath())));
    for (const auto& [name, file] : m_window->card().files())
        QVERIFY(!QFile::permissions(file.path()).testFlag(QFile::WriteOwner));
    QVERIFY(!writeObjection(folder + "/x.txt").isEmpty());
    QCOMPARE(SettingsStore::instance().getText("LastPath"), "."); // the next start is a first one
}

void TestOverview::emptyFolderSaysWhy()
{
    QVERIFY(open()); // a folder without record files
    auto* const welcome = m_window->findChild<WelcomePanel*>();
    QVERIFY(welcome->isVisible());
    QVERIFY(m_window->findChild<DialogCard*>()->whyEmpty().contains(".CAN, .can or .xcb"));
    QStringList buttons;
    for (const auto* button : welcome->findChildren<QPushButton*>()) {
        if (button->isVisible())
            buttons << button->text();
    }
    QCOMPARE(buttons, QStringList{"Open the memory card..."});
    welcome->setVolumes({{"CARD & CO", card()}});
    KOLT::Test::click(*m_window, "Open \"CARD");
    QVERIFY(waitFor([&] { return rows()->isVisible(); }));
}

void TestOverview::removableVolumes_data()
{
    const Rows<QByteArray, QString> row("line", "path");
    row("card", "/dev/sdz1 /media/me/CARD vfat rw 0 0", "/media/me/CARD");
    row("blank", "/dev/sdz1 /run/media/me/MY\\040CARD exfat rw 0 0", "/run/media/me/MY CARD");
    row("network", "server:/x /media/me/server nfs rw 0 0", "");
    row("network with a device's name", "/dev/x /media/me/server cifs rw 0 0", "");
    row("of a program", "/dev/fuse /media/me/server fuse.sshfs rw 0 0", "");
    row("fixed disk", "/dev/nodisk7 /data ext4 rw 0 0", "");
    row("root", "/dev/sdz1 / ext4 rw 0 0", "");
    row("cut", "/dev/sdz1 /media/x", "");
    row("drive letter", "drive E:/ MY\\040CARD 0", "E:/");
}

void TestOverview::removableVolumes()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, path);
    const std::vector<Volume> found = KOLT::removableVolumes("proc /proc proc rw 0 0\n" + line);
    QCOMPARE(found.empty() ? QString() : found.front().path, path);
    QVERIFY(found.size() <= 1);
    if (path == "E:/")
        QCOMPARE(KOLT::removableVolumes(line + "\ndrive F:/  0\n"),
                 (std::vector<Volume>{{"MY CARD", "E:/"}, {"F:/", "F:/"}}));
}

QTEST_MAIN(TestOverview)
#include "tst_overview.moc"
