#include "app/settings/ExportSettingsStore.h"
#include "app/settings/SettingsStore.h"
#include "base/NumberText.h"
#include "export/ExportFile.h"
#include "export/ExportName.h"
#include "profile/ValueDecoder.h"
#include "tests/export/ExportSupport.h"
#include "tests/support/Rows.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <cmath>
#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

/// Refuses writes larger than its free space, but accepts smaller ones later.
class SmallDevice : public QIODevice
{
public:
    explicit SmallDevice(qint64 room)
        : m_room(room)
    {
        open(QIODevice::WriteOnly);
    }

    qint64 largestWrite() const { return m_largest; }

protected:
    qint64 readData(char*, qint64) override { return -1; }

    qint64 writeData(const char*, qint64 size) override
    {
        m_largest = std::max(m_largest, size);
        if (size > m_room)
            return -1;
        m_room -= size;
        return size;
    }

private:
    qint64 m_room;
    qint64 m_largest = 0;
};

} // namespace

/// CSV tables, read back by Python's csv module; files, names and settings of all exports.
class TestExport : public QObject, private ExportFixture
{
    Q_OBJECT

private slots:

    void init() { QVERIFY(load()); }

    void numbersAsPrintf();
    void csvToTheByte();
    void csvOptionsThatDoNotFit_data();
    void csvOptionsThatDoNotFit();
    void csvReadByPython_data();
    void csvReadByPython();
    void csvBounds();
    void csvSpan_data();
    void csvSpan();
    void formerFileStays();
    void pipesAreLeftAlone();
    void namesAndFolders();
    void settingsAreBounded();
};

void TestExport::numbersAsPrintf()
{
    std::mt19937_64 random(3);
    std::vector<double> numbers{
        0.0, -0.0,          0.5,    -0.5,   1.5, 2.5,   0.125,
        1e9, 999'999'999.5, -1e-30, 99.995, 0.1, 1e300, std::numeric_limits<double>::denorm_min()};
    for (int i = 0; i < 20'000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        const auto single = std::bit_cast<float>(bits);
        if (std::isfinite(single))
            numbers.push_back(single);
        numbers.push_back(static_cast<double>(static_cast<int>(bits)) / 65'536.0); // many ties
        numbers.push_back(static_cast<double>(bits % 1'000'000) / 1000.0);
    }
    std::array<char, 400> expected{};
    for (const double number : numbers) {
        for (const int decimals : {0, 1, 2, 3, 6, 9, 12}) {
            std::snprintf(expected.data(), expected.size(), "%.*f", decimals, number);
            std::string text = "x";
            appendFixed(text, number, decimals);
            if (text.substr(1) != expected.data())
                QCOMPARE(QByteArray::fromStdString(text).mid(1), QByteArray(expected.data()));
        }
    }
}

void TestExport::csvToTheByte()
{
    // Held values, rounding of ties, empty cells before the first sample, a change of date, samples
    // out of order.
    add(gauge, 4.5, floats(2.5F));
    add(gauge, 5.3, floats(std::numeric_limits<float>::quiet_NaN()));
    add(altitude, 5.9, floats(0.25F, 7.0F));
    add(altitude, 4.0, floats(0.75F, -0.5F));
    add(lamp, 6.2);
    CsvOptions options;
    options.allParameters = false;
    options.resolution = 500;
    options.decimalComma = true;
    m_profile.select([](const ProfileParameter& parameter) {
        return parameter.id == gauge || parameter.id == altitude;
    });
    QCOMPARE(csv(options),
             QByteArray("\xEF\xBB\xBF"
                        "Date;Time;Seconds;D/Alt [m];D/Speed [km/h];\"D/Gauge; <1>\"\r\n"
                        "2026-07-28;23:59:59,000;4,000;0,8;-0;\r\n"
                        "2026-07-28;23:59:59,500;4,500;0,8;-0;2\r\n"
                        "2026-07-29;00:00:00,000;5,000;0,8;-0;2\r\n"
                        "2026-07-29;00:00:00,500;5,500;0,8;-0;nan\r\n"
                        "2026-07-29;00:00:01,000;6,000;0,2;7;nan\r\n"));
    // Values from before a flight hold until its first sample.
    m_dataSet->before[gauge].data = floats(8.0F);
    QCOMPARE(csv(options).split('\n').value(1),
             QByteArray("2026-07-28;23:59:59,000;4,000;0,8;-0;8\r"));
    QCOMPARE(csv(options).split('\n').value(2),
             QByteArray("2026-07-28;23:59:59,500;4,500;0,8;-0;2\r"));
    m_profile.setUnitSystem(UnitSystem::Imperial);
    m_dataSet->dateTime = {};
    QCOMPARE(csv(options).split('\n').value(0).split(';').value(3), QByteArray("D/Alt [ft]"));
    QCOMPARE(csv(options).split('\n').value(5), QByteArray(";;6,000;0,5;7;nan\r"));
    m_profile.setUnitSystem(UnitSystem::Metric);

    // Codes as numbers keep other values as they are.
    add(lamp, 4.0, {1, 0, 0, 0, 50});
    options.codesOnly = true;
    m_profile.select([](const ProfileParameter& parameter) { return parameter.id == lamp; });
    QCOMPARE(csv(options).split('\n').value(1), QByteArray(";;4,000;1;50,00\r"));
}

void TestExport::csvOptionsThatDoNotFit_data()
{
    const Rows<int, bool, QString> row; // separator, decimal comma, row (empty if refused)
    row("semicolon", ';', true, "2026-07-28;23:59:56,500;1,500;2,25");
    row("tabulator", '\t', true, "2026-07-28\t23:59:56,500\t1,500\t2,25");
    row("comma", ',', false, "2026-07-28,23:59:56.500,1.500,2.25");
    row("comma twice", ',', true, {});
    for (const int code : {int{'"'}, int{'.'}, int{'7'}, int{'e'}, int{'\n'}, 0, 200, 300})
        row(QByteArray::number(code), code, false, {});
}

void TestExport::csvOptionsThatDoNotFit()
{
    const auto [code, comma, expected] = fetchRow<int, bool, QString>();
    add(lamp, 1.5, {0, 0, 0, 0, 0, 0, 0, 0});
    SettingsStore store;
    store.setInteger("CsvLimiter", code);
    store.setBoolean("CsvDecimalComma", comma);
    CsvOptions options = loadCsvOptions(store, QLocale::c());
    options.allParameters = false;
    QVERIFY(loadProfile(m_profile, device({"name='Big' id='4' dataType='ULONG' precision='2' "
                                           "offset='2.25'"})));
    m_profile.select([](const ProfileParameter&) { return true; });
    const QByteArray written = csv(options);
    QCOMPARE(QString::fromUtf8(written.split('\n').value(1)).trimmed(), expected);
    QCOMPARE(written.isEmpty(), expected.isEmpty());
    QCOMPARE(csvSettings()[0].accepts(QByteArray::number(code)), !expected.isEmpty() || comma);
    // A decimal comma by default only, from the locale, gives way to the separator.
    SettingsStore untouched;
    untouched.setInteger("CsvLimiter", code);
    QCOMPARE(loadCsvOptions(untouched, QLocale(QLocale::German)).decimalComma, code != ',');
}

void TestExport::csvReadByPython_data()
{
    const Rows<QString, int> row; // separator, resolution
    row("semicolon", ";", 100);
    row("comma", ",", 37);
    row("tabulator", "\t", 1000);
    row("blank", " ", 250);
}

/// Compares every cell with a linear search for the last sample up to its row.
void TestExport::csvReadByPython()
{
    const auto [separator, resolution] = fetchRow<QString, int>();
    std::mt19937 random(7);
    double first = 0.25;
    double last = 0.0;
    add(lamp, first);
    for (int id = position; id <= lamp; ++id) {
        double t = 0.0;
        for (int i = 0; i < 60; ++i) {
            t += static_cast<int>(random() % 400) / 1000.0 -
                 (i % 17 == 5 ? 1.0 : 0.0); // sometimes backwards
            MessageData data;
            for (unsigned char& byte : data)
                byte = static_cast<unsigned char>(random());
            add(id, std::max(t, 0.25), data);
            last = std::max(last, t);
        }
    }
    CsvOptions options;
    options.separator = separator[0].toLatin1();
    options.resolution = resolution;
    const QString path = m_directory.filePath("read.csv");
    QVERIFY(writeFile(path, csv(options)));
    const QString output = outputOf(
        "python3", {"-c",
                    "import csv, json, sys\n"
                    "with open(sys.argv[1], encoding='utf-8-sig', newline='') as f:\n"
                    "    json.dump(list(csv.reader(f, delimiter=sys.argv[2], strict=True)), "
                    "sys.stdout)",
                    path, separator});
    const QJsonArray rows = QJsonDocument::fromJson(output.toUtf8()).array();
    QCOMPARE(rows.size(), 1 + static_cast<int>((last - first) * 1000 / resolution + 1e-6) + 1);
    const std::deque<ProfileParameter>& columns = m_profile.parameters();
    for (qsizetype row = 1; row < rows.size(); ++row) {
        const double seconds = first + static_cast<double>((row - 1) * resolution) / 1000.0;
        const QJsonArray cells = rows[row].toArray();
        QCOMPARE(cells.size(), static_cast<qsizetype>(columns.size()) + 3);
        QVERIFY(std::abs(cells[2].toString().toDouble() - seconds) < 0.0006);
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const ProfileParameter& parameter = columns[column];
            const StoredSample* held = nullptr;
            for (const StoredSample& sample : seriesOf(m_dataSet->messages, parameter)) {
                if (sample.seconds() <= seconds + 1e-6 &&
                    (held == nullptr || sample.seconds() >= held->seconds()))
                    held = &sample;
            }
            const QString expected = held == nullptr ? QString()
                                                     : textOf(m_profile, parameter, held->data,
                                                              decodeNumber(held->data, parameter));
            QCOMPARE(cells[static_cast<qsizetype>(column) + 3].toString(), expected);
        }
    }
}

void TestExport::csvBounds()
{
    fly(0.0, 2000.0);
    CsvOptions options;
    options.resolution = 10;
    const CsvWriter writer(m_profile, *m_dataSet, options);
    QCOMPARE(writer.rowCount(), 200'001);
    SmallDevice device(1'000'000'000);
    QCOMPARE(writer.write(device), ExportStatus::Done);
    QVERIFY(device.largestWrite() < 2'000'000); // of about 14 MB
    const double size = static_cast<double>(csv(options).size());
    QVERIFY2(std::abs(writer.estimatedBytes() / size - 1.0) < 0.1,
             qPrintable(QString::number(writer.estimatedBytes() / size)));

    SmallDevice full(3'000'000);
    QCOMPARE(writer.write(full), ExportStatus::Failed);
    QFile devFull("/dev/full");
    QVERIFY(devFull.open(QIODevice::WriteOnly));
    newRecording(0.0);
    add(gauge, 1.0); // a single row stays in the file's buffer
    QCOMPARE(CsvWriter(m_profile, *m_dataSet, options).write(devFull), ExportStatus::Failed);
    QCOMPARE(writeKml(devFull, m_profile, *m_dataSet, {}, "T"), ExportStatus::Failed);
    QCOMPARE(writeGpx(devFull, m_profile, *m_dataSet, {}, "T"), ExportStatus::Failed);
}

void TestExport::csvSpan_data()
{
    // recorded times; times of the first and last row, empty if nothing is written
    const Rows<QList<double>, QList<double>> row;
    row("sound", {5000, 5001, 5002}, {5000, 5002});
    row("last stamp is damaged", {5000, 5001, 5002, 5.7e11}, {5000, 5002});
    row("last stamp runs back", {5000, 5001, 5002, 3}, {5000, 5002});
    row("last stamp is a week ahead", {5000, 5001, 5002, 605e3}, {5000, 5002});
    row("first stamp is damaged", {900e3, 5000, 5001, 5002}, {5000, 5002});
    row("strays within", {5000, 5001, 9e5, 1, 5e11, 5002, 5003}, {5000, 5003});
    row("stray of less than an hour", {5000, 5001, 3000, 5002, 8000, 5003, 5004}, {5000, 5004});
    row("last stamp is 0", {3000, 3001, 3002, 0}, {3000, 3002});
    row("pauses of some minutes", {5000, 5300, 5600, 6000}, {5000, 6000});
    row("long gap", {0, 1, 50e3, 50e3 + 1}, {0, 50e3 + 1});
    row("files in reverse order", {5000, 5001, 0, 1}, {0, 5001});
    row("one sample", {7}, {7, 7});
    row("samples hours apart", {7, 9000}, {7, 9000});
    row("no usable time", {5e11, 5e11}, {});
    row("nothing recorded", {}, {});
    row("too many rows", {0, 1, 2.4e6, 2.4e6 + 1}, {});
}

void TestExport::csvSpan()
{
    const auto [times, span] = fetchRow<QList<double>, QList<double>>();
    int id = position;
    for (const double seconds : times)
        add(id++ % lamp, seconds);
    m_dataSet->startSeconds = times.value(0);
    m_dataSet->stopSeconds = times.isEmpty() ? 0.0 : times.last();
    CsvOptions options;
    options.resolution = 100;
    const QList<QByteArray> lines = csv(options).split('\n');
    if (span.isEmpty()) {
        QCOMPARE(lines, QList<QByteArray>{""}); // no header either
        return;
    }
    QCOMPARE(lines.size(), 1 + static_cast<int>((span[1] - span[0]) * 10 + 1) + 1);
    QCOMPARE(lines[1].split(';').value(2).toDouble(), span[0]);
    QCOMPARE(lines[lines.size() - 2].split(';').value(2).toDouble(), span[1]);
}

/// After cancelling and on a full disk, simulated by a limit on the file size.
void TestExport::formerFileStays()
{
    fly(0.0, 3000.0);
    const QString path = m_directory.filePath("former/out");
    const QString fresh = m_directory.filePath("former/new");
    QVERIFY(QDir().mkpath(m_directory.filePath("former")) && writeFile(path, "before"));
    bool isFull = false;
    const ExportProgress stop = [&](int percent) { return isFull || percent < 20; };
    KmlOptions options;
    options.timeStamp = KmlOptions::Times::PlaceMarksAndTrack;
    const std::function<ExportStatus(QIODevice&)> writers[] = {
        [&](QIODevice& device) { return CsvWriter(m_profile, *m_dataSet, {}).write(device, stop); },
        [&](QIODevice& device) {
            return writeKml(device, m_profile, *m_dataSet, options, "T", stop);
        },
        [&](QIODevice& device) { return writeGpx(device, m_profile, *m_dataSet, {}, "T", stop); }};
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit small{100'000, usual.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    for (int i = 0; i < 6; ++i) {
        const auto& writer = writers[i / 2];
        isFull = i % 2 == 1;
        if (isFull)
            setrlimit(RLIMIT_FSIZE, &small);
        const ExportOutcome outcome = exportToFile(path, writer);
        setrlimit(RLIMIT_FSIZE, &usual);
        QCOMPARE(outcome.status, isFull ? ExportStatus::Failed : ExportStatus::Cancelled);
        QCOMPARE(outcome.error.isEmpty(), !isFull);
        QVERIFY2(!outcome.error.contains("Unknown"), qPrintable(outcome.error));
        QCOMPARE(readFile(path), QByteArray("before"));
        QCOMPARE(QDir(m_directory.filePath("former")).entryList(QDir::Files | QDir::Hidden),
                 QStringList{"out"});
        QCOMPARE(exportToFile(fresh, writer).status,
                 isFull ? ExportStatus::Done : ExportStatus::Cancelled);
        QFile::remove(fresh);
    }
    // Not writable even for root.
    for (const char* unwritable : {"/proc/out.kml", "/no/such/folder/out.kml"}) {
        const ExportOutcome outcome = exportToFile(unwritable, writers[1]);
        QVERIFY(outcome.status == ExportStatus::Failed && !outcome.error.isEmpty());
    }
}

void TestExport::pipesAreLeftAlone()
{
    const QString pipe = m_directory.filePath("pipe");
    const QString link = m_directory.filePath("linked pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe), 0600), 0);
    QVERIFY(QFile::link(pipe, link));
    for (const QString& path : {pipe, link, m_directory.path()}) {
        const ExportOutcome outcome =
            exportToFile(path, [](QIODevice&) { return ExportStatus::Done; });
        QCOMPARE(outcome.status, ExportStatus::Failed);
        QCOMPARE(outcome.error, "This is not a regular file.");
        QVERIFY(QFileInfo::exists(path) && !QFileInfo(path).isFile());
    }
}

void TestExport::namesAndFolders()
{
    const ExportSubject cycle{3, {}};
    m_dataSet->startSeconds = 10.0;
    QCOMPARE(exportFileName(cycle, *m_dataSet, "kml"), "Kolt_2026-07-29_0000_Cycle3.kml");
    QCOMPARE(exportTitle(cycle, *m_dataSet), "Cycle 3, 29.07.2026 00:00");
    QCOMPARE(exportFileName({{}, {"A b/\xC3\xA4.CAN", "B.CAN"}}, *m_dataSet, "csv").section('_', 2),
             "0000_A_b__.csv");
    m_dataSet->flights = {flight(0, 0, 1, 1), flight(20, 52'365, 52'400, 52'430)};
    m_dataSet->flightIndex = 1;
    QCOMPARE(exportFileName(cycle, *m_dataSet, "kml"), "Kolt_2026-07-29_1432_Flight2.kml");
    QCOMPARE(exportTitle(cycle, *m_dataSet), "Flight 2, 29.07.2026 14:32");
    m_dataSet->flights[1].dateTime = {};
    QCOMPARE(exportFileName(cycle, *m_dataSet, "gpx"), "Kolt_Cycle3_Flight2.gpx");
}

void TestExport::settingsAreBounded()
{
    SettingsStore store;
    const KmlOptions usual;
    storeKmlOptions(loadKmlOptions(store), store);
    storeCsvOptions(loadCsvOptions(store, QLocale::c()), store);
    storeGpxOptions(loadGpxOptions(store), store);
    for (const auto& settings : {kmlSettings(), csvSettings(), gpxSettings()}) {
        for (const ExportSetting& setting : settings)
            QVERIFY2(setting.accepts(store.getText(setting.key)), setting.key);
    }
    QCOMPARE(store.getText("KmlLineColor"), QByteArray("ff0000"));
    QCOMPARE(store.getText("KmlPlaceMarkIntervall"), QByteArray("10"));
    QCOMPARE(store.getText("CsvLimiter"), QByteArray("59"));

    for (const auto& [key, value] : {std::pair("KmlPlaceMarkIntervall", "0"),
                                     {"KmlLineAlpha", "900"},
                                     {"KmlLineColor", "#f00"},
                                     {"KmlTimeStamp", "7"},
                                     {"KmlAltitudeMode", "-1"},
                                     {"CsvResolution", "-5"},
                                     {"CsvLimiter", "34"}})
        store.setText(key, value);
    QCOMPARE(loadKmlOptions(store).placeMarkInterval, 1);
    QCOMPARE(loadKmlOptions(store).lineAlpha, 255);
    QCOMPARE(loadKmlOptions(store).lineColor, usual.lineColor);
    QCOMPARE(loadKmlOptions(store).timeStamp, KmlOptions::Times::PlaceMarksAndTrack);
    QCOMPARE(loadKmlOptions(store).altitudeMode, KmlOptions::AltitudeMode::Absolute);
    QCOMPARE(loadCsvOptions(store, QLocale::c()).resolution, 1);
    QCOMPARE(problemOf(loadCsvOptions(store, QLocale::c())), CsvProblem::Separator);
}

QTEST_GUILESS_MAIN(TestExport)
#include "tst_export.moc"
