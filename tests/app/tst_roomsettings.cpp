#include "app/settings/DataPaths.h"
#include "app/settings/ExportSettingsStore.h"
#include "app/settings/GraphSettingsStore.h"
#include "app/settings/InstalledProfile.h"
#include "app/settings/MapSettingsStore.h"
#include "app/settings/PageSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "app/settings/WindowState.h"
#include "tests/support/TestFiles.h"

#include <QTest>

using namespace KOLT;
using namespace KOLT::Test;

/// Stores the settings of the rooms in a file and loads them again.
class TestRoomSettings : public QObject
{
    Q_OBJECT

private slots:
    void graph();
    void graphNumbersThatCannotBe();
    void map();
    void lists();
    void window_data();
    void window();
    void pages();
    void newestProfile_data();
    void newestProfile();

private:
    /// Saves the store and reads the file into another.
    void saveAndLoad(SettingsStore& from, SettingsStore& to)
    {
        const DiagnosticsCapture output;
        from.setFileName(QFile::encodeName(m_home.filePath("KOLT.ini")));
        to.setFileName(from.fileName());
        QVERIFY(from.save());
        QVERIFY(to.load());
    }

    QTemporaryDir m_home;
};

void TestRoomSettings::graph()
{
    GraphSettings settings;
    settings.timeSpan = 12.5;
    settings.cursorMode = CursorMode{2};
    settings.yMinimum = -1234567.125;
    settings.yMaximum = 0.1;
    settings.background = QColor(0x10, 0x20, 0x30);
    settings.isSplit = !settings.isSplit;
    settings.isWhole = !settings.isWhole;
    settings.hasLegend = !settings.hasLegend;
    settings.isAutomatic = !settings.isAutomatic;
    SettingsStore stored;
    storeGraphSettings(settings, stored);
    SettingsStore file;
    saveAndLoad(stored, file);
    const GraphSettings loaded = loadGraphSettings(file);
    QCOMPARE(loaded.timeSpan, 12.5);
    QCOMPARE(int(loaded.cursorMode), 2);
    QCOMPARE(loaded.yMinimum, -1234567.125);
    QCOMPARE(loaded.yMaximum, 0.1);
    QCOMPARE(loaded.background, QColor(0x10, 0x20, 0x30));
    QCOMPARE(loaded.isSplit, settings.isSplit);
    QCOMPARE(loaded.isWhole, settings.isWhole);
    QCOMPARE(loaded.hasLegend, settings.hasLegend);
    // Not stored: no visible button would turn the automatic mode on again.
    QCOMPARE(loaded.isAutomatic, GraphSettings().isAutomatic);
}

void TestRoomSettings::graphNumbersThatCannotBe()
{
    SettingsStore store;
    for (const char* key : {"GraphTimeSpan", "GraphYMinimum", "GraphYMaximum"})
        store.setText(key, "nan");
    store.setText("GraphCursorMode", "77");
    const GraphSettings loaded = loadGraphSettings(store);
    QCOMPARE(loaded.timeSpan, GraphSettings().timeSpan);
    QCOMPARE(loaded.yMinimum, 0.0);
    QCOMPARE(loaded.yMaximum, 0.0);
    QCOMPARE(int(loaded.cursorMode), 2);
}

void TestRoomSettings::map()
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    qunsetenv("KOLT_OFFLINE"); // whoever runs the tests may have it
    const DiagnosticsCapture output;
    SettingsStore store;
    store.setText("TileServer", "http://127.0.0.1/");
    store.setText("MapShadingFactor", "5");
    MapSettings loaded = loadMapSettings(store);
    QCOMPARE(loaded.tileServer, "http://127.0.0.1/");
    QCOMPARE(loaded.shadingFactor, 5.0);
    QCOMPARE(loaded.shadingContrast, 1.0);
#ifndef Q_OS_WIN // whose data folder is not in the environment
    QVERIFY(loaded.tileDirectory.startsWith(m_home.path()));
#endif
    QVERIFY2(loaded.userAgent.startsWith("KOLT/2."), loaded.userAgent.constData());
    QVERIFY(loaded.isNetworkEnabled);
    qputenv("KOLT_OFFLINE", "1");
    QVERIFY(!loadMapSettings(store).isNetworkEnabled);
}

void TestRoomSettings::lists()
{
    SettingsStore stored;
    CsvOptions options;
    options.separator = '|';
    storeCsvOptions(options, stored);
    storeExportFolder("/somewhere", "Csv", stored);
    SettingsStore file;
    saveAndLoad(stored, file);
    QCOMPARE(loadListSettings(file).separator, QChar('|'));
    QCOMPARE(loadListSettings(file).folder, "/somewhere");
    QCOMPARE(loadExportFolder(file, "Kml"), ".");
}

void TestRoomSettings::window_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    for (const auto& [key, values] : {std::pair{"WindowWidth", "-1000|0|12|1e9|wide"},
                                      {"WindowHeight", "0|99999999999"},
                                      {"WindowPanels", "0 5|7|1 2 3|-1 5|a b|99999 1"},
                                      {"WindowMap", "-1|3"},
                                      {"WindowPage", "-1|7"},
                                      {"WindowColumns", "9 A|x A|-80 A|99999 A"}}) {
        for (const QByteArray& value : QByteArray(values).split('|'))
            QTest::addRow("%s %s", key, value.constData()) << QByteArray(key) << value;
    }
}

void TestRoomSettings::window()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    const WindowState state{{640, 480}, true, {1, 2}, {3, 4}, {5, 0}, 2, 6, {{"A b", 80}}};
    SettingsStore store;
    SettingsStore file;
    storeWindowState(state, store);
    saveAndLoad(store, file);
    QVERIFY(loadWindowState(file) == state);
    SettingsStore broken;
    broken.setText(key, value);
    QVERIFY(loadWindowState(broken) == WindowState());
}

void TestRoomSettings::pages()
{
    SettingsStore stored;
    SettingsStore file;
    storePageSettings({true, 65}, stored);
    saveAndLoad(stored, file);
    QCOMPARE(loadPageSettings(file), (PageSettings{true, 65}));
    file.setText("ListCardPercent", "7000");
    QCOMPARE(loadPageSettings(file).cardPercent, 90);
}

void TestRoomSettings::newestProfile_data()
{
    using InstalledProfile::Newest;
    QTest::addColumn<QByteArray>("remembered"); ///< what was installed; empty: nothing
    QTest::addColumn<QByteArray>("installed");
    QTest::addColumn<Newest>("expected");
    const QByteArray old = "<KorvanProfile profileId='I' version='2.9'/>";
    QTest::newRow("as shipped") << old << old << Newest::Replaced;
    QTest::newRow("edited") << old << old + ' ' << Newest::Edited;
    QTest::newRow("nothing known of it") << QByteArray() << old << Newest::Edited;
    for (const char* other : {"profileId='J' version='1'", "profileId='I' version='2.11'"})
        QTest::newRow(other) << QByteArray("x") << QByteArray("<KorvanProfile ") + other + "/>"
                             << Newest::InUse;
    QTest::newRow("no profile") << QByteArray() << QByteArray("my own") << Newest::InUse;
}

void TestRoomSettings::newestProfile()
{
    using InstalledProfile::Newest;
    using InstalledProfile::takeNewest;
    QFETCH(const QByteArray, remembered);
    QFETCH(const QByteArray, installed);
    QFETCH(const Newest, expected);
    const DiagnosticsCapture output;
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    const QString path = InstalledProfile::path();
    const QString backup = path + ".bak";
    for (const QString& file : {path, backup, path + ".shipped"})
        QFile::remove(file);
    const QString shipped = m_home.filePath("shipped.xml");
    if (!remembered.isEmpty()) {
        QVERIFY(writeFile(shipped, remembered) && writeFile(path, remembered));
        QCOMPARE(takeNewest(shipped), Newest::InUse); // notes what it is
    }
    const QByteArray newer = "<KorvanProfile profileId='I' version='2.10'><Device name='D'>"
                             "<Parameter name='p'/></Device></KorvanProfile>";
    QVERIFY(writeFile(shipped, newer) && writeFile(path, installed));
    QCOMPARE(takeNewest(shipped), expected);
    const bool isReplaced = expected == Newest::Replaced;
    QCOMPARE(readFile(path), isReplaced ? newer : installed);
    QCOMPARE(readFile(backup), isReplaced ? installed : QByteArray());
    QCOMPARE(takeNewest(shipped), isReplaced ? Newest::InUse : expected);
}

QTEST_GUILESS_MAIN(TestRoomSettings)
#include "tst_roomsettings.moc"
