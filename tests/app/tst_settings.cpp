#include "app/base/XmlFile.h"
#include "app/settings/CommandLineOptions.h"
#include "app/settings/SettingsStore.h"
#include "tests/support/TestFiles.h"

#include <QTest>

#include <vector>

using namespace KOLT;
using namespace KOLT::Test;

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void typedValues_data();
    void typedValues();
    void loadsDirectPropertiesOnly();
    void savedFileReadsBackTheSame();
    void unusableFileIsKeptAside_data();
    void unusableFileIsKeptAside();
    void failedSaveLeavesTheOldFile();
    void commandLine_data();
    void commandLine();
    void usageShowsCurrentValues();

private:
    QByteArray fileName() const { return QFile::encodeName(m_directory->filePath("KOLT.ini")); }

    SettingsStore& loadedFrom(const QByteArray& content);

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<SettingsStore> m_store;
    std::unique_ptr<DiagnosticsCapture> m_output;
};

void TestSettings::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<SettingsStore>();
    m_store->setFileName(fileName());
    m_output.reset();
    m_output = std::make_unique<DiagnosticsCapture>();
}

SettingsStore& TestSettings::loadedFrom(const QByteArray& content)
{
    writeFile(QFile::decodeName(fileName()), content);
    m_store->load();
    return *m_store;
}

void TestSettings::typedValues_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("integer");
    QTest::addColumn<bool>("boolean");
    QTest::addColumn<double>("number");

    QTest::newRow("true") << QByteArray("true") << 0 << true << 0.0;
    QTest::newRow("TRUE") << QByteArray("TRUE") << 0 << true << 0.0;
    QTest::newRow("tRUE is no boolean") << QByteArray("tRUE") << 0 << false << 0.0;
    QTest::newRow("1 is not true") << QByteArray("1") << 1 << false << 1.0;
    QTest::newRow("leading digits count") << QByteArray("12px") << 12 << false << 12.0;
    QTest::newRow("sign and fraction") << QByteArray("-2.75") << -2 << false << -2.75;
    QTest::newRow("too large") << QByteArray("99999999999") << 2147483647 << false << 99999999999.0;
}

void TestSettings::typedValues()
{
    QFETCH(QByteArray, text);
    m_store->setText("key", text);
    QTEST(m_store->getInteger("key", 7), "integer");
    QTEST(m_store->getBoolean("key", true), "boolean");
    QTEST(m_store->getDouble("key", 7.0), "number");
    QCOMPARE(m_store->getInteger("KEY", 7), 7);
    QVERIFY(m_store->getBoolean("KEY", true));
    QCOMPARE(m_store->getDouble("KEY", 0.5), 0.5);
}

void TestSettings::loadsDirectPropertiesOnly()
{
    SettingsStore& store =
        loadedFrom("<AnyRoot><Property id='a' value='1'/><property id='b' value='1'/>"
                   "<Group><Property id='c' value='1'/></Group>"
                   "<Property id='a' value='2'/><Property id='d'/><x:any y:z='1'/></AnyRoot>");
    QCOMPARE(store.getText("a"), QByteArray("2"));
    QCOMPARE(store.getText("b", "absent"), QByteArray("absent"));
    QCOMPARE(store.getText("c", "absent"), QByteArray("absent"));
    QCOMPARE(store.getText("d", "absent"), QByteArray());
    QCOMPARE(m_output->text(),
             QStringLiteral("readXmlFile <%1> 1\n").arg(QFile::decodeName(fileName())));
}

void TestSettings::savedFileReadsBackTheSame()
{
    const std::vector<std::pair<QByteArray, QByteArray>> values{
        {"LastPath", "/media/Karte \xc3\xa4 & <1> \"x\""},
        {"b", "line\nbreak\ttab"},
        {"empty", ""}};
    for (const auto& [key, value] : values)
        m_store->setText(key, value);
    m_store->setText("odd", QByteArray("bell\x07", 5));
    m_store->setInteger("n", -5);
    m_store->setBoolean("on", true);
    QVERIFY(m_store->save());

    SettingsStore again;
    again.setFileName(fileName());
    again.load();
    for (const auto& [key, value] : values)
        QCOMPARE(again.getText(key), value);
    QCOMPARE(again.getText("empty", "not written"), QByteArray("not written"));
    QCOMPARE(again.getText("odd"), QByteArray("bell\xef\xbf\xbd"));
    QCOMPARE(again.getInteger("n", 0), -5);
    QVERIFY(again.getBoolean("on", false));
    QVERIFY(readFile(QFile::decodeName(fileName())).contains("\n    <Property "));
}

void TestSettings::unusableFileIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("content");

    QByteArray bomb = "<!DOCTYPE K [<!ENTITY e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 12; ++i)
        bomb += QStringLiteral("<!ENTITY e%1 '%2'>")
                    .arg(i)
                    .arg(QStringLiteral("&e%1;").arg(i - 1).repeated(10))
                    .toLatin1();
    QTest::newRow("not XML") << QByteArray("[General]\nLastPath=/home\n");
    QTest::newRow("cut short") << QByteArray("<KOLT><Property id='a' val");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("zeros") << QByteArray(512, '\0');
    QTest::newRow("entities that explode") << bomb + "]><KOLT>&e11;</KOLT>";
    QTest::newRow("nested too deeply")
        << QByteArray("<a>").repeated(500'000) + QByteArray("</a>").repeated(500'000);
    QByteArray attributes;
    for (int i = 0; i < 300'000; ++i)
        attributes += " a" + QByteArray::number(i) + "='1'";
    QTest::newRow("too many attributes") << "<KOLT" + attributes + "/>";
    QTest::newRow("too many elements")
        << "<KOLT>" + QByteArray("<a/>").repeated(1'100'000) + "</KOLT>";
}

void TestSettings::unusableFileIsKeptAside()
{
    QFETCH(QByteArray, content);
    const QString path = QFile::decodeName(fileName());
    writeFile(path + ".broken", "from an earlier accident");
    SettingsStore& store = loadedFrom(content);
    QVERIFY(m_output->text().contains(QStringLiteral("could not set content <%1>\n").arg(path)));
    QCOMPARE(readFile(path), content); // looking alone changes nothing
    store.setText("a", "new");
    QVERIFY(store.save());
    QCOMPARE(readFile(path + ".broken"), QByteArray("from an earlier accident"));
    QCOMPARE(readFile(path + ".broken.2"), content);
    QVERIFY(readFile(path).contains("new"));

    QVERIFY(writeFile(path, content));
    store.load();
    QVERIFY(QFile::remove(path)); // the user clears it away
    QVERIFY(store.save());
    QVERIFY(readFile(path).contains("new"));
}

void TestSettings::failedSaveLeavesTheOldFile()
{
    m_store->setText("a", "1");
    m_store->setFileName(QFile::encodeName(m_directory->filePath("missing/KOLT.ini")));
    QVERIFY(!m_store->save());
    QVERIFY(m_output->text().contains("could not open file for writing !<"));
    // A directory of that name is nothing that could be replaced, nor is it harmed.
    QVERIFY(QDir(m_directory->path()).mkpath("KOLT.ini/inside"));
    m_store->setFileName(fileName());
    QVERIFY(!m_store->save());
    QVERIFY(QFileInfo::exists(m_directory->filePath("KOLT.ini/inside")));
}

void TestSettings::commandLine_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("emu");   // value, then '+' when given
    QTest::addColumn<QString>("style"); // the same
    QTest::addColumn<QString>("output");

    using List = QList<QByteArray>;
    QTest::newRow("none") << List{} << true << "false"
                          << ""
                          << "";
    QTest::newRow("flag") << List{"-emu"} << true << "true+"
                          << ""
                          << "";
    QTest::newRow("flag twice") << List{"-emu", "-emu"} << true << "false+"
                                << ""
                                << "";
    QTest::newRow("value") << List{"-s", "a.css"} << true << "false"
                           << "a.css+"
                           << "";
    QTest::newRow("value missing") << List{"-s"} << true << "false"
                                   << "+"
                                   << "";
    QTest::newRow("value like a flag") << List{"-s", "-emu"} << true << "false"
                                       << "-emu+"
                                       << "";
    QTest::newRow("unknown, then known") << List{"x", "-EMU", "-emu"} << false << "true+"
                                         << ""
                                         << "unknown option x\nunknown option -EMU\n";
}

void TestSettings::commandLine()
{
    QFETCH(QList<QByteArray>, arguments);
    CommandLineOptions options;
    options.addFlag("-emu", "display");
    options.addValueOption("-s", "style", "");
    std::vector<const char*> argv{"kolt"};
    for (const QByteArray& argument : arguments)
        argv.push_back(argument.constData());
    QTEST(options.parse(static_cast<int>(argv.size()), argv.data()), "accepted");
    const auto state = [&](const char* name) {
        std::string value;
        const bool given = options.getValue(name, value);
        return QString::fromStdString(value) + QLatin1String(given ? "+" : "");
    };
    QTEST(state("-emu"), "emu");
    QTEST(state("-s"), "style");
    QTEST(m_output->text(), "output");
}

void TestSettings::usageShowsCurrentValues()
{
    CommandLineOptions options;
    options.addFlag("-h", "print this help");
    options.addFlag("-connect", "connect after startup");
    options.addValueOption("-s", "stylefile to load", "");
    const std::vector<const char*> argv{"./kolt", "-s", "my.css"};
    options.parse(3, argv.data());
    options.printUsage();
    QCOMPARE(m_output->text(), QStringLiteral("Usage of ./kolt :\n"
                                              "-connect connect after startup\n"
                                              "-h       print this help\n"
                                              "-s       [stylefile to load] default [my.css]\n"
                                              "\n"));
}

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
