#include "app/settings/CommandLineOptions.h"
#include "app/settings/SettingsStore.h"
#include "base/XmlFile.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

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
    void processesShareTheFile();
    void commandLine_data();
    void commandLine();
    void usageShowsCurrentValues();

private:
    QByteArray fileName() const { return QFile::encodeName(m_directory->filePath("KOLT.ini")); }

    SettingsStore& loadedFrom(const QByteArray& content)
    {
        writeFile(QFile::decodeName(fileName()), content);
        m_store->load();
        return *m_store;
    }

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

void TestSettings::typedValues_data()
{
    const Rows<QByteArray, int, bool, double> row; // text, integer, boolean, number
    row("true", "true", 0, true, 0.0);
    row("TRUE", "TRUE", 0, true, 0.0);
    row("tRUE is no boolean", "tRUE", 0, false, 0.0);
    row("1 is not true", "1", 1, false, 1.0);
    row("leading digits count", "12px", 12, false, 12.0);
    row("sign and fraction", "-2.75", -2, false, -2.75);
    row("too large", "99999999999", 2147483647, false, 99999999999.0);
}

void TestSettings::typedValues()
{
    const auto [text, integer, boolean, number] = fetchRow<QByteArray, int, bool, double>();
    m_store->setText("key", text);
    QCOMPARE(m_store->getInteger("key", 7), integer);
    QCOMPARE(m_store->getBoolean("key", true), boolean);
    QCOMPARE(m_store->getDouble("key", 7.0), number);
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
    for (const auto& [key, value] :
         {std::pair("a", "2"), {"b", "absent"}, {"c", "absent"}, {"d", ""}})
        QCOMPARE(store.getText(key, "absent"), QByteArray(value));
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
    const Rows<QByteArray> row;
    QByteArray bomb = "<!DOCTYPE K [<!ENTITY e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 12; ++i)
        bomb += "<!ENTITY e" + QByteArray::number(i) + " '" +
                ("&e" + QByteArray::number(i - 1) + ";").repeated(10) + "'>";
    QByteArray attributes;
    for (int i = 0; i < 300'000; ++i)
        attributes += " a" + QByteArray::number(i) + "='1'";
    row("not XML", "[General]\nLastPath=/home\n");
    row("cut short", "<KOLT><Property id='a' val");
    row("empty", {});
    row("zeros", QByteArray(512, '\0'));
    row("entities that explode", bomb + "]><KOLT>&e11;</KOLT>");
    row("nested too deeply",
        QByteArray("<a>").repeated(500'000) + QByteArray("</a>").repeated(500'000));
    row("too many attributes", "<KOLT" + attributes + "/>");
    row("too many elements", "<KOLT>" + QByteArray("<a/>").repeated(1'100'000) + "</KOLT>");
}

void TestSettings::unusableFileIsKeptAside()
{
    const auto [content] = fetchRow<QByteArray>();
    const QString path = QFile::decodeName(fileName());
    writeFile(path + ".broken", "from an earlier accident");
    SettingsStore& store = loadedFrom(content);
    QVERIFY(m_output->text().contains(QStringLiteral("could not set content <%1>\n").arg(path)));
    QCOMPARE(readFile(path), content); // loading does not change the file
    store.setText("a", "new");
    QVERIFY(store.save());
    QCOMPARE(readFile(path + ".broken"), QByteArray("from an earlier accident"));
    QCOMPARE(readFile(path + ".broken.2"), content);
    QVERIFY(readFile(path).contains("new"));

    QVERIFY(writeFile(path, content));
    store.load();
    QVERIFY(QFile::remove(path)); // the user deletes it
    QVERIFY(store.save());
    QVERIFY(readFile(path).contains("new"));
}

void TestSettings::failedSaveLeavesTheOldFile()
{
    m_store->setText("a", "1");
    m_store->setFileName(QFile::encodeName(m_directory->filePath("missing/KOLT.ini")));
    QVERIFY(!m_store->save());
    QVERIFY(m_output->text().contains("could not open file for writing !<"));
    // A directory of that name is neither replaced nor changed.
    QVERIFY(QDir(m_directory->path()).mkpath("KOLT.ini/inside"));
    m_store->setFileName(fileName());
    QVERIFY(!m_store->save());
    QVERIFY(QFileInfo::exists(m_directory->filePath("KOLT.ini/inside")));
}

void TestSettings::processesShareTheFile()
{
    const QString path = QFile::decodeName(fileName());
    SettingsStore& mine = loadedFrom("<KOLT><Property id='a' value='1'/><Property id='b' "
                                     "value='1'/><Property id='c' value='1'/></KOLT>");
    SettingsStore other;
    other.setFileName(fileName());
    other.load();
    other.setText("a", "2");
    other.setText("b", "2");
    other.setText("c", "");
    other.setText("new", "2");
    QVERIFY(other.save());
    mine.setText("b", "3");
    mine.setText("c", "3");
    QVERIFY(mine.save());
    QCOMPARE(mine.getText("a"), "1"); // values of other processes are not taken over
    QCOMPARE(mine.getText("new", "none"), "none");
    SettingsStore third;
    third.setFileName(fileName());
    third.load();
    for (const auto& [key, value] : {std::pair("a", "2"), {"b", "3"}, {"c", "3"}, {"new", "2"}})
        QCOMPARE(third.getText(key), value);
    QVERIFY(!QFile::exists(path + ".lock"));

    // A file that has become invalid meanwhile is kept, and its new path reported once.
    QVERIFY(writeFile(path, "broken"));
    QVERIFY(mine.save());
    QCOMPARE(mine.takeKeptCopy(), path + ".broken");
    QCOMPARE(mine.takeKeptCopy(), QString());
    QVERIFY(readFile(path).contains("\"a\""));
}

void TestSettings::commandLine_data()
{
    // arguments, accepted, -emu and -s (value, then '+' when given), output
    const Rows<QList<QByteArray>, bool, QString, QString, QString> row;
    row("none", {}, true, "false", "", "");
    row("flag", {"-emu"}, true, "true+", "", "");
    row("flag twice", {"-emu", "-emu"}, true, "false+", "", "");
    row("value", {"-s", "a.css"}, true, "false", "a.css+", "");
    row("value missing", {"-s"}, true, "false", "+", "");
    row("value like a flag", {"-s", "-emu"}, true, "false", "-emu+", "");
    row("unknown, then known", {"x", "-EMU", "-emu"}, false, "true+", "",
        "unknown option x\nunknown option -EMU\n");
}

void TestSettings::commandLine()
{
    const auto [arguments, accepted, emu, style, output] =
        fetchRow<QList<QByteArray>, bool, QString, QString, QString>();
    CommandLineOptions options;
    options.addFlag("-emu", "display");
    options.addValueOption("-s", "style", "");
    std::vector<const char*> argv{"kolt"};
    for (const QByteArray& argument : arguments)
        argv.push_back(argument.constData());
    QCOMPARE(options.parse(static_cast<int>(argv.size()), argv.data()), accepted);
    const auto state = [&](const char* name) {
        std::string value;
        const bool given = options.getValue(name, value);
        return QString::fromStdString(value) + QLatin1String(given ? "+" : "");
    };
    QCOMPARE(state("-emu"), emu);
    QCOMPARE(state("-s"), style);
    QCOMPARE(m_output->text(), output);
}

void TestSettings::usageShowsCurrentValues()
{
    CommandLineOptions options;
    options.addFlag("-h", "print this help");
    options.addFlag("-connect", "connect after startup");
    options.addValueOption("-s", "stylefile to load", "");
    const char* const argv[] = {"./kolt", "-s", "my.css"};
    options.parse(3, argv);
    options.printUsage();
    QCOMPARE(m_output->text(), "Usage of ./kolt :\n"
                               "-connect connect after startup\n"
                               "-h       print this help\n"
                               "-s       [stylefile to load] default [my.css]\n\n");
}

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
