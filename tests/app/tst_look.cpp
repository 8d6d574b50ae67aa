#include "analysis/ui/WidgetTimeTable.h"
#include "app/settings/SettingsStore.h"
#include "app/startup/Startup.h"
#include "app/startup/StyleSheet.h"
#include "graph/Contrast.h"
#include "profile/Profile.h"
#include "resources/Resources.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"
#include "ui/EmptyNote.h"
#include "ui/PaintedIcon.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTableView>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

constexpr double readable = 4.5; // contrast that small text needs
constexpr double visible = 3.0;  // and marks

/// The mean lightness of what an icon draws.
int inkOf(const QIcon& icon)
{
    const QImage image = icon.pixmap(24).toImage();
    int sum = 0;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) < 200)
                continue;
            sum += qGray(image.pixel(x, y));
            ++count;
        }
    }
    return count > 0 ? sum / count : -1;
}

} // namespace

class TestLook : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase() { initKoltResources(); }

    void textsCanBeRead_data();
    void textsCanBeRead();
    void cellsCanBeRead();
    void choiceIsApplied_data();
    void choiceIsApplied();
};

void TestLook::textsCanBeRead_data()
{
    const Rows<Tone, QList<Tone>, double> row; // text, grounds, contrast
    const QList<Tone> grounds{Tone::Background, Tone::Panel, Tone::Button, Tone::Hover};
    row("text", Tone::Text, grounds + QList{Tone::Selection, Tone::Notice, Tone::Strip}, readable);
    row("quiet", Tone::Quiet, {Tone::Background, Tone::Panel, Tone::Hover}, readable);
    row("disabled", Tone::Disabled, {Tone::Background, Tone::Panel, Tone::Button}, readable);
    row("links", Tone::Accent, {Tone::Background, Tone::Panel}, readable);
    row("mistakes", Tone::Error, {Tone::Background, Tone::Panel}, readable);
    row("chosen", Tone::HighlightText, {Tone::Highlight}, readable);
    row("tool tips", Tone::Background, {Tone::Text}, readable);
    row("fault classes", Tone::ClassText,
        {Tone::ClassInfo, Tone::ClassWarning, Tone::ClassFault, Tone::ClassNone}, readable);
    row("strokes of icons", Tone::Ink, {Tone::Background, Tone::Panel, Tone::Button}, readable);
    row("accents of icons", Tone::InkAccent, {Tone::Background, Tone::Panel}, visible);
    row("folder icons", Tone::InkGold, {Tone::Panel}, visible);
    row("fault marks", Tone::ClassFault, {Tone::Strip}, visible);
}

void TestLook::textsCanBeRead()
{
    const auto [text, grounds, least] = fetchRow<Tone, QList<Tone>, double>();
    for (const Look look : {Look::Light, Look::Dark}) {
        setCurrentLook(look);
        for (const Tone ground : grounds) {
            const double contrast = contrastOf(lookColor(text), lookColor(ground));
            QVERIFY2(contrast >= least,
                     qPrintable(QStringLiteral("%1 on %2: %3")
                                    .arg(lookColor(text).name(), lookColor(ground).name())
                                    .arg(contrast)));
        }
    }
}

void TestLook::cellsCanBeRead()
{
    const QByteArray profile = readFile(QStringLiteral(KOLT_PROFILE));
    static const QRegularExpression colors(QStringLiteral("color=\"(#[0-9a-f]{6})\" state"));
    auto found = colors.globalMatch(QString::fromUtf8(profile));
    QVERIFY(found.hasNext());
    while (found.hasNext()) {
        const QColor color(found.next().captured(1));
        for (const Look look : {Look::Light, Look::Dark}) {
            setCurrentLook(look);
            QVERIFY(contrastOf(lookColor(Tone::Text), WidgetTimeTable::tint(color, false)) >=
                    readable);
            QVERIFY(contrastOf(lookColor(Tone::Quiet), WidgetTimeTable::tint(color, true)) >=
                    readable);
        }
    }

    StyleSheet sheet; // what is the same in both looks
    sheet.read(QStringLiteral(":/styles/style.KOLT.css"));
    const auto value = [&](const char* name) { return QColor(sheet.variables().at(name)); };
    for (const auto& [text, ground] :
         {std::pair("nightText", "nightPanel"), std::pair("nightQuiet", "nightPanel"),
          std::pair("night", "nightText"), std::pair("paperText", "paperSelection"),
          std::pair("paperText", "paper")})
        QVERIFY2(contrastOf(value(text), value(ground)) >= readable, text);
}

void TestLook::choiceIsApplied_data()
{
    const Rows<QByteArray, Look> row; // setting, look
    row("at first", {}, Look::Light);
    row("dark", "dark", Look::Dark);
    row("light", "light", Look::Light);
    row("as the system, which is light here", "system", Look::Light);
    row("unknown", "blue", Look::Light);
}

void TestLook::choiceIsApplied()
{
    const auto [setting, look] = fetchRow<QByteArray, Look>();
    // What is there changes with the look, without being made anew.
    Startup::showLook(*qApp, look == Look::Dark ? Look::Light : Look::Dark);
    QTableView table;
    EmptyNote note(&table);
    note.showNote(QStringLiteral("empty"));
    table.show();
    const QIcon icon = lookIcon(QStringLiteral("copy"));
    const int inkBefore = inkOf(icon);
    SettingsStore::instance().setText("Look", setting);
    Startup::applyLook(*qApp);
    QCOMPARE(lookOf(QApplication::palette()), look);
    QCOMPARE(lookOf(table.palette()), look);
    QCOMPARE(inkOf(icon) > inkBefore, look == Look::Dark);
    QVERIFY(std::abs(inkOf(icon) - inkBefore) > 60);
    QCOMPARE(note.palette().color(QPalette::WindowText), lookColor(Tone::Quiet));
    const QColor ground = table.viewport()->grab().toImage().pixelColor(2, 2);
    QCOMPARE(ground, lookColor(Tone::Panel));
    QVERIFY(!qApp->styleSheet().contains("$("));
}

QTEST_MAIN(TestLook)
#include "tst_look.moc"
