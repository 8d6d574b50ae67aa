#include "analysis/TrustStrip.h"
#include "analysis/ui/DialogDataLimit.h"
#include "analysis/ui/DialogDataStatistic.h"
#include "analysis/ui/DialogDataWarning.h"
#include "analysis/ui/WidgetErrorTime.h"
#include "analysis/ui/WidgetFaultMatrix.h"
#include "record/RecordingTrust.h"
#include "resources/Resources.h"
#include "tests/support/Buttons.h"
#include "tests/support/ModalBoxes.h"
#include "tests/support/RecordingFixture.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPixmapCache>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolTip>

using namespace KOLT;
using namespace KOLT::Test;

class TestPages : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase() { initKoltResources(); }

    void init();
    void listShowsEvents();
    void swatchesLeaveNothingBehind();
    void listFollowsTheTime();
    void listReportsTheChoice();
    void longListIsCutAndFiltered();
    void listCopiesAndSaves();
    void lampsOnly();
    void statisticTexts();
    void statisticWithoutFlight();
    void statisticNotes();
    void stripPlaces();
    void findingsAreShownInTheGraph_data();
    void findingsAreShownInTheGraph();
    void faultRows();
    void faultStripReports();
    void faultKeysJump();
    void faultsAreListed();
    void pointerTellsItsTime();

private:
    static QAction* actionOf(const QWidget& widget, const QString& text)
    {
        const QList<QAction*> actions = widget.actions();
        return *std::ranges::find(actions, text, &QAction::text);
    }

    template <typename Page>
    std::unique_ptr<Page> open(Page* page)
    {
        m_table = page->template findChild<QTableWidget*>();
        page->resize(600, 400);
        page->setShown(true);
        page->setData(&*m_dataSet);
        page->show();
        return std::unique_ptr<Page>(page);
    }

    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
    QTemporaryDir m_directory;
    QTableWidget* m_table = nullptr; ///< of the page opened last
};

/// Limits at 10.1234 s, 20 s and 20.02 s (one tenth), a lamp at 30 s, faults at 10 and 40 s.
void TestPages::init()
{
    QVERIFY(loadProfile(
        m_profile,
        threshold("T", {"val='100' color='#ff0000' state='LIMIT'"}) +
            threshold("L", {"val='1' color='#ffff00' state='WARNING'"}) +
            "<Device name='Engine'><ErrorMatrix id='4' name='Lane'/>"
            "<Parameter name='Oil' id='1' dataType='FLOAT' precision='1' unitMetric='bar' "
            "thresholdId='T'/><Parameter name='Rope; \"x\"' id='2' dataType='FLOAT' precision='0' "
            "thresholdId='T'/><Parameter name='Lamp' id='3' dataType='UCHAR' thresholdId='L' "
            "koltDataType='WarningLamp'/>"
            "<Parameter name='Crank' id='4' dataType='BLONG' startBit='0' endBit='0' "
            "errorType='Fault'/>"
            "<Parameter name='Cam' id='4' dataType='BLONG' startBit='1' endBit='1' "
            "errorType='Warning'/></Device>"));
    m_dataSet = std::make_unique<DataSet>();
    m_dataSet->stopSeconds = 50.0;
    for (const auto& [seconds, value] :
         {std::pair(0.0, 0.0F), {10.1234, 150.0F}, {15.0, 0.0F}, {20.02, 200.0F}})
        add(m_dataSet->messages, 1, seconds, floats(value));
    for (const auto& [seconds, value] : {std::pair(0.0, 0.0F), {20.0, 101.0F}})
        add(m_dataSet->messages, 2, seconds, floats(value));
    add(m_dataSet->messages, 3, 0.0, {0});
    add(m_dataSet->messages, 3, 30.0, {1});
    for (const auto& [seconds, value] : {std::pair(0.0, 0), {10.0, 1}, {20.0, 0}, {40.0, 1}})
        add(m_dataSet->messages, 4, seconds, {static_cast<unsigned char>(value)});
}

void TestPages::listShowsEvents()
{
    const auto page = open(new DialogDataLimit(m_profile));
    QStringList texts;
    for (int row = 0; row < m_table->rowCount(); ++row)
        texts << m_table->item(row, 0)->text() + ' ' + m_table->item(row, 1)->text();
    QCOMPARE(texts, (QStringList{
                        "00:00:10.123 Engine Oil 150.0 bar", "00:00:20.000 Engine Rope; \"x\" 101 ",
                        "00:00:20.020 Engine Oil 200.0 bar", "00:00:30.000 Engine Lamp 1 "}));
    QCOMPARE(m_table->horizontalHeaderItem(1)->text(), "Warning/Limit Exceed");
    QCOMPARE(m_table->item(0, 0)->data(Qt::UserRole).toLongLong(), 10'124); // rounded up
    // The tool tip is made on demand.
    const QPoint place = m_table->visualItemRect(m_table->item(0, 1)).center();
    QHelpEvent help(QEvent::ToolTip, place, m_table->viewport()->mapToGlobal(place));
    QApplication::sendEvent(m_table->viewport(), &help);
    QCOMPARE(m_table->item(0, 1)->toolTip(),
             "Peak value: 150.0 bar\nDuration until normal: 00:00:04\nEngine speed: -\n"
             "Belongs to: Oil 150.0 bar, for at least 4.9 s: 1 episode (1 crossing)");
}

void TestPages::swatchesLeaveNothingBehind()
{
    const auto page = open(new DialogDataLimit(m_profile));
    const QRect cell = m_table->visualItemRect(m_table->item(0, 1));
    const int limit = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(100); // room for as many small pictures
    QPixmapCache::insert("witness", QPixmap(8, 8));
    QImage picture;
    for (int i = 0; i < 100; ++i)
        picture = m_table->viewport()->grab(cell).toImage();
    QPixmap witness;
    const bool isKept = QPixmapCache::find("witness", &witness);
    QPixmapCache::setCacheLimit(limit);
    QVERIFY(isKept);
    int swatch = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            swatch += picture.pixelColor(x, y) == QColor("#ff0000");
    }
    QCOMPARE(swatch, 4 * 11);
}

void TestPages::listFollowsTheTime()
{
    const auto page = open(new DialogDataLimit(m_profile));
    const QSignalSpy reported(page.get(), &DialogEventList::signalTime);
    for (const auto& [seconds, row] : {std::pair(0.0, 0),
                                       {10.1, 0}, // at the first, to a tenth
                                       {19.0, 0},
                                       {20.0, 2}, // two in one tenth
                                       {1e6, 3},
                                       {10.2, 0}}) {
        page->setTime(25.0);
        page->setTime(seconds);
        QCOMPARE(m_table->currentRow(), row);
    }
    QCOMPARE(reported.size(), 0);
    page->setTime(25.0);
    QTest::keyClicks(page->findChild<QLineEdit*>(), "rope");
    QCOMPARE(m_table->rowCount(), 1);
    QCOMPARE(m_table->item(m_table->currentRow(), 0)->text(),
             "00:00:20.000"); // the last one that passes
    page->findChild<QLineEdit*>()->clear();
    QCOMPARE(m_table->currentRow(), 2);
}

void TestPages::listReportsTheChoice()
{
    const auto page = open(new DialogDataLimit(m_profile));
    QSignalSpy reported(page.get(), &DialogEventList::signalTime);
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, {},
                      m_table->visualItemRect(m_table->item(2, 1)).center());
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 20.02);
    QTest::keyClick(m_table, Qt::Key_Up);
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 20.0);
    QCOMPARE(reported.size(), 0);
    // A highlighted row can be picked again.
    page->setTime(25.0);
    const QPoint place = m_table->visualItemRect(m_table->item(2, 1)).center();
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(m_table->viewport(), Qt::LeftButton, {}, place);
    QTest::keyClick(m_table, Qt::Key_Return);
    QCOMPARE(reported.size(), 3);
    QCOMPARE(reported.takeLast().value(0).toDouble(), 20.02);
    QTest::mouseClick(m_table->viewport(), Qt::RightButton, {}, place);
    QCOMPARE(reported.size(), 2);
    reported.clear();
    page->clear();
    page->setData(m_dataSet.get());
    QCOMPARE(reported.size(), 0);
}

void TestPages::longListIsCutAndFiltered()
{
    for (int i = 0; i < 100'000; ++i) {
        add(m_dataSet->messages, 1, 100.0 + i * 0.2, floats(0.0F));
        add(m_dataSet->messages, 1, 100.1 + i * 0.2, floats(150.0F));
    }
    const auto page = open(new DialogDataLimit(m_profile));
    auto* const filter = page->findChild<QLineEdit*>();
    const auto labels = page->findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(
        labels, [](const QLabel* label) { return label->text().contains("4 more are left out"); }));
    for (const auto& [text, rows] :
         {std::pair("o", 99'999), {"oi", 99'998}, {"oix", 0}, {"", 100'000}}) {
        filter->setText(text);
        QCOMPARE(m_table->rowCount(), rows);
    }
}

void TestPages::listCopiesAndSaves()
{
    const auto page = open(new DialogDataLimit(m_profile));
    page->setTime(12.0);
    QTest::keyClick(m_table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "00:00:10.123\tEngine Oil 150.0 bar");
    const QString path = m_directory.filePath("list.csv");
    ModalBoxes boxes;
    boxes.answer(path);
    actionOf(*m_table, "Save list as CSV")->trigger();
    QVERIFY(readFile(path).startsWith("\xEF\xBB\xBF"));
    const QString text = QString::fromUtf8(readFile(path));
    QCOMPARE(text.count("\r\n"), 5);
    QVERIFY2(text.contains("20.000;;;Engine;\"Rope; \"\"x\"\"\";Limit;"), qPrintable(text));
    m_dataSet->dateTime = QDateTime(QDate(2026, 7, 28), QTime(23, 59, 55), Qt::UTC);
    page->setSettings({".", ';', true});
    boxes.answer(m_directory.filePath("german.csv"));
    actionOf(*m_table, "Save list as CSV")->trigger();
    const QString german = QString::fromUtf8(readFile(m_directory.filePath("german.csv")));
    QVERIFY2(german.contains("00:00:10.123;10,123;29.07.2026;00:00:05;Engine;Oil;Limit;"
                             "Engine Oil 150.0 bar;150,0;bar;00:00:04;-\r\n"),
             qPrintable(german));
    boxes.answer("/proc/none/list.csv");
    boxes.answer("OK");
    actionOf(*m_table, "Save list as CSV")->trigger();
    QVERIFY(boxes.seen().back().contains("/proc/none/list.csv"));
}

void TestPages::lampsOnly()
{
    const auto page = open(new DialogDataWarning(m_profile));
    QCOMPARE(m_table->rowCount(), 1);
    QCOMPARE(m_table->horizontalHeaderItem(1)->text(), "Warning Lamps");
    const DataSet empty;
    page->setData(&empty); // an empty list says so
    const auto* const label = page->findChild<QLabel*>("emptyState");
    QVERIFY(label->isVisible());
    QCOMPARE(label->text(), "No lamp came on in this data set");
    m_dataSet = std::make_unique<DataSet>();
    add(m_dataSet->messages, 3, 0.0, {1});
    page->setData(m_dataSet.get());
    QCOMPARE(label->text(), "No lamp came on in this data set\nOn from the start: Engine Lamp");
}

void TestPages::statisticTexts()
{
    Flight flight;
    flight.startSeconds = 100.0;
    flight.endSeconds = 3825.9;
    flight.fuelA = 12.5;
    flight.fuelB = 0.1;
    flight.fuel = 12.6;
    flight.maxAltitude = 1213.0118408203125;
    flight.timePer100m = 67.9;
    flight.takeOffDistance = 1e6;
    const auto row = [](const char* label, const char* value) {
        return QStringLiteral("<tr><td>%1  :  </td><td><b>%2</b></td></tr>").arg(label, value);
    };
    QCOMPARE(DialogDataStatistic::textOf(flight),
             "<table>" + row("Flight Time", "01:02:05") + row("Total Fuel Lane A", "12.5 l") +
                 row("Total Fuel Lane B", "0.1 l") + row("Total Fuel", "12.6 l") +
                 row("Minimum Alt", "0 m") + row("Maximum Alt", "1213.0118408203125 m") +
                 row("Total Climb", "0 m") + row("Average Climb Rate", "0 m/s") +
                 row("Average Descend Rate", "0 m/s") + row("Max Ground Speed", "0 km/h") +
                 row("Time / 100m", "00:01:07") + row("Fuel / 100m", "0 l") +
                 row("Take Off Distance", "1e+06 m") + row("Take Off Distance 15m", "0 m") +
                 "</table>");
    flight.timePer100m = std::numeric_limits<double>::infinity();
    QVERIFY(DialogDataStatistic::textOf(flight).contains("--:--:--"));
}

void TestPages::statisticWithoutFlight()
{
    const auto page = open(new DialogDataStatistic);
    auto* const text = page->findChild<QTextEdit*>();
    QCOMPARE(text->toPlainText().trimmed(), "No flight selected");
    QVERIFY(text->alignment().testFlag(Qt::AlignHCenter));
    Flight flight;
    flight.endSeconds = 61.0;
    m_dataSet->flights = {flight};
    m_dataSet->flightIndex = 0;
    page->setData(m_dataSet.get());
    QVERIFY(text->toPlainText().contains("00:01:01"));
    QVERIFY(page->findChild<QLabel*>()->isVisible()); // the note on flight time
    page->clear();                                    // leaves the text
    QVERIFY(text->toPlainText().contains("00:01:01"));
}

void TestPages::statisticNotes()
{
    const auto page = open(new DialogDataStatistic);
    auto* const notes = page->findChild<QTextEdit*>("figureNotes");
    m_dataSet->flights.resize(2);
    m_dataSet->flightIndex = 1;
    RecordingTrust trust;
    trust.findings.resize(3);
    trust.findings[0].text = "Of the date only";
    trust.findings[0].marks = {{1, Figure::DateTime}};
    trust.findings[1].text = "A hole";
    trust.findings[1].marks = {{0, Figure::All}, {1, Figure::Fuel | Figure::MaxAltitude}};
    trust.findings[2].text = "A copy";
    trust.findings[2].marks = {{1, Figure::Fuel}};
    page->setData(m_dataSet.get());
    QVERIFY(!notes->isVisible());
    page->setTrust(std::make_shared<const RecordingTrust>(trust));
    QCOMPARE(notes->toPlainText(), QString::fromUtf8("Figures that may be wrong: Total Fuel \u00b9 "
                                                     "\u00b2, Maximum Alt \u00b9\n\u00b9 A hole\n"
                                                     "\u00b2 A copy"));
    QVERIFY(notes->isVisible() && notes->y() >= page->findChild<QTextEdit*>()->geometry().bottom());
    trust.findings[1].text = QStringLiteral("long ").repeated(500);
    page->setTrust(std::make_shared<const RecordingTrust>(trust));
    QVERIFY(notes->verticalScrollBar()->maximum() > 0); // which takes of the texts' width
    QCOMPARE(notes->horizontalScrollBar()->maximum(), 0);
    m_dataSet->flightIndex.reset();
    page->setData(m_dataSet.get());
    QVERIFY(!notes->isVisible());
}

void TestPages::stripPlaces()
{
    std::vector<TrustFinding> findings(6);
    const auto set = [&](std::size_t i, TrustKind kind, std::optional<double> from,
                         std::optional<double> to) {
        findings[i].kind = kind;
        findings[i].from = from;
        findings[i].to = to;
    };
    set(0, TrustKind::Hole, 40.2, 40.4);
    set(1, TrustKind::OverlappingFiles, 20.0, 60.0);
    set(2, TrustKind::TruncatedFile, 80.0, std::nullopt); // nobody knows how much lacks
    set(3, TrustKind::TimeJump, 100.0, 150.0);
    set(4, TrustKind::SerialChanged, std::nullopt, std::nullopt);
    set(5, TrustKind::NotANumber, 10.0, 20.0);
    QStringList places;
    const TimeStrip strip{0.0, 100.0, 101, 10};
    const std::vector<StripPiece> pieces = stripPieces(strip, findings);
    for (const StripPiece& piece : pieces)
        places << QStringLiteral("%1: %2-%3")
                      .arg(piece.finding)
                      .arg(piece.run.left)
                      .arg(piece.run.right);
    QCOMPARE(places, (QStringList{"1: 30-70", "3: 104-110", "0: 48-51", "2: 88-91"}));
    QCOMPARE(pieceAt(pieces, 50, 3)->finding, 0U); // above the wide one
    QCOMPARE(pieceAt(pieces, 54, 3)->finding, 1U);
    QCOMPARE(pieceAt(pieces, 75, 3), nullptr);
}

void TestPages::faultRows()
{
    const auto page = open(new WidgetFaultMatrix(m_profile));
    const QList<WidgetErrorTime*> rows = page->findChildren<WidgetErrorTime*>();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows[0]->accessibleName(), "Crank");
    QCOMPARE(rows[0]->history().count(), 2U);
    auto* const onlyOccurred = page->findChild<QCheckBox*>();
    QVERIFY(rows[1]->isVisible());
    onlyOccurred->click();
    QVERIFY(rows[0]->isVisible() && !rows[1]->isVisible());
    page->refresh(DataPage::Change::Font); // keeps the choice
    QVERIFY(!page->findChildren<WidgetErrorTime*>().at(1)->isVisible());
    // A heading without lines is hidden too.
    const auto title = [&] { return labelled<QLabel>(*page, "Lane"); };
    QVERIFY(title()->isVisible());
    QTest::keyClicks(page->findChild<QLineEdit*>(), "cam");
    QVERIFY(!title()->isVisible());
    onlyOccurred->click();
    QVERIFY(title()->isVisible() && !page->findChildren<WidgetErrorTime*>().at(0)->isVisible());
    page->clear();
    QVERIFY(page->findChildren<WidgetErrorTime*>().isEmpty());
}

void TestPages::faultStripReports()
{
    const auto page = open(new WidgetFaultMatrix(m_profile));
    QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    QSignalSpy reported(page.get(), &WidgetFaultMatrix::signalTime);
    WidgetErrorTime* const row = page->findChildren<WidgetErrorTime*>().at(0);
    const int nameWidth = page->fontMetrics().horizontalAdvance("Crank");
    const QRect strip = WidgetErrorTime::layoutFor(row->size(), nameWidth).strip;
    const TimeStrip places{0.0, 50.0, strip.width()};
    const int start = strip.left() + places.xOf(10.0);
    for (const int x : {strip.left(), strip.right(), strip.left() - 10, start - 2, start - 9})
        QTest::mouseClick(row, Qt::LeftButton, {}, QPoint(x, strip.center().y()));
    QCOMPARE(reported.size(), 4); // the name reports nothing
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 0.0);
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 50.0);
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 10.0); // close to the fault: its start
    QVERIFY(reported.takeFirst().value(0).toDouble() < 10.0);
    // The strip is drawn in the fault's colour where the fault was set.
    const QImage picture = row->grab().toImage();
    const auto colorAt = [&](double seconds) {
        return picture.pixelColor(strip.left() + places.xOf(seconds), strip.center().y());
    };
    for (const auto& [seconds, color] :
         {std::pair(5.0, "#e9ecef"), {15.0, "#b3261e"}, {30.0, "#e9ecef"}, {45.0, "#b3261e"}})
        QCOMPARE(colorAt(seconds).name(), color); // not cleared until the end
    page->setTime(30.0);
    QCOMPARE(row->grab().toImage().pixelColor(strip.left() + places.xOf(30.0), strip.center().y()),
             QColor(0x1b, 0x22, 0x29));
    QCOMPARE(reported.size(), 0);
}

void TestPages::faultKeysJump()
{
    const auto page = open(new WidgetFaultMatrix(m_profile));
    QSignalSpy reported(page.get(), &WidgetFaultMatrix::signalTime);
    WidgetErrorTime* const row = page->findChildren<WidgetErrorTime*>().at(0);
    page->setTime(12.0);
    for (const auto& [key, seconds] : {std::pair(Qt::Key_Right, 40.0), {Qt::Key_Left, 10.0}}) {
        QTest::keyClick(row, key);
        QCOMPARE(reported.takeFirst().value(0).toDouble(), seconds);
    }
    QTest::keyClick(row, Qt::Key_Left); // there is none before
    QCOMPARE(reported.size(), 0);
}

void TestPages::findingsAreShownInTheGraph_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<double>("time");
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<double>("begin");
    QTest::addColumn<double>("end");
    QTest::newRow("exceedance") << "limits" << 12.0 << "Engine/Oil" << 10.1234 << 15.0;
    QTest::newRow("until the end") << "limits" << 21.0 << "Engine/Oil" << 20.02 << 50.0;
    QTest::newRow("lamp") << "lamps" << 0.0 << "Engine/Lamp" << 30.0 << 50.0;
    QTest::newRow("fault") << "faults" << 12.0 << "Engine/Crank" << 10.0 << 20.0;
    QTest::newRow("open fault") << "faults" << 45.0 << "Engine/Crank" << 40.0 << 50.0;
    QTest::newRow("line of a fault") << "line" << 30.0 << "Engine/Crank" << 10.0 << 20.0;
    QTest::newRow("line, before its fault") << "line" << 1.0 << "Engine/Crank" << 10.0 << 20.0;
}

void TestPages::findingsAreShownInTheGraph()
{
    QFETCH(const QString, list);
    QFETCH(const double, time);
    std::unique_ptr<QWidget> page;
    QWidget* key = nullptr;
    std::vector<GraphTarget> targets;
    const auto prepare = [&](auto* made) {
        page = open(made);
        made->setTime(time);
        connect(made, &std::remove_pointer_t<decltype(made)>::signalShowInGraph,
                [&](const GraphTarget& target) { targets.push_back(target); });
    };
    if (list == "limits")
        prepare(new DialogDataLimit(m_profile));
    else if (list == "lamps")
        prepare(new DialogDataWarning(m_profile));
    else
        prepare(new WidgetFaultMatrix(m_profile));
    key = list == "line" ? static_cast<QWidget*>(page->findChild<WidgetErrorTime*>())
                         : page->findChild<QTableView*>();
    QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    QApplication::setActiveWindow(page.get());
    key->setFocus();
    QTest::keyClick(key, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(targets.size(), 1U);
    QTEST(targets[0].parameter, "parameter");
    QFETCH(const double, begin);
    QFETCH(const double, end);
    QVERIFY(std::abs(targets[0].begin - begin) < 1e-6 && std::abs(targets[0].end - end) < 1e-6);
}

void TestPages::faultsAreListed()
{
    const auto page = open(new WidgetFaultMatrix(m_profile));
    auto* const list = page->findChild<QTableView*>();
    const QAbstractItemModelTester tester(list->model());
    QSignalSpy reported(page.get(), &WidgetFaultMatrix::signalTime);
    page->setTime(30.0);
    QCOMPARE(list->currentIndex().row(), 0); // the last that began
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(reported.takeFirst().value(0).toDouble(), 40.0);
    QTest::keyClick(list, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             "Fault\tBegin\tDuration\tEnd\nCrank\t00:00:10.000\t10.0 s\t00:00:20.000\n"
             "Crank\t00:00:40.000\t10.0 s\tuntil the end of the data\n");
    page->setTime(5.0); // what is about to be copied stays selected
    QCOMPARE(list->selectionModel()->selectedRows().size(), 2);
    const QString path = m_directory.filePath("faults.csv");
    ModalBoxes boxes;
    boxes.answer(path);
    page->setSettings({".", ';', true});
    actionOf(*list, "Save list as CSV")->trigger();
    const QString text = QString::fromUtf8(readFile(path));
    QVERIFY2(text.contains("Engine/Crank;Fault;00:00:10.000;10,000;;;00:00:20.000;20,000;10,000;4"),
             qPrintable(text));
    QTest::keyClicks(page->findChild<QLineEdit*>(), "warning"); // the class of the other
    QCOMPARE(list->model()->rowCount(), 0);
}

void TestPages::pointerTellsItsTime()
{
    const auto page = open(new WidgetFaultMatrix(m_profile));
    QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    WidgetErrorTime* const row = page->findChildren<WidgetErrorTime*>().at(1);
    const QImage before = row->grab().toImage();
    const QRect strip =
        WidgetErrorTime::layoutFor(row->size(), page->fontMetrics().horizontalAdvance("Crank"))
            .strip;
    QTest::mouseMove(row, strip.center());
    QTRY_VERIFY(row->grab().toImage() != before);
    QTest::mouseMove(row, QPoint(2, 2));
    QTRY_VERIFY(row->grab().toImage() == before);
}

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
