#include "app/dialogs/DialogDaySheet.h"
#include "graph/ui/DialogDataGraph.h"
#include "report/ui/DialogReport.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/support/Rows.h"

#include <QButtonGroup>
#include <QDialog>
#include <QStatusBar>
#include <QTableWidget>

#include <csignal>
#include <map>
#include <sys/resource.h>

using namespace KOLT;
using namespace KOLT::Test;

/// All commands that ask for a file name and write the file.
class TestWriters : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:
    void initTestCase();
    void eachWriter_data();
    void eachWriter();
    void daySheetTellsAndOpens();

    void cleanupTestCase() { m_window.reset(); }

private:
    void start(const QString& writer);
    QStringList write(const QString& writer, const QStringList& answers);
    QAction* listAction() const;
    static QMap<QString, QByteArray> filesOf(const QString& folder);

    QString m_card;
};

/// Opens a flight with positions and an exceedance.
void TestWriters::initTestCase()
{
    prepareOnce();
    QVERIFY(prepare());
    QVERIFY(writeFile(
        InstalledProfile::path(),
        "<KorvanProfile name='Test'><Variants><Variant name='915'/></Variants>" +
            threshold("T", {"val='100' color='red' state='LIMIT'"}) +
            device({"name='Speed' id='1' dataType='FLOAT' koltDataType='GroundSpeed' "
                    "thresholdId='T'",
                    "name='Lat' id='2' dataType='FLOAT' koltDataType='Latitude'",
                    "name='Lon' id='2' startByte='4' dataType='FLOAT' koltDataType='Longitude'"}) +
            "</KorvanProfile>"));
    m_card = m_cards->filePath("card");
    QVERIFY(QDir().mkpath(m_card));
    RecordBytes opening;
    opening.sample(1, 0.0);
    RecordBytes flight;
    flight.date(2026, 7, 28, 12);
    for (int i = 0; i < 200; ++i) {
        flight.sample(1, i, floats(i > 50 && i < 150 ? 120.0F : 10.0F));
        flight.sample(2, i, floats(4830.0F, static_cast<float>(1100 + i / 50.0)));
    }
    QVERIFY(writeFile(m_card + "/0.CAN", opening.bytes()));
    QVERIFY(writeFile(m_card + "/1.CAN", flight.bytes()));
    QVERIFY(openCycle(m_card));
    QVERIFY(!dataSet()->flights.empty());
    m_window->findChild<DialogData*>()->setCurrentPage(DialogData::Page::Limit);
    QTRY_VERIFY(listAction() != nullptr);
    trigger(Command::DaySheet);
    QVERIFY(!m_window->findChild<DialogDaySheet*>()->sheet().isEmpty());
    trigger(Command::EngineReport);
    QCOMPARE(m_window->findChild<DialogReport*>()->report().files.size(), 2U);
}

QAction* TestWriters::listAction() const
{
    for (auto* const table : m_window->findChildren<QTableWidget*>()) {
        for (QAction* const action : table->actions()) {
            if (action->text() == "Save list as CSV" && table->rowCount() > 0)
                return action;
        }
    }
    return nullptr;
}

void TestWriters::start(const QString& writer)
{
    static const std::map<QString, Command> commands{{"project", Command::SaveProjectAs},
                                                     {"export kml", Command::ExportKml},
                                                     {"export csv", Command::ExportCsv},
                                                     {"export gpx", Command::ExportGpx}};
    if (const auto command = commands.find(writer); command != commands.end())
        trigger(command->second);
    else if (writer == "event list")
        listAction()->trigger();
    else if (writer == "graph snapshot")
        m_window->findChild<DialogDataGraph*>()->findChild<QButtonGroup*>()->button(10)->click();
    else if (writer == "engine report")
        click(*m_window->findChild<DialogReport*>(), "Save as PDF...");
    else
        click(*m_window->findChild<DialogDaySheet*>(),
              writer == "day sheet pdf" ? "Save as PDF..." : "Save as CSV...");
}

/// Runs the writer, answers its message boxes, and returns their texts.
QStringList TestWriters::write(const QString& writer, const QStringList& answers)
{
    ModalBoxes boxes;
    if (writer.startsWith("export"))
        boxes.handle([](QDialog& dialog) {
            click(dialog, "Export...");
            dialog.reject();
        });
    for (const QString& answer : answers)
        boxes.answer(answer);
    start(writer);
    return boxes.seen();
}

QMap<QString, QByteArray> TestWriters::filesOf(const QString& folder)
{
    QMap<QString, QByteArray> files;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
        files[name] = readFile(QDir(folder).filePath(name));
    return files;
}

void TestWriters::eachWriter_data()
{
    const Rows<QString, QString> row; // writer, suffix of its files
    row("project", "project", "xml");
    row("day sheet csv", "day sheet csv", "csv");
    row("day sheet pdf", "day sheet pdf", "pdf");
    row("engine report", "engine report", "pdf");
    row("event list", "event list", "csv");
    row("graph snapshot", "graph snapshot", "bmp");
    row("export kml", "export kml", "kml");
    row("export csv", "export csv", "csv");
    row("export gpx", "export gpx", "gpx");
}

void TestWriters::eachWriter()
{
    const auto [writer, suffix] = fetchRow<QString, QString>();
    const QMap<QString, QByteArray> card = filesOf(m_card);
    const QString link = m_cards->filePath("dangling." + suffix);
    QVERIFY(QFile::link(m_card + "/new." + suffix, link));
    for (const QString& path : {m_card + "/1.CAN", m_card + "/new." + suffix, link}) {
        const QStringList said = write(writer, {path, "&Yes", "OK"});
        QVERIFY2(said.back().contains("recordings"), qPrintable(said.join('\n')));
        QCOMPARE(filesOf(m_card), card);
    }
    QVERIFY(QFile::remove(link));

    // A name without suffix gets it before the question whether to replace the file.
    const QString folder = m_cards->filePath("out " + writer);
    const QString file = folder + "/name." + suffix;
    QVERIFY(QDir().mkpath(folder) && writeFile(file, "former"));
    QStringList said = write(writer, {folder + "/name", "&No", ""});
    QVERIFY2(said.value(1).contains("name." + suffix), qPrintable(said.join('\n')));

    // A full disk is reported, and the old file is kept.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit none{0, usual.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
    said = write(writer, {file, "&Yes", "OK", "OK"});
    setrlimit(RLIMIT_FSIZE, &usual);
    QVERIFY2(said.size() > 2, qPrintable(said.join('\n')));
    QCOMPARE(filesOf(folder), (QMap<QString, QByteArray>{{"name." + suffix, "former"}}));

    write(writer, {file, "&Yes"});
    QVERIFY(readFile(file).size() > 20);
    QCOMPARE(filesOf(folder).size(), 1);
}

void TestWriters::daySheetTellsAndOpens()
{
    const QString file = m_cards->filePath("sheet.csv");
    write("day sheet csv", {file});
    QCOMPARE(m_window->statusBar()->currentMessage(), "Saved " + file);
    auto* const table = m_window->findChild<DialogDaySheet*>()->findChild<QTableWidget*>();
    const auto open = [&](int row) {
        const QPoint place = table->visualItemRect(table->item(row, 0)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
    };
    const auto isFlight = [&] { return dataSet() != nullptr && dataSet()->flight() != nullptr; };
    const auto* const cycles = m_window->findChild<QTreeWidget*>("cyclesTree");
    open(0);
    QVERIFY(waitFor(isFlight));
    QVERIFY(cycles->currentItem()->parent() != nullptr); // its cycle
    open(1);                                             // outside flights: the cycle
    QVERIFY(waitFor([&] { return !isFlight(); }));
    QVERIFY(cycles->currentItem()->parent() == nullptr);
}

QTEST_MAIN(TestWriters)
#include "tst_writers.moc"
