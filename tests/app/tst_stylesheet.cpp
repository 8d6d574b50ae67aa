#include "app/startup/StyleSheet.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

using namespace KOLT;
using namespace KOLT::Test;

class TestStyleSheet : public QObject
{
    Q_OBJECT

private slots:
    void appliedText_data();
    void appliedText();
    void blocksAreKept();
};

void TestStyleSheet::appliedText_data()
{
    const Rows<QByteArray, QString> row; // file, applied
    row("empty", {}, {});
    row("as it is", "QLabel { color: red; }\n", "QLabel { color: red; }\n");
    row("comments", "/* a ** / */QLabel { // why\n color: red; /***/}",
        "QLabel { \n color: red; }");
    row("variables", QByteArray("A{b:$(x);}Variables { x: 1px; yy : #f00 ; }C{d:$(yy) $(X);}"),
        "A{b:1px;}C{d:#f00 $(X);}");
    row("variables of variables", "Variables{a:1;b:$(a);c:$(b) $(a);}A{x:$(c);}", "A{x:1 1;}");
    row("another case is another block", "variables{x:1;}A{b:$(x);}", "variables{x:1;}A{b:$(x);}");
    row("unfinished", "A{b:1;}C{d:", "A{b:1;}C{d:");
}

void TestStyleSheet::appliedText()
{
    const auto [file, applied] = fetchRow<QByteArray, QString>();
    const QTemporaryDir directory;
    const QString path = directory.filePath("style.css");
    writeFile(path, file);
    QCOMPARE(StyleSheet().read(path), applied);
    QCOMPARE(StyleSheet().read(directory.filePath("missing.css")), QString());
    // What the file defines counts more.
    writeFile(path, "A{b:$(x) $(y);}Variables{x:1;}");
    QCOMPARE(StyleSheet().read(path, {{"x", "2"}, {"y", "3"}}), "A{b:1 3;}");
}

void TestStyleSheet::blocksAreKept()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath("style.css");
    writeFile(path, "Variables{w:2px;}A:hover{b:1;c:url(:/x);}A:hover{b:$(w);}");
    StyleSheet sheet;
    sheet.read(path);
    QCOMPARE(sheet.variables(), (StyleSheet::Entries{{"w", "2px"}}));
    QCOMPARE(sheet.blocks().at("A:hover"), (StyleSheet::Entries{{"b", "2px"}, {"c", "url(:/x)"}}));
}

QTEST_GUILESS_MAIN(TestStyleSheet)
#include "tst_stylesheet.moc"
