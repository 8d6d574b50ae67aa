#include "record/CardContainer.h"
#include "record/TrustFinding.h"
#include "record/ui/DialogCard.h"
#include "resources/Resources.h"
#include "tests/support/RecordingFixture.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QStyleOption>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

using namespace KOLT;
using namespace KOLT::Test;

Q_DECLARE_METATYPE(std::list<QString>)

/// Operates the panel with the mouse, on a small card of two days.
class TestDialogCard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cyclesAreGroupedByDay();
    void rawDataTellsTheHeaders();
    void wholeCycleListsItsFlights();
    void flightKeepsTheList();
    void onlyWhatFailedIsAskedForAgain();
    void severalFilesAreOneRequest();
    void headingsAndDetailsAskForNothing();
    void marksTellFindings();
    void narrowListKeepsDurations();
    void emptyFolderSaysSo();

private:
    static QStringList texts(const QTreeWidget* tree)
    {
        QStringList result;
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            result << tree->topLevelItem(i)->text(0);
        return result;
    }

    QTreeWidget* tree(int tab) const
    {
        return m_dialog->findChild<QTabWidget*>()->widget(tab)->findChild<QTreeWidget*>();
    }

    void click(QTreeWidgetItem* item, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton) const
    {
        QTreeWidget* const widget = item->treeWidget();
        m_dialog->findChild<QTabWidget*>()->setCurrentIndex(widget == tree(0) ? 0 : 1);
        widget->scrollToItem(item);
        QTest::mouseClick(widget->viewport(), button, modifiers,
                          widget->visualItemRect(item).center());
    }

    void write(const QString& name, const RecordBytes& record) const
    {
        QVERIFY(writeFile(m_folder.filePath(name), record.bytes()));
    }

    QTreeWidgetItem* cycleItem(int index) const { return tree(0)->topLevelItem(index); }

    QTemporaryDir m_folder;
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<CardContainer> m_card;
    std::unique_ptr<DialogCard> m_dialog;
    std::unique_ptr<QSignalSpy> m_cycles;
    std::unique_ptr<QSignalSpy> m_records;
};

void TestDialogCard::initTestCase()
{
    initKoltResources();
    qRegisterMetaType<std::list<QString>>("std::list<QString>");
    RecordBytes tow;
    for (int t = 0; t < 400; ++t) {
        const bool isFlying = (t >= 100 && t < 150) || (t >= 250 && t < 300);
        tow.sample(1, t, floats(isFlying ? 100.0F : 0.0F));
    }
    RecordBytes later = RecordBytes().date(2026, 7, 1, 8, 10, 0).busType(3000000000U);
    later.ecuSerial(77).text(0, "PA").text(1, "TYPE").text(2, "SER").text(5, "1.2").sample(1, 400);
    write("1.CAN", tow);
    write("2.CAN", later.sample(1, 4000));
    write("3.CAN", RecordBytes().sample(2, 60));
    write("4.CAN", RecordBytes().date(2026, 7, 1, 12).sample(2, 60));
    write("5.CAN", RecordBytes().sample(2, 1));
    write("6.CAN", RecordBytes().date(2026, 7, 2, 9).sample(2, 60));
    write("7.CAN", RecordBytes());
}

void TestDialogCard::init()
{
    m_profile = std::make_unique<Profile>();
    QVERIFY(loadProfile(*m_profile, device({"name='v' id='1' dataType='FLOAT' "
                                            "koltDataType='GroundSpeed'"})));
    m_card = std::make_unique<CardContainer>(*m_profile);
    QVERIFY(m_card->readContainer(m_folder.path()));
    m_dialog = std::make_unique<DialogCard>(*m_card);
    m_dialog->resize(400, 700);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    // Loads while the signal is delivered, like the main window.
    connect(m_dialog.get(), &DialogCard::signalLoadCycle, m_dialog.get(),
            [this](unsigned int cycle, int flight) {
                if (flight < 0)
                    m_card->loadCycle(static_cast<int>(cycle));
            });
    m_cycles = std::make_unique<QSignalSpy>(m_dialog.get(), &DialogCard::signalLoadCycle);
    m_records = std::make_unique<QSignalSpy>(m_dialog.get(), &DialogCard::signalLoadRecord);
}

void TestDialogCard::cleanup()
{
    m_cycles.reset();
    m_records.reset();
    m_dialog.reset();
}

void TestDialogCard::cyclesAreGroupedByDay()
{
    QCOMPARE(texts(tree(0)), (QStringList{"01.07.2026", "Cycle 1       1.7.2026 8:03:21 (01:06:40)",
                                          "Cycle 2       1.7.2026 11:59:00 (00:00:00)",
                                          "02.07.2026", "Cycle 3       2.7.2026 8:59:59 (00:00:59)",
                                          "Unknown Date", "Cycle 4        (00:00:00)"}));
    QCOMPARE(cycleItem(0)->background(0).color(), QColor(195, 171, 99));
    QCOMPARE(cycleItem(0)->font(0).pixelSize(), 20);
    QCOMPARE(cycleItem(0)->flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
    QCOMPARE(cycleItem(4)->data(0, Qt::UserRole).toUInt(), 3U);
    QCOMPARE(cycleItem(4)->data(0, Qt::UserRole + 1).toInt(), -1);
    QVERIFY(!cycleItem(1)->icon(0).pixmap(16).isNull());
}

void TestDialogCard::rawDataTellsTheHeaders()
{
    QCOMPARE(texts(tree(1)).mid(0, 3),
             (QStringList{"01.07.2026", "1.CAN   1.7.2026 8:03:21", "2.CAN   1.7.2026 8:10:00"}));
    QCOMPARE(texts(tree(1)).last(), "7.CAN   ");
    const QTreeWidgetItem* const opening = tree(1)->topLevelItem(1);
    const QTreeWidgetItem* const file = tree(1)->topLevelItem(2);
    QVERIFY(opening->font(0).bold() && !file->font(0).bold());
    QCOMPARE(file->data(0, Qt::UserRole).toString(), m_folder.filePath("2.CAN"));
    QCOMPARE(file->toolTip(0), "Start Time: 00:06:40\nStop Time: 01:06:40");
    QStringList details;
    for (int i = 0; i < file->childCount(); ++i)
        details << file->child(i)->text(0);
    QCOMPARE(details, (QStringList{"Date: 1.7.2026 8:10:00", "Start Time: 00:06:40",
                                   "Stop Time: 01:06:40", "Bus Type: 3000000000",
                                   "ECU Serial Number: 77", "Software Part Nr. A: PA",
                                   "Software Part Nr. B: ", "ECU Type: TYPE", "EMU SW Version: 1.2",
                                   "Engine Serial Nr.: SER", "Engine Type: ", "Samples Total: 2"}));
    QCOMPARE(tree(1)->parentWidget()->findChild<QLineEdit*>()->text(), m_folder.path());
}

void TestDialogCard::wholeCycleListsItsFlights()
{
    click(cycleItem(1));
    QCOMPARE(m_cycles->count(), 0); // waits until the selection is settled
    QVERIFY(m_cycles->wait());
    QCOMPARE(m_cycles->at(0), (QVariantList{1U, -1}));
    const QTreeWidgetItem* const cycle = cycleItem(1);
    QTRY_COMPARE(cycle->childCount(), 2);
    QVERIFY(cycle->isExpanded());
    QCOMPARE(cycle->child(0)->text(0), "Flight 1 08:05:12 (00:01:49)");
    QCOMPARE(cycle->child(1)->data(0, Qt::UserRole + 1).toInt(), 1);

    click(cycleItem(2)); // a cycle without flights
    QVERIFY(m_cycles->wait());
    QCOMPARE(cycleItem(2)->childCount(), 0);
    QCOMPARE(cycle->childCount(), 2);
}

void TestDialogCard::flightKeepsTheList()
{
    click(cycleItem(1));
    QTRY_COMPARE(cycleItem(1)->childCount(), 2);
    QTreeWidgetItem* const flight = cycleItem(1)->child(1);
    click(flight);
    QVERIFY(m_cycles->wait());
    QCOMPARE(m_cycles->last(), (QVariantList{1U, 1}));
    QCOMPARE(cycleItem(1)->child(1), flight); // not rebuilt
    click(cycleItem(1));
    QVERIFY(m_cycles->wait());
    QCOMPARE(m_cycles->last(), (QVariantList{1U, -1}));
    QTRY_COMPARE(cycleItem(1)->childCount(), 2);
}

void TestDialogCard::onlyWhatFailedIsAskedForAgain()
{
    click(cycleItem(1));
    QVERIFY(m_cycles->wait());
    click(cycleItem(1));
    click(cycleItem(1), {}, Qt::RightButton);
    QVERIFY(!m_cycles->wait(700));
    m_dialog->setChoiceFailed();
    click(cycleItem(1));
    QVERIFY(m_cycles->wait());
    QCOMPARE(m_cycles->last(), (QVariantList{1U, -1}));
    click(cycleItem(1));
    QVERIFY(!m_cycles->wait(700));
}

void TestDialogCard::severalFilesAreOneRequest()
{
    click(tree(1)->topLevelItem(1));
    click(tree(1)->topLevelItem(2), Qt::ControlModifier);
    click(tree(1)->topLevelItem(4), Qt::ControlModifier);
    QVERIFY(m_records->wait());
    QCOMPARE(m_records->count(), 1);
    const auto paths = m_records->at(0).at(0).value<std::list<QString>>();
    QCOMPARE(paths.size(), 3U);
    QVERIFY(std::ranges::count(paths, m_folder.filePath("4.CAN")) == 1);
    QCOMPARE(m_cycles->count(), 0);
}

void TestDialogCard::headingsAndDetailsAskForNothing()
{
    click(cycleItem(0));
    QTreeWidgetItem* const file = tree(1)->topLevelItem(2);
    file->setExpanded(true);
    click(file->child(3));
    click(tree(1)->topLevelItem(0));
    QVERIFY(!m_records->wait(700));
    QCOMPARE(m_cycles->count(), 0);
    QVERIFY(tree(1)->selectedItems().isEmpty());
    click(cycleItem(1));
    m_dialog->refresh(); // cancels the pending choice
    QVERIFY(!m_cycles->wait(700));
    QVERIFY(tree(0)->selectedItems().isEmpty());
    // Of several selections only the last one is sent.
    click(cycleItem(1));
    QTest::keyClick(tree(0), Qt::Key_Down);
    click(cycleItem(4));
    QVERIFY(m_cycles->wait());
    QVERIFY(!m_cycles->wait(700));
    QCOMPARE(m_cycles->count(), 1);
    QCOMPARE(m_cycles->at(0), (QVariantList{3U, -1}));
}

void TestDialogCard::marksTellFindings()
{
    const auto finding = [](TrustKind kind, const QString& text) {
        TrustFinding result;
        result.kind = kind;
        result.text = text;
        return result;
    };
    QVERIFY(m_card->loadCycle(1));
    m_dialog->setTrust(1, {finding(TrustKind::NeverRecorded, "a note")});
    QVERIFY(tree(0)->isColumnHidden(1)); // as it always was
    TrustFinding hole = finding(TrustKind::Hole, "a <hole>");
    hole.files = {"2.CAN"};
    hole.marks = {{1, Figure::Fuel}};
    m_dialog->setTrust(1, {finding(TrustKind::NeverRecorded, "a note"), hole,
                           finding(TrustKind::MissingFile, "a file")});
    m_dialog->setTrust(2, {hole});
    m_dialog->listFlights(1);
    const auto look = [](const QTreeWidgetItem* item) {
        return item->icon(1).isNull() ? QImage() : item->icon(1).pixmap(16).toImage();
    };
    QTreeWidgetItem* const cycle = cycleItem(1);
    QCOMPARE(cycle->toolTip(1), "<p>a file</p><p>a &lt;hole&gt;</p><p>a note</p>"); // worst first
    QVERIFY(look(cycle) != look(cycleItem(2)) && !look(cycleItem(2)).isNull());
    QVERIFY(look(cycle->child(0)).isNull() && look(cycleItem(4)).isNull());
    QCOMPARE(look(cycle->child(1)), look(cycleItem(2)));
    QCOMPARE(tree(1)->topLevelItem(2)->toolTip(1), "<p>a &lt;hole&gt;</p>"); // told by two, once
    QVERIFY(look(tree(1)->topLevelItem(1)).isNull());

    QSignalSpy clicked(m_dialog.get(), &DialogCard::signalCycleMark);
    QSignalSpy file(m_dialog.get(), &DialogCard::signalFileMark);
    const auto clickMark = [](QTreeWidgetItem* item) {
        QTreeWidget* const widget = item->treeWidget();
        const int x = widget->columnViewportPosition(1) + widget->columnWidth(1) / 2;
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, {},
                          {x, widget->visualItemRect(item).center().y()});
    };
    clickMark(cycle->child(1));
    QCOMPARE(clicked.value(0), (QVariantList{1U, 1}));
    m_dialog->findChild<QTabWidget*>()->setCurrentIndex(1);
    clickMark(tree(1)->topLevelItem(2));
    QCOMPARE(file.value(0), QVariantList{"2.CAN"});
    QVERIFY(tree(0)->selectedItems().isEmpty() && tree(1)->selectedItems().isEmpty());
    m_dialog->setTrust(1, {});
    m_dialog->setTrust(2, {});
    QVERIFY(look(cycle).isNull() && look(tree(1)->topLevelItem(2)).isNull());
}

void TestDialogCard::narrowListKeepsDurations()
{
    struct Texts : QProxyStyle
    {
        void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const override
        {
            const auto* const item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
            if (item != nullptr && item->text.startsWith("Cycle 1") && last != item->text)
                shown << (last = item->text);
            QProxyStyle::drawControl(element, option, painter, widget);
        }

        mutable QStringList shown;
        mutable QString last;
    } style;

    tree(0)->setStyle(&style);
    for (int width = 500; width > 160; width -= 10) {
        m_dialog->resize(width, 700);
        m_dialog->grab();
    }
    QCOMPARE(style.shown,
             (QStringList{"Cycle 1       1.7.2026 8:03:21 (01:06:40)",
                          "Cycle 1 1.7.2026 8:03:21 (01:06:40)", "Cycle 1 8:03:21 (01:06:40)",
                          "Cycle 1 8:03 (01:06:40)", "Cycle 1 (01:06:40)"}));
    m_dialog.reset(); // before the style
}

void TestDialogCard::emptyFolderSaysSo()
{
    const auto said = [this] {
        const auto* const note =
            tree(0)->parentWidget()->findChild<QLabel*>(); // shown instead of the tree
        return note->isVisible() ? note->text() : QString();
    };
    QCOMPARE(said(), "");
    const QTemporaryDir empty;
    QVERIFY(m_card->readContainer(empty.path()));
    m_dialog->refresh();
    QVERIFY(said().startsWith("No record files in this folder"));
    QVERIFY(QDir(empty.path()).removeRecursively());
    m_dialog->refresh();
    QVERIFY(said().contains("no longer exists"));
    QVERIFY(m_card->readContainer(m_folder.path()));
    m_dialog->refresh();
    QCOMPARE(said(), "");

    CardContainer none(*m_profile);
    m_dialog = std::make_unique<DialogCard>(none);
    m_dialog->show();
    QVERIFY(said().contains("No folder is open"));
    m_dialog->setMissingFolder("/gone/<h1>card");
    QVERIFY(said().contains("/gone/<h1>card\ncannot be found"));
    m_dialog.reset();
}

QTEST_MAIN(TestDialogCard)
#include "tst_dialogcard.moc"
