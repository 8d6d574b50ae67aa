#include "app/dialogs/DialogPreferences.h"
#include "map/ui/DialogDataMap.h"
#include "map/ui/WidgetMap.h"
#include "tests/app/MainWindowFixture.h"

using namespace KOLT;
using namespace KOLT::Test;

/// The map's connections to the other pages and the settings.
class TestMapJoins : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init() { QVERIFY(prepare()); }

    void cleanup() { m_window.reset(); }

    void pickedMomentReachesThePages();
    void settingsReachTheMap();
};

void TestMapJoins::pickedMomentReachesThePages()
{
    QVERIFY(openCycle(folder("card")));
    auto* const map = m_window->findChild<DialogDataMap*>();
    emit map->widget().signalTime(7.0);
    auto* const window = m_window->findChild<DialogData*>();
    QCOMPARE(window->time(), 7.0);
    for (std::size_t page = 0; page < DialogData::pageCount; ++page) {
        if (static_cast<DialogData::Page>(page) != DialogData::Page::Statistic)
            QCOMPARE(window->page(static_cast<DialogData::Page>(page)).time(), 7.0);
    }
}

void TestMapJoins::settingsReachTheMap()
{
    SettingsStore::instance().setText("TileServer", "http://127.0.0.1:9");
    QVERIFY(open());
    Tessa::TessaMap& map = m_window->findChild<DialogDataMap*>()->widget().map();
    QCOMPARE(map.attribution(), "127.0.0.1");
    SettingsStore::instance().setText("TileServer", "http://127.0.0.2:9");
    emit m_window->findChild<DialogPreferences*>()->signalMapChanged();
    QCOMPARE(map.attribution(), "127.0.0.2");
}

QTEST_MAIN(TestMapJoins)
#include "tst_mapjoins.moc"
