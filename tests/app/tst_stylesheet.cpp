#include "app/startup/StyleSheet.h"
#include "tests/support/TestFiles.h"

#include <QTest>

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
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("applied");

    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("as it is") << QByteArray("QLabel { color: red; }\n")
                              << "QLabel { color: red; }\n";
    QTest::newRow("comments") << QByteArray("/* a ** / */QLabel { // why\n color: red; /***/}")
                              << "QLabel { \n color: red; }";
    QTest::newRow("variables") << QByteArray(
                                      "A{b:$(x);}Variables { x: 1px; yy : #f00 ; }C{d:$(yy) $(X);}")
                               << "A{b:1px;}C{d:#f00 $(X);}";
    QTest::newRow("variables of variables")
        << QByteArray("Variables{a:1;b:$(a);c:$(b) $(a);}A{x:$(c);}") << "A{x:1 1;}";
    QTest::newRow("another case is another block")
        << QByteArray("variables{x:1;}A{b:$(x);}") << "variables{x:1;}A{b:$(x);}";
    QTest::newRow("unfinished") << QByteArray("A{b:1;}C{d:") << "A{b:1;}C{d:";
}

void TestStyleSheet::appliedText()
{
    QFETCH(QByteArray, file);
    const QTemporaryDir directory;
    const QString path = directory.filePath("style.css");
    writeFile(path, file);
    QTEST(StyleSheet().read(path), "applied");
    QCOMPARE(StyleSheet().read(directory.filePath("missing.css")), QString());
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
