#include "base/WriteGuard.h"
#include "export/ui/DialogExportCsv.h"
#include "export/ui/DialogExportGpx.h"
#include "export/ui/DialogExportKml.h"
#include "export/ui/WidgetColorButton.h"
#include "tests/support/Buttons.h"
#include "tests/support/ModalBoxes.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QSpinBox>

using namespace KOLT;
using namespace KOLT::Test;

/// The export dialogs, operated like a user does, and their settings.
class TestExportDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { m_dialog.reset(); }

    void kmlOptionsReachTheFileAndAreReported();
    void csvOptionsReachTheFileAndAreReported();
    void packedAndOtherKinds();
    void whatCannotBeExported();
    void failuresAreTold_data();
    void failuresAreTold();
    void suffixIsAddedBeforeOverwriting();
    void cancelKeepsTheFormerFile();

private:
    void open(const QString& suffix);

    void clickExport() const { click(*m_dialog, "Export..."); }

    bool canExport() const { return labelled(*m_dialog, "Export...")->isEnabled(); }

    DialogExport::Source source() const
    {
        return {m_dataSet, "Flight 1", "Proposed", m_directory->path()};
    }

    QString summary() const { return m_dialog->findChildren<QLabel*>("hint").last()->text(); }

    template <typename Widget>
    Widget* find(const QString& name) const
    {
        return m_dialog->findChild<Widget*>(name);
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    Profile m_profile;
    DataSet m_dataSet;
    KmlOptions m_kml;
    CsvOptions m_csv;
    GpxOptions m_gpx;
    QStringList m_chosen;
    std::unique_ptr<DialogExport> m_dialog;
};

void TestExportDialogs::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    const DiagnosticsCapture output;
    QVERIFY(loadProfile(
        m_profile,
        device({"name='Lat' id='1' dataType='FLOAT' koltDataType='Latitude'",
                "name='Lon' id='1' startByte='4' dataType='FLOAT' koltDataType='Longitude'",
                "name='Alt' id='2' dataType='FLOAT' koltDataType='Altitude'"})));
    m_dataSet.dateTime = QDateTime(QDate(2026, 7, 28), QTime(12, 0), Qt::UTC);
    m_dataSet.stopSeconds = 100.0;
    m_dataSet.messages.clear();
    for (int t = 0; t <= 100; ++t) {
        add(m_dataSet.messages, 1, t, floats(4830.0F, 1100.0F + static_cast<float>(t) / 10));
        add(m_dataSet.messages, 2, t, floats(500.5F));
    }
    m_dataSet.track = buildTrack(m_profile, m_dataSet.messages);
    m_kml = {};
    m_csv = {};
    m_chosen.clear();
}

void TestExportDialogs::open(const QString& suffix)
{
    if (suffix == "kml")
        m_dialog = std::make_unique<DialogExportKml>(m_profile, source(), m_kml);
    else if (suffix == "csv")
        m_dialog = std::make_unique<DialogExportCsv>(m_profile, source(), m_csv);
    else
        m_dialog = std::make_unique<DialogExportGpx>(m_profile, source(), m_gpx);
    connect(m_dialog.get(), &DialogExport::signalChosen, this, [this](const QString& folder) {
        m_chosen << folder; // the options may be stored now
        if (const auto* const kml = qobject_cast<DialogExportKml*>(m_dialog.get()))
            m_kml = kml->options();
        if (const auto* const csv = qobject_cast<DialogExportCsv*>(m_dialog.get()))
            m_csv = csv->options();
        if (const auto* const gpx = qobject_cast<DialogExportGpx*>(m_dialog.get()))
            m_gpx = gpx->options();
    });
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

void TestExportDialogs::kmlOptionsReachTheFileAndAreReported()
{
    open("kml");
    QVERIFY(summary().contains("201 positions"));
    find<QSpinBox>("KmlLineWidth")->setValue(9);
    find<QSpinBox>("KmlPlaceMarkIntervall")->setValue(100);
    for (auto* group : m_dialog->findChildren<QGroupBox*>()) {
        if (group->title().startsWith("Curtain"))
            group->setChecked(false);
    }
    ModalBoxes boxes;
    auto* const color = m_dialog->findChildren<WidgetColorButton*>().first();
    boxes.handle([](QDialog& dialog) {
        qobject_cast<QColorDialog*>(&dialog)->setCurrentColor(QColor(1, 2, 3));
        dialog.accept();
    });
    color->click();
    const QString path = m_directory->filePath("new.kml");
    boxes.answer(path);
    clickExport();
    QVERIFY(boxes.isDone());
    QCOMPARE(boxes.seen(), QStringList{"Export KML File"});
    QCOMPARE(m_dialog->result(), int{QDialog::Accepted});
    QCOMPARE(m_dialog->exportedPath(), path);
    const QByteArray content = readFile(path);
    QVERIFY(content.contains("<name>Flight 1</name>") && content.contains("<width>9</width>"));
    QVERIFY(content.contains("<color>ff030201</color>"));
    QCOMPARE(content.count("<LineString>"), 1);
    QCOMPARE(content.count("<Point>"), 3);
    QCOMPARE(m_chosen, QStringList{m_directory->path()});
    QCOMPARE(m_kml.lineWidth, 9);
    QCOMPARE(m_kml.placeMarkInterval, 100);
    QVERIFY(!m_kml.polygonOn);
    // The next dialog starts with them.
    open("kml");
    QCOMPARE(find<QSpinBox>("KmlLineWidth")->value(), 9);
    QCOMPARE(m_dialog->findChildren<WidgetColorButton*>().first()->color(), QColor(1, 2, 3));
}

void TestExportDialogs::csvOptionsReachTheFileAndAreReported()
{
    m_profile.select([](const ProfileParameter& parameter) { return parameter.name == "Alt"; });
    m_csv.separator = '|'; // not in the list
    open("csv");
    QVERIFY2(summary().startsWith("1,001 rows, about "), qPrintable(summary()));
    labelled(*m_dialog, "Decimal comma")->setChecked(true);
    labelled(*m_dialog, "Selected parameters (1)")->setChecked(true);
    find<QSpinBox>("resolution")->setValue(50'000);
    QVERIFY2(summary().startsWith("3 rows, about "), qPrintable(summary()));
    ModalBoxes boxes;
    boxes.answer(m_directory->filePath("new.csv"));
    clickExport();
    QCOMPARE(readFile(m_directory->filePath("new.csv")).split('\n').value(2),
             QByteArray("2026-07-28|12:00:50,000|50,000|500,500000\r"));
    QCOMPARE(m_csv.separator, '|');
    QCOMPARE(m_csv.resolution, 50'000);
    QVERIFY(!m_csv.allParameters);
    QVERIFY(m_csv.decimalComma);
}

void TestExportDialogs::packedAndOtherKinds()
{
    open("kml");
    labelled(*m_dialog, "KMZ file")->setChecked(true);
    find<QComboBox>("altitudes")->setCurrentIndex(1);
    ModalBoxes boxes;
    boxes.answer(m_directory->filePath("packed")); // the suffix is added
    clickExport();
    QVERIFY2(readFile(m_directory->filePath("packed.kmz")).startsWith("PK"),
             qPrintable(boxes.seen().join('\n')));
    QVERIFY(m_kml.packed && m_kml.altitudeMode == KmlOptions::AltitudeMode::Ground);
    open("kml"); // starts with these, and they can be taken back
    labelled(*m_dialog, "KMZ file")->setChecked(false);
    boxes.answer(m_directory->filePath("plain"));
    clickExport();
    const QByteArray content = readFile(m_directory->filePath("plain.kml"));
    QVERIFY(content.contains("clampToGround") && content.contains("http://maps"));

    open("gpx");
    labelled(*m_dialog, "Waypoints")->setChecked(false);
    boxes.answer(m_directory->filePath("flight.gpx"));
    clickExport();
    QVERIFY(!m_gpx.wayPoints && m_gpx.speeds);
    open("csv");
    labelled(*m_dialog, "Codes without labels")->setChecked(true);
    boxes.answer(m_directory->filePath("codes.csv"));
    clickExport();
    QVERIFY(m_csv.codesOnly);
}

void TestExportDialogs::whatCannotBeExported()
{
    m_profile.select([](const ProfileParameter&) { return false; });
    open("csv");
    QVERIFY(canExport());
    labelled(*m_dialog, "Selected parameters (0)")->setChecked(true);
    QCOMPARE(summary(), "No parameters are selected.");
    QVERIFY(!canExport());
    labelled(*m_dialog, "All parameters")->setChecked(true);
    QVERIFY(canExport());
    m_csv.separator = '"';
    open("csv");
    m_csv = {};
    QVERIFY(summary().startsWith("This separator") && !canExport());
    auto* const separator = find<QComboBox>("separator");
    separator->setCurrentIndex(separator->findData(int{','}));
    QVERIFY(canExport());
    labelled(*m_dialog, "Decimal comma")->setChecked(true);
    QVERIFY(summary().startsWith("The decimal comma") && !canExport());
    separator->setCurrentIndex(separator->findData(int{'\t'}));
    QVERIFY(canExport());
    for (const int t : {2'000'000, 2'000'001}) // weeks later
        add(m_dataSet.messages, 2, t);
    open("csv");
    find<QSpinBox>("resolution")->setValue(10);
    QVERIFY(summary().contains("too many") && !canExport());
    m_dataSet.messages.clear();
    add(m_dataSet.messages, 2, 5e11); // damaged
    open("csv");
    QVERIFY(summary().startsWith("No sample with a usable time"));
    QVERIFY(!canExport());
    m_dataSet.track.clear();
    for (const char* suffix : {"kml", "gpx"}) {
        open(suffix);
        QVERIFY(summary().startsWith("No position was recorded"));
        QVERIFY(!canExport());
    }
}

void TestExportDialogs::failuresAreTold_data()
{
    const Rows<QString, QString> row; // the file, the reported failure
    // Not even root can write to /proc.
    row("kml", "/proc/out.kml", "KOLT Warning|Exporting KML file failed !|OK");
    row("csv", "/proc/out.csv", "KOLT Viewer Warning|Exporting CSV file failed !|OK");
    row("gpx", "/proc/out.gpx", "KOLT Warning|Exporting GPX file failed !|OK");
    row("card", "card/sub/out.gpx", "KOLT Warning|Nothing is written to the folder");
}

void TestExportDialogs::failuresAreTold()
{
    const auto [file, told] = fetchRow<QString, QString>();
    QVERIFY(QDir().mkpath(m_directory->filePath("card/sub")));
    const auto protection = protectFolder(m_directory->filePath("card"));
    open(file.section('.', -1));
    ModalBoxes boxes;
    const QString path = QDir(m_directory->path()).absoluteFilePath(file);
    boxes.answer(path);
    boxes.answer("OK");
    clickExport();
    QVERIFY(QString(boxes.seen().last()).remove('&').startsWith(told));
    QVERIFY(m_dialog->isVisible() && canExport());
    QVERIFY(m_dialog->exportedPath().isEmpty());
    QVERIFY(!QFile::exists(path));
}

void TestExportDialogs::suffixIsAddedBeforeOverwriting()
{
    const QString path = m_directory->filePath("flight.gpx");
    QVERIFY(writeFile(path, "before"));
    open("gpx");
    ModalBoxes boxes;
    boxes.answer(m_directory->filePath("flight"));
    boxes.answer("&No");
    boxes.answer({}); // cancels the file dialog
    clickExport();
    QVERIFY2(boxes.seen().value(1).contains("flight.gpx"), qPrintable(boxes.seen().join('\n')));
    QCOMPARE(readFile(path), QByteArray("before"));
    boxes.answer(m_directory->filePath("flight"));
    boxes.answer("&Yes");
    clickExport();
    QVERIFY(readFile(path).contains("<trkpt"));
}

void TestExportDialogs::cancelKeepsTheFormerFile()
{
    const QString path = m_directory->filePath("long.csv");
    QVERIFY(writeFile(path, "before"));
    for (const int t : {15'000, 15'001})
        add(m_dataSet.messages, 2, t);
    m_csv.resolution = 1; // fifteen million rows
    open("csv");
    ModalBoxes boxes;
    boxes.answer(path);
    boxes.answer("&Yes");
    auto* const progress = m_dialog->findChild<QProgressBar*>();
    int looks = 0;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        if (!progress->isVisible())
            return;
        ++looks; // the window responds during the export
        QVERIFY(!canExport() && !find<QSpinBox>("resolution")->isEnabled());
        if (looks == 2)
            m_dialog->close(); // cancels the export, does not close
        if (looks == 3)
            click(*m_dialog, "Cancel");
    });
    look.start(1);
    clickExport();
    look.stop();
    QVERIFY2(looks >= 2, qPrintable(QString::number(looks)));
    QVERIFY(m_dialog->isVisible() && !progress->isVisible());
    QVERIFY(summary().startsWith("Cancelled"));
    QCOMPARE(readFile(path), QByteArray("before"));
    QCOMPARE(QDir(m_directory->path()).entryList({"long*"}, QDir::Files | QDir::Hidden),
             QStringList{"long.csv"});
    QVERIFY(canExport());
}

QTEST_MAIN(TestExportDialogs)
#include "tst_exportdialogs.moc"
