#include "app/dialogs/DialogPreferences.h"
#include "app/settings/MapSettingsStore.h"
#include "map/ui/DialogDataMap.h"
#include "map/ui/WidgetMap.h"
#include "tests/app/MainWindowFixture.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace KOLT;
using namespace KOLT::Test;

/// The map's connections to the other pages and the settings.
class TestMapJoins : public QObject, private MainWindowFixture
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

    void pickedMomentReachesThePages();
    void settingsReachTheMap();
    void foldingIsStored();
    void noteOpensThePreferences();
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

void TestMapJoins::foldingIsStored()
{
    QVERIFY(open());
    auto* const map = m_window->findChild<DialogDataMap*>();
    for (const bool areShown : {false, true}) {
        MapSettings settings = map->settings();
        settings.areValuesShown = areShown;
        emit map->signalSettings(settings);
        QCOMPARE(loadMapSettings(SettingsStore::instance()).areValuesShown, areShown);
    }
}

/// A folder that is tested and applied there is what the map shows.
void TestMapJoins::noteOpensThePreferences()
{
    QVERIFY(open());
    auto* const map = m_window->findChild<DialogDataMap*>();
    emit map->signalOpenSettings();
    auto* const preferences = m_window->findChild<DialogPreferences*>();
    QVERIFY(preferences->isVisible());
    auto* const address = preferences->findChild<QLineEdit*>(QStringLiteral("tileServer"));
    QTRY_VERIFY(address->hasFocus());
    const QString tiles = folder("tiles");
    QVERIFY(QDir().mkpath(tiles + "/3/1"));
    QImage picture(256, 256, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(tiles + "/3/1/2.png"));
    address->setText(tiles);
    preferences->findChild<QPushButton*>(QStringLiteral("tileTest"))->click();
    const auto* const result = preferences->findChild<QLabel*>(QStringLiteral("tileResult"));
    QVERIFY(result->isVisible());
    QVERIFY(result->text().endsWith("The folder has tiles of zoom 3."));
    address->setText("http://127.0.0.1:9");
    QVERIFY(!result->isVisible());
    address->setText(tiles);
    preferences->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    QCOMPARE(map->widget().map().tiles().server().folder(), tiles);
    QCOMPARE(map->widget().map().attribution(), "tiles");
}

QTEST_MAIN(TestMapJoins)
#include "tst_mapjoins.moc"
