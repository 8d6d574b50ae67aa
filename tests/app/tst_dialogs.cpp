#include "app/JobQueue.h"
#include "app/dialogs/DialogAbout.h"
#include "app/dialogs/DialogDaySheet.h"
#include "app/dialogs/DialogHelp.h"
#include "app/dialogs/DialogPreferences.h"
#include "app/dialogs/DialogProfileInfo.h"
#include "app/dialogs/ParameterListModel.h"
#include "app/dialogs/SheetPrinter.h"
#include "app/settings/SettingsStore.h"
#include "app/startup/Startup.h"
#include "record/CardContainer.h"
#include "resources/Resources.h"
#include "tests/support/Buttons.h"
#include "tests/support/ModalBoxes.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QTextBrowser>

using namespace KOLT;
using namespace KOLT::Test;

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void preferencesAreStoredAndApplied();
    void profileParametersCanBeSearched();
    void manualHasAllItsLinks();
    void daySheetOfDaysAndFolder();
    void daySheetOpensAndSaves();
    void sheetIsReadOnPaper_data();
    void sheetIsReadOnPaper();
    void licencesAreShown();
    void translationsAreThere();

private:
    QString folderWithFlights();
    static bool loadSheetProfile(Profile& profile);

    QTemporaryDir m_home;
};

void TestDialogs::initTestCase()
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    initKoltResources();
    const DiagnosticsCapture output;
    Startup::loadSettings();
}

void TestDialogs::preferencesAreStoredAndApplied()
{
    const DiagnosticsCapture output;
    SettingsStore& settings = SettingsStore::instance();
    DialogPreferences dialog(SettingsStore::instance());
    QSignalSpy unit(&dialog, &DialogPreferences::signalUnitChanged);
    const QSignalSpy map(&dialog, &DialogPreferences::signalMapChanged);
    dialog.show();
    const auto combos = dialog.findChildren<QComboBox*>();
    auto* const fontSize = dialog.findChild<QSpinBox*>();
    auto* const restart = dialog.findChild<QLabel*>("hint");
    QCOMPARE(fontSize->value(), 12);
    QVERIFY(!restart->isVisible());
    combos.at(0)->setCurrentIndex(1);
    QVERIFY(restart->isVisible()); // the dialog says that the language needs a restart
    combos.at(1)->setCurrentIndex(1);
    combos.at(2)->setCurrentIndex(1);
    fontSize->setValue(17);
    dialog.findChildren<QDoubleSpinBox*>().at(2)->setValue(0.75);
    QCOMPARE(settings.getText("Locale", "us"), "us"); // nothing is stored before OK
    auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(settings.getText("Locale"), "de");
    QCOMPARE(settings.getDouble("MapShadingFactor", 0.0), 0.75);
    QCOMPARE(QApplication::font().pixelSize(), 17);
    QCOMPARE(settings.getText("Look"), "dark");
    QCOMPARE(lookOf(QApplication::palette()), Look::Dark);
    QCOMPARE(unit.takeFirst().value(0).toInt(), 1);
    QCOMPARE(map.size(), 1);

    // What was not changed is kept, even values that the fields cannot show.
    const std::pair<const char*, const char*> odd[] = {{"MapShadingContrast", "0.125"},
                                                       {"MapShadingBrightness", "12.5"},
                                                       {"TileServer", "http://a/ "},
                                                       {"Unit", "7"}};
    for (const auto& [key, value] : odd)
        settings.setText(key, value);
    dialog.show();
    settings.setText("Unit", "1"); // as set by the main window's selector
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    settings.setText("Unit", settings.getText("Unit") == "1" ? "7" : "wrong");
    for (const auto& [key, value] : odd)
        QCOMPARE(settings.getText(key), value);

    dialog.show(); // "Cancel" discards changes
    fontSize->setValue(9);
    QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    dialog.show();
    QCOMPARE(fontSize->value(), 17);
    QCOMPARE(settings.getInteger("FontSize", 0), 17);
}

void TestDialogs::profileParametersCanBeSearched()
{
    const DiagnosticsCapture output;
    Profile profile;
    QVERIFY(loadProfile(
        profile, device({"name='Oil' id='259' dataType='FLOAT' unitMetric='bar'",
                         "name='Lamp' id='1280' startBit='3' endBit='4' dataType='BLONG'"})));
    DialogProfileInfo dialog(profile);
    ParameterListModel model(profile);
    const QAbstractItemModelTester tester(&model);
    QCOMPARE(model.index(1, ParameterListModel::Bits).data().toString(), "3-4");
    QCOMPARE(model.index(0, ParameterListModel::Bits).data().toString(), "");
    auto* const list = dialog.findChild<QTableView*>();
    auto* const search = dialog.findChild<QLineEdit*>();
    QCOMPARE(list->model()->rowCount(), 2);
    QTest::keyClicks(search, "1280");
    QCOMPARE(list->model()->rowCount(), 1);
    QCOMPARE(list->model()->index(0, ParameterListModel::Name).data().toString(), "Lamp");
    search->setText("BAR");
    QCOMPARE(list->model()->index(0, ParameterListModel::Name).data().toString(), "Oil");
    QVERIFY(loadProfile(profile, ""));
    dialog.refresh();
    QCOMPARE(list->model()->rowCount(), 0);
}

void TestDialogs::manualHasAllItsLinks()
{
    for (const auto& [language, word] :
         {std::pair("us", "flight"), {"de", "Flug"}, {"xx", "flight"}}) { // falls back to English
        DialogHelp dialog(language);
        auto* const browser = dialog.findChild<QTextBrowser*>();
        QVERIFY(browser->toPlainText().contains(word));
        const QString html = browser->document()->toHtml();
        static const QRegularExpression link("href=\"#(\\w+)\"");
        int count = 0;
        for (auto it = link.globalMatch(html); it.hasNext(); ++count) {
            const QString anchor = it.next().captured(1);
            QVERIFY2(html.contains("name=\"" + anchor + "\""), qPrintable(anchor));
        }
        QVERIFY(count >= 10);
        auto* const search = dialog.findChild<QLineEdit*>();
        QTest::keyClicks(search, "KOLT.ini");
        QTest::keyClick(search, Qt::Key_Return);
        QCOMPARE(browser->textCursor().selectedText(), "KOLT.ini");
    }
}

/// A folder with two cycles on consecutive days, with a flight each.
QString TestDialogs::folderWithFlights()
{
    const QString path = m_home.filePath("flights");
    QDir().mkpath(path);
    for (int cycle = 0; cycle < 2; ++cycle) {
        RecordBytes opening;
        opening.sample(1, 0.0);
        RecordBytes flight;
        flight.date(2026, 7, 28 + cycle, 12).text(2, "4711").ecuSerial(42);
        for (int i = 0; i < 200; ++i)
            flight.sample(1, i, floats(i > 50 && i < 150 ? 120.0F : 10.0F));
        writeFile(QStringLiteral("%1/%2.CAN").arg(path).arg(10 * cycle), opening.bytes());
        writeFile(QStringLiteral("%1/%2.CAN").arg(path).arg(10 * cycle + 1), flight.bytes());
    }
    return path;
}

bool TestDialogs::loadSheetProfile(Profile& profile)
{
    return loadProfile(profile,
                       device({"name='Speed' id='1' dataType='FLOAT' koltDataType='GroundSpeed'"}));
}

namespace {

SheetSource sourceOf(const CardContainer& card, std::optional<int> cycle = {})
{
    SheetSource source{card.folder(), card.cycles(), {}, {}, cycle, card.clockOffset()};
    if (cycle) {
        source.loadedName = card.cycles().at(*cycle).name;
        for (const QString& name : card.cycles().at(*cycle).fileNames)
            source.loadedFiles.push_back(card.folder() + '/' + name);
    }
    return source;
}

} // namespace

void TestDialogs::daySheetOfDaysAndFolder()
{
    const DiagnosticsCapture output;
    Profile profile;
    QVERIFY(loadSheetProfile(profile));
    CardContainer card(profile);
    QVERIFY(card.readContainer(folderWithFlights()));
    JobQueue jobs;
    DialogDaySheet dialog(profile, SettingsStore::instance(), jobs);
    auto* const scope = dialog.findChild<QComboBox*>();
    const auto choices = [&] {
        QStringList texts;
        for (int i = 0; i < scope->count(); ++i)
            texts << scope->itemText(i);
        return texts.join('|');
    };
    const auto dates = [&] {
        QStringList cells;
        for (const DaySheet::Row& row : dialog.sheet().rows())
            cells << row.cells.front();
        return cells.join('|');
    };
    const QString first = "28.07.2026|28.07.2026|Sum 28.07.2026";
    const QString second = "29.07.2026|29.07.2026|Sum 29.07.2026";
    const QString both = first + '|' + second + "|Total";
    dialog.open(sourceOf(card, 1));
    QCOMPARE(choices(), "28.07.2026|29.07.2026|Cycle 1|All of " + card.folder());
    QCOMPARE(dates(), first);
    QVERIFY(!output.text().contains("11.CAN> 1"));
    scope->setFocus();
    for (const QString& next : {second, first, both}) {
        QTest::keyClick(scope, Qt::Key_Down);
        QCOMPARE(dates(), next);
    }
    QCOMPARE(dialog.findChild<QTableWidget*>()->rowCount(), 7);

    // Nothing is loaded: the newest day. Closed while waiting: nothing is read.
    dialog.open(sourceOf(card));
    QCOMPARE(choices(), "29.07.2026|28.07.2026|All of " + card.folder());
    QCOMPARE(dates(), second);
    const SheetSource none{"/no/such/folder", {}, {}, {}, {}, 0};
    jobs.run([&] {
        dialog.open(none);
        dialog.close();
    });
    QCOMPARE(dates(), second);
    dialog.open(none);
    QCOMPARE(dates(), "");

    // A day as the clock offset moves it.
    card.setClockOffset(-14 * 60);
    dialog.open(sourceOf(card));
    QCOMPARE(choices(), "28.07.2026|27.07.2026|All of " + card.folder());
    QCOMPARE(dates(), first);
    card.setClockOffset(0);

    // Nothing is read behind the cycle at hand once it is cancelled.
    const auto stop = [](const QString&, int) { return false; };
    QCOMPARE(readSheet(profile, sourceOf(card), {}, stop).cycles.size(), 1U);
}

void TestDialogs::daySheetOpensAndSaves()
{
    const DiagnosticsCapture output;
    Profile profile;
    QVERIFY(loadSheetProfile(profile));
    CardContainer card(profile);
    QVERIFY(card.readContainer(folderWithFlights()));
    JobQueue jobs;
    DialogDaySheet dialog(profile, SettingsStore::instance(), jobs);
    dialog.open(sourceOf(card, 2));
    QVERIFY(QTest::qWaitForWindowActive(&dialog));

    const QSignalSpy opened(&dialog, &DialogDaySheet::signalOpen);
    auto* const table = dialog.findChild<QTableWidget*>();
    for (int row = 0; row < 3; ++row) {
        const QPoint place = table->visualItemRect(table->item(row, 0)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
    }
    table->setFocus();
    table->setCurrentCell(0, 0);
    QTest::keyClick(table, Qt::Key_Return);
    QStringList targets;
    for (const QList<QVariant>& call : opened)
        targets << call[1].toString() + ' ' + call[2].toString();
    QCOMPARE(targets.join('|'), "2 0|2 -1|2 0"); // flight, outside, none of the sum; flight

    const QSignalSpy said(&dialog, &DialogDaySheet::signalMessage);
    const auto save = [&](const char* text, const QString& path) {
        ModalBoxes boxes;
        boxes.answer(path);
        click(dialog, text);
        return readFile(path);
    };
    const QByteArray csv = save("Save as CSV...", m_home.filePath("sheet.csv"));
    QCOMPARE(csv.count("\r\n"), 3);
    QVERIFY2(csv.contains(";4711;42;;Dates and times are"), csv);
    const QByteArray pdf = save("Save as PDF...", m_home.filePath("sheet.pdf"));
    QVERIFY(pdf.startsWith("%PDF") && pdf.trimmed().endsWith("%%EOF"));
    QCOMPARE(said.size(), 2);
    QCOMPARE(said[1][0].toString(), "Saved " + m_home.filePath("sheet.pdf"));
    QString proposed;
    QTimer::singleShot(0, &dialog, [&] {
        auto* const box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        proposed = box->findChild<QLineEdit*>()->text();
        box->reject();
    });
    click(dialog, "Save as PDF...");
    QCOMPARE(proposed, "Flights_2026-07-29.pdf");
}

void TestDialogs::sheetIsReadOnPaper_data()
{
    const Rows<int, double> row; // size, points
    row("A4", QPageSize::A4, 842.0);
    row("Letter", QPageSize::Letter, 792.0);
}

void TestDialogs::sheetIsReadOnPaper()
{
    const auto [size, width] = fetchRow<int, double>();
    QFont font = QApplication::font();
    font.setPixelSize(12); // as in the windows
    QApplication::setFont(font);
    FlightLine line;
    line.takeOff = QDateTime(QDate(2026, 7, 28), QTime(10, 0), Qt::UTC);
    line.landing = line.takeOff.addSecs(600);
    SheetCycle cycle;
    cycle.dateTime = line.takeOff;
    cycle.engines = QStringList{"E4711"};
    cycle.log.lines.assign(60, line);
    cycle.findings.push_back({TrustKind::Hole, 1.0, 2.0, {}, "Figures lack it.", {}});
    const DaySheet sheet({cycle, cycle});
    const QString path = m_home.filePath("paper.pdf");
    {
        QPdfWriter writer(path);
        writer.setPageLayout(QPageLayout(QPageSize(static_cast<QPageSize::PageSizeId>(size)),
                                         QPageLayout::Landscape, {}));
        printSheet(sheet.toHtml({"Flights of <b>", "Profile: P42", "UTC.", {}}), writer);
    }
    QProcess tool;
    tool.start("pdftotext", {"-bbox", path, "-"});
    QVERIFY2(tool.waitForFinished(), "pdftotext of the package poppler-utils is missing");
    QStringList pages = QString::fromUtf8(tool.readAllStandardOutput()).split("<page ");
    pages.removeFirst();
    QVERIFY(pages.size() > 1);
    static const QRegularExpression word(
        "xMin=\"(.*)\" yMin=\"(.*)\" xMax=\"(.*)\" yMax=\"(.*)\">(.*)</word>");
    for (const QString& page : pages) {
        double left = width;
        double right = 0.0;
        for (auto it = word.globalMatch(page); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            const auto number = [&](int index) { return match.captured(index).toDouble(); };
            left = std::min(left, number(1));
            right = std::max(right, number(3));
            if (match.captured(5) == "28.07.2026")
                QVERIFY2(number(4) - number(2) > 9.0 && number(4) - number(2) < 16.0,
                         qPrintable(match.captured()));
        }
        QVERIFY2(page.startsWith(QStringLiteral("width=\"%1").arg(width)),
                 qPrintable(page.left(60)));
        QVERIFY2(left > 30.0 && left < width * 0.13, qPrintable(QString::number(left)));
        QVERIFY2(right > width * 0.9 && right < width - 30.0, qPrintable(QString::number(right)));
        // On every page of the table: the column headings.
        QCOMPARE(page.count(">Warnings<"), page.contains(">28.07.2026<") ? 1 : 0);
    }
    for (const char* text : {">landing.<", ">&lt;b&gt;<", ">E4711<", ">P42<", ">UTC.<"})
        QVERIFY2(pages.front().contains(text), text);
    QVERIFY2(pages.back().count(">lack<") == 2, qPrintable(pages.back()));
}

void TestDialogs::licencesAreShown()
{
    const DialogAbout dialog;
    const auto texts = dialog.findChildren<QPlainTextEdit*>();
    QCOMPARE(texts.size(), 4);
    for (const QPlainTextEdit* text : texts)
        QVERIFY(text->toPlainText().size() > 300);
}

void TestDialogs::translationsAreThere()
{
    const DiagnosticsCapture output;
    const auto choose = [](const char* locale) {
        SettingsStore::instance().setText("Locale", locale);
        Startup::installTranslations(*qApp);
    };
    choose("de");
    QVERIFY2(output.text().contains("Translation IOS <de> 1\n"), qPrintable(output.text()));
    QCOMPARE(DialogPreferences::tr("Preferences"), "Einstellungen");
    QCOMPARE(QLocale().decimalPoint(), ",");
    choose("us");
    QCOMPARE(DialogPreferences::tr("Preferences"), "Preferences");
    choose("fr");
    QVERIFY(output.text().contains("Translation IOS <fr> 0\n"));
}

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
