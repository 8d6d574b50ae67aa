#include "record/VariantFit.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/TestFiles.h"

using namespace KOLT;
using namespace KOLT::Test;

class TestVariantFit : public QObject
{
    Q_OBJECT

private slots:
    void fit_data();
    void fit();
};

void TestVariantFit::fit_data()
{
    QTest::addColumn<QString>("variant");
    QTest::addColumn<QStringList>("engines");
    QTest::addColumn<int>("messages"); ///< identifiers 1 to this
    QTest::addColumn<QString>("better");
    QTest::addColumn<QString>("text"); ///< a part of it
    const QStringList big{"915 TURBO"};
    QTest::newRow("fits") << "915" << big << 10 << ""
                          << "";
    QTest::newRow("no engine in the headers") << "850" << QStringList() << 9 << ""
                                              << "";
    QTest::newRow("another engine") << "850" << big << 9 << "915"
                                    << "\"915 TURBO\"";
    QTest::newRow("one file of another") << "915" << QStringList{"915", "850"} << 9 << ""
                                         << "\"850\", which the variant 915 is not for";
    QTest::newRow("9 of 10") << "any" << big << 10 << ""
                             << "";
    QTest::newRow("9 of 11") << "any" << big << 11 << "915"
                             << "Only 9 of the 11 recorded";
    QTest::newRow("not for another engine") << "any" << QStringList{"X"} << 11 << ""
                                            << "newer";
    QTest::newRow("no variant at all") << "" << big << 20 << ""
                                       << "Only 11 of the 20";
}

void TestVariantFit::fit()
{
    QFETCH(const QString, variant);
    QFETCH(const QStringList, engines);
    QFETCH(const int, messages);
    QStringList parameters;
    for (int id = 1; id <= 9; ++id)
        parameters << QStringLiteral("name='p%1' id='%1' dataType='FLOAT'").arg(id);
    parameters << "name='q' id='10' dataType='FLOAT' variant='915'"
               << "name='r' id='11' dataType='FLOAT' variant='915'";
    const QTemporaryDir directory;
    const QString path = directory.filePath("Profile.xml");
    QVERIFY(writeFile(
        path, "<KorvanProfile><Variants><Variant name='850' engineType='850*'/>"
              "<Variant name='any'/><Variant name='915' engineType='915*'/></Variants>"
              "<Device name='D'><Parameter " +
                  parameters.join("/><Parameter ").toUtf8() + "/></Device></KorvanProfile>"));
    Profile profile;
    QVERIFY(profile.loadVariants(path) && profile.loadProfil(path, variant));
    RecordedEngine recorded{engines, {}};
    for (int id = 1; id <= messages; ++id)
        recorded.identifiers.insert(static_cast<std::uint32_t>(id));
    const VariantFit found = variantFit(profile, recorded);
    QTEST(found.better, "better");
    QFETCH(const QString, text);
    QCOMPARE(found.isFine(), text.isEmpty());
    QVERIFY2(found.text().contains(text) && found.text().isEmpty() == text.isEmpty(),
             qPrintable(found.text()));
    QCOMPARE(found.text().contains("ariant " + found.better + " "), !found.better.isEmpty());
}

QTEST_GUILESS_MAIN(TestVariantFit)
#include "tst_variantfit.moc"
