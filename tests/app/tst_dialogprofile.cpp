#include "app/DialogProfile.h"
#include "record/DataSet.h"
#include "tests/support/Buttons.h"
#include "tests/support/RecordingFixture.h"

#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTreeWidget>

using namespace KOLT;
using namespace KOLT::Test;

class TestDialogProfile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { m_panel.reset(); }

    void checksAreADraftUntilConfirmed();
    void devicesAreTristate();
    void filterHidesAndProtects();
    void listTakesOut();
    void refreshFollowsTheProfile();
    void draftOutlivesTheVariant();
    void listFollowsTheGraph();
    void whatTheDataLackIsMarked();

private:
    QStringList selected() const
    {
        QStringList names;
        for (const ProfileParameter* parameter : m_profile.selectedParameters())
            names << parameter->fullName;
        return names;
    }

    QTreeWidgetItem* item(const QString& name) const
    {
        return m_tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }

    /// Clicks the check box of an item.
    void toggle(const QString& name)
    {
        QTreeWidgetItem* const wanted = item(name);
        m_tree->scrollToItem(wanted);
        const QRect rect = m_tree->visualItemRect(wanted);
        QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, {},
                          QPoint(rect.left() + 10, rect.center().y()));
        QCoreApplication::processEvents(); // the draft is updated by a timer
    }

    Profile m_profile;
    std::unique_ptr<DialogProfile> m_panel;
    QTreeWidget* m_tree = nullptr;
};

void TestDialogProfile::init()
{
    QVERIFY(loadProfile(m_profile, "<Device name='Engine'><Parameter name='Speed' id='1'/>"
                                   "<Parameter name='Oil' id='2'/></Device><Device name='GPS'>"
                                   "<Parameter name='Speed over ground' id='3'/></Device>"));
    m_profile.select([](const ProfileParameter& parameter) { return parameter.name == "Oil"; });
    m_panel = std::make_unique<DialogProfile>(m_profile);
    m_tree = m_panel->findChild<QTreeWidget*>();
    m_panel->resize(300, 500);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    m_tree->expandAll();
}

void TestDialogProfile::checksAreADraftUntilConfirmed()
{
    const QSignalSpy changed(m_panel.get(), &DialogProfile::signalChanged);
    auto* const confirm = labelled(*m_panel, "Confirm Selection");
    QVERIFY(!confirm->isEnabled());
    toggle("Speed over ground");
    QCOMPARE(item("Speed over ground")->checkState(0), Qt::Checked);
    QCOMPARE(selected(), QStringList{"Engine/Oil"});
    QVERIFY(confirm->isEnabled());
    click(*m_panel, "Confirm Selection");
    QCOMPARE(selected(), (QStringList{"Engine/Oil", "GPS/Speed over ground"}));
    QCOMPARE(changed.size(), 1);
    QVERIFY(!confirm->isEnabled());
    click(*m_panel, "Clear");
    QCOMPARE(item("Oil")->checkState(0), Qt::Unchecked);
    QCOMPARE(selected().size(), 2);
    click(*m_panel, "Confirm Selection");
    QCOMPARE(selected(), QStringList());
}

void TestDialogProfile::devicesAreTristate()
{
    QCOMPARE(item("Engine")->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(item("GPS")->checkState(0), Qt::Unchecked);
    toggle("Speed");
    QCOMPARE(item("Engine")->checkState(0), Qt::Checked);
    toggle("Engine");
    QCOMPARE(item("Oil")->checkState(0), Qt::Unchecked);
}

void TestDialogProfile::filterHidesAndProtects()
{
    auto* const filter = m_panel->findChild<QLineEdit*>();
    QTest::keyClicks(filter, "speed");
    QVERIFY(item("Oil")->isHidden());
    QVERIFY(!item("Speed over ground")->isHidden());
    toggle("Engine"); // must not change filtered-out items
    QCOMPARE(item("Oil")->checkState(0), Qt::Checked);
    QCOMPARE(item("Speed")->checkState(0), Qt::Unchecked);
    toggle("Speed");
    filter->clear();
    QTest::keyClicks(filter, "gps"); // a matching device shows all its parameters
    QVERIFY(item("Engine")->isHidden());
    QVERIFY(!item("Speed over ground")->isHidden());
    item("GPS")->setExpanded(false);
    filter->clear();
    QVERIFY(!item("Oil")->isHidden());
    QVERIFY(item("Engine")->isExpanded()); // as before the filter
    QVERIFY(item("GPS")->isExpanded());
    click(*m_panel, "Confirm Selection");
    QCOMPARE(selected(), (QStringList{"Engine/Oil", "Engine/Speed"}));
}

void TestDialogProfile::listTakesOut()
{
    toggle("Speed");
    auto* const list = m_panel->findChild<QListWidget*>();
    QCOMPARE(list->count(), 2);
    list->setCurrentRow(1);
    for (QAction* action : list->actions())
        action->trigger();
    QCOMPARE(list->count(), 1);
    QCOMPARE(item("Speed")->checkState(0), Qt::Unchecked);
}

void TestDialogProfile::refreshFollowsTheProfile()
{
    m_profile.select([](const ProfileParameter& parameter) { return parameter.id == 3; });
    m_panel->refresh();
    QCOMPARE(item("Oil")->checkState(0), Qt::Unchecked);
    QCOMPARE(m_panel->findChild<QListWidget*>()->item(0)->text(), "GPS/Speed over ground");
}

void TestDialogProfile::draftOutlivesTheVariant()
{
    const QByteArray both = "<Device name='E'><Parameter name='a' id='1'/>"
                            "<Parameter name='b' id='2'/><Parameter name='c' id='3'/></Device>";
    const auto load = [&](const QByteArray& devices) {
        QVERIFY(loadProfile(m_profile, devices));
        m_profile.select([](const ProfileParameter& parameter) { return parameter.id == 1; });
        m_panel->reload();
    };
    load(both);
    m_panel->refresh();
    for (const char* name : {"a", "c"})
        item(name)->setCheckState(0, item(name)->checkState(0) == Qt::Checked ? Qt::Unchecked
                                                                              : Qt::Checked);
    load("<Device name='E'><Parameter name='b' id='2'/></Device>");
    load(both);
    QCOMPARE(item("a")->checkState(0), Qt::Unchecked);
    QCOMPARE(item("b")->checkState(0), Qt::Unchecked);
    QCOMPARE(item("c")->checkState(0), Qt::Checked);
    m_panel->refresh(); // as for another project
    QCOMPARE(item("a")->checkState(0), Qt::Checked);
}

void TestDialogProfile::listFollowsTheGraph()
{
    auto* const list = m_panel->findChild<QListWidget*>();
    const auto listed = [&] {
        QStringList names;
        for (int i = 0; i < list->count(); ++i)
            names << list->item(i)->text().section('/', 1);
        return names.join(", ");
    };
    m_profile.select([](const ProfileParameter& parameter) { return parameter.name != "Oil"; });
    m_profile.setDisplayOrder({"GPS/Speed over ground", "Engine/Speed"});
    m_panel->refresh();
    toggle("Oil"); // not in the graph yet
    QCOMPARE(listed(), "Speed over ground, Speed, Oil");
    m_profile.setDisplayOrder({"Engine/Speed", "GPS/Speed over ground"});
    m_panel->refreshOrder();
    QCOMPARE(listed(), "Speed, Speed over ground, Oil");
    m_profile.setDisplayOrder({});
}

void TestDialogProfile::whatTheDataLackIsMarked()
{
    DataSet dataSet;
    add(dataSet.messages, 1, 0.0);
    const auto marked = [&](const QString& name) {
        return item(name)->font(0).italic() && item(name)->toolTip(0).contains("no samples");
    };
    const auto* const list = m_panel->findChild<QListWidget*>();
    m_panel->showData(&dataSet);
    QVERIFY(marked("Oil") && !marked("Speed"));
    QVERIFY(list->item(0)->font().italic());
    toggle("Speed"); // a check keeps the marks
    QVERIFY(marked("Oil") && !list->item(1)->font().italic());
    m_panel->showData(nullptr);
    QVERIFY(!marked("Oil") && !list->item(0)->font().italic());
}

QTEST_MAIN(TestDialogProfile)
#include "tst_dialogprofile.moc"
