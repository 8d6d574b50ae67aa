#include "profile/Profile.h"
#include "profile/ProfileLine.h"
#include "profile/ProfileVersion.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/Rows.h"

using namespace KOLT;
using namespace KOLT::Test;

class TestProfile : public QObject
{
    Q_OBJECT

private slots:
    void variantMatches_data();
    void variantMatches();
    void everyElementObeysTheVariant();
    void attributesTakeDefaults();
    void groupsAndQueries();
    void namesResolveWhereverTheListStands();
    void thresholdGrades_data();
    void thresholdGrades();
    void errorMatricesCollectMembers();
    void unitsFollowTheSystem();
    void unusableFiles_data();
    void unusableFiles();
    void variantList();
    void engines_data();
    void engines();
    void lineForSheets();
    void newerVersions();
    void changesOfAProfile();
    void reloadForgetsTheOldContent();
};

void TestProfile::variantMatches_data()
{
    const Rows<QString, QString, bool> row; // active, attribute, matches
    row("no attribute", "A", "", true);
    row("no active variant", "", "B,!A", true);
    row("same", "A", "A", true);
    row("other", "A", "B", false);
    row("case counts", "a", "A", false);
    row("in list, trimmed", "B", "A , B,, C", true);
    row("not in list", "D", "A,B", false);
    row("excluded", "B", "!B", false);
    row("another excluded", "A", "!B", true);
    row("excluded and included", "A", "A,!A", false);
    row("included beside an exclusion", "A", "A,!B", true);
    row("neither", "C", "A,!B", false);
    row("only commas", "A", ",,", true);
}

void TestProfile::variantMatches()
{
    const DiagnosticsCapture output;
    const auto [active, attribute, matches] = fetchRow<QString, QString, bool>();
    QCOMPARE(Profile::matchesVariant(active, attribute), matches);
    if (QTest::currentDataTag() == QByteArray("in list, trimmed"))
        QCOMPARE(output.text(), "variant <A , B,, C> size 3\n");
}

void TestProfile::everyElementObeysTheVariant()
{
    const QByteArray content =
        "<UnitConversions><Unit variant='B' unitMetric='m' unitImperial='ft' "
        "factor='3'/></UnitConversions>"
        "<EnumList><Enum name='E'><Value val='1' label='a'/><Value variant='!A' val='1' "
        "label='b'/></Enum></EnumList>"
        "<ThresholdList><Threshold name='T' variant='A'><Value val='1' "
        "state='LIMIT'/></Threshold></ThresholdList>"
        "<Device name='D' variant='A,B'><Parameter name='p' enumId='E' thresholdId='T' "
        "unitMetric='m' unitImperial='ft'/>"
        "<Parameter name='q' variant='B'/><ErrorMatrix id='5' variant='B'/></Device>"
        "<Device name='C' variant='C'/>";
    Profile profile;
    QVERIFY(loadProfile(profile, content, "A"));
    QCOMPARE(profile.devices().size(), 1U);
    QCOMPARE(profile.parameters().size(), 1U);
    QVERIFY(profile.errorMatrices().empty());
    const ProfileParameter* a = profile.parameterByFullName("D/p");
    QCOMPARE(a->enumList->entries.at(1).label, "a");
    QVERIFY(a->threshold != nullptr && a->conversion == nullptr);

    QVERIFY(loadProfile(profile, content, "B"));
    QCOMPARE(profile.parameters().size(), 2U);
    QCOMPARE(profile.errorMatrices().size(), 1U);
    const ProfileParameter* b = profile.parameterByFullName("D/p");
    QCOMPARE(b->enumList->entries.at(1).label, "b");
    QVERIFY(b->threshold == nullptr && b->conversion != nullptr);
}

void TestProfile::attributesTakeDefaults()
{
    const DiagnosticsCapture output;
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        device({"name='bare'",
                "name='bad' id='0x10' startByte='one' factor='1,5' offset='' precision='99' "
                "dataType='float' errorType='fault' enumId='none' thresholdId='none'",
                "name='full' id='7' startByte='4' startBit='2' endBit='5' factor='1e-1' "
                "offset='-2.5' precision='15' dataType='SHORT_2' errorType='Fault'",
                "name='outside' startByte='5' dataType='FLOAT'",
                "name='before' startByte='-1' dataType='CHAR'"})));
    for (const char* name : {"D/bare", "D/bad"}) {
        const ProfileParameter* p = profile.parameterByFullName(name);
        QCOMPARE(p->id, 0);
        QCOMPARE(p->startByte, 0);
        QCOMPARE(p->factor, 1.0);
        QCOMPARE(p->offset, 0.0);
        QCOMPARE(p->precision, 6);
        QCOMPARE(p->dataType, 0);
        QVERIFY(p->errorType == ErrorType::None && p->enumId == -1 && p->thresholdId == -1);
    }
    const ProfileParameter* full = profile.parameterByFullName("D/full");
    QCOMPARE(full->id, 7);
    QCOMPARE(full->dataType, 12);
    QCOMPARE(full->factor, 0.1);
    QCOMPARE(full->offset, -2.5);
    QCOMPARE(full->precision, 15);
    QVERIFY(full->errorType == ErrorType::Fault && full->rule == DecodingRule::Integer);
    QVERIFY(profile.parameterByFullName("D/outside")->rule == DecodingRule::NotImplemented);
    QCOMPARE(output.text().count("reaches outside the message"), 2);
    QVERIFY(output.text().contains("<D/outside>") && output.text().contains("<D/before>"));
}

void TestProfile::groupsAndQueries()
{
    Profile profile;
    QVERIFY(loadProfile(profile,
                        "<Device name='Z'><Parameter name='b' id='1' koltDataType='GroundSpeed'/>"
                        "<Parameter name='\xc3\xa4' id='1'/><Parameter name='B' id='2'/></Device>"
                        "<Device name='A'><Parameter name='a' id='1' koltDataType='GroundSpeed'/>"
                        "<Parameter name='a' id='3' koltDataType='groundSpeed'/></Device>"));
    QCOMPARE(profile.devices()[0].name, "Z");
    QCOMPARE(profile.devices()[1].index, 1);
    QStringList names;
    for (const ProfileParameter* p : profile.devices()[0].parameters)
        names << p->name;
    QCOMPARE(names, (QStringList{"B", "b", QString::fromUtf8("\xc3\xa4")}));
    QCOMPARE(profile.parametersById(1).size(), 3U);
    QVERIFY(profile.parametersById(99).empty());
    QCOMPARE(profile.parametersByRole(Role::GroundSpeed).size(), 2U);
    QCOMPARE(profile.parameterByRole(Role::GroundSpeed)->fullName, "Z/b");
    QVERIFY(profile.parameterByRole(Role::Track) == nullptr);
    QCOMPARE(profile.parameterByFullName("A/a")->id, 1);
    QVERIFY(profile.parameterByFullName("A/b") == nullptr);
}

void TestProfile::namesResolveWhereverTheListStands()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        device({"name='p' enumId='E' thresholdId='T'"}) +
            "<EnumList><Enum name='E'><Value val='1' label='one'/><Value val='2' "
            "label='two'/></Enum>"
            "<Enum name='F'><Value label='zero'/></Enum></EnumList>"
            "<EnumList><Enum name='E'><Value val='2' label='deux'/></Enum></EnumList>"
            "<ThresholdList><Threshold name='T'><Value val='5'/></Threshold></ThresholdList>"));
    const ProfileParameter* p = profile.parameterByFullName("D/p");
    QVERIFY(p->enumList != nullptr && p->threshold != nullptr);
    QCOMPARE(p->enumList->entries.size(), 2U);
    QCOMPARE(p->enumList->entries.at(1).label, "one");
    QCOMPARE(p->enumList->entries.at(2).label, "deux");
    QVERIFY(p->enumList->entries.at(2).serial > p->enumList->entries.at(1).serial);
    QVERIFY(profile.enumList(p->enumId) == p->enumList);
    QVERIFY(profile.threshold(p->thresholdId) == p->threshold);
    // A list without a name is never used.
    QVERIFY(loadProfile(profile, device({"name='p'"}) +
                                     "<EnumList><Enum/></EnumList>"
                                     "<ThresholdList><Threshold/></ThresholdList>"));
    QVERIFY(profile.parameters().front().enumList == nullptr);
    QVERIFY(profile.parameters().front().threshold == nullptr);
}

void TestProfile::thresholdGrades_data()
{
    const Rows<double, QString, int> row; // value, color, state
    row("below all", 9.99, "#ffffff", 0);
    row("at the first", 10.0, "#00ff00", 0);
    row("at the second", 20.0, "#ffa500", 1);
    row("between", 29.0, "#ffa500", 1);
    row("third", 30.0, "#ff0000", 2);
    row("bad colour and state", 40.0, "#ffffff", 0);
    row("the walk ends at the first step above", 55.0, "#ffffff", 0);
    row("behind it", 60.0, "#0000ff", 1);
    row("NaN", std::nan(""), "#ffffff", 0);
    row("infinite", HUGE_VAL, "#0000ff", 1);
}

void TestProfile::thresholdGrades()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        threshold(
            "T", {"val='10' color='lime' state='OK'", "val='20' color='#ffa500' state='WARNING'",
                  "val='30' color='red' state='LIMIT'", "val='40' color='no colour' state='Limit'",
                  "val='60' color='red' state='LIMIT'", "val='50' color='blue' state='WARNING'"})));
    const auto [value, color, state] = fetchRow<double, QString, int>();
    const Grade grade = profile.threshold(0)->grade(value);
    QCOMPARE(QColor(grade.color).name(), color);
    QCOMPARE(static_cast<int>(grade.state), state);
}

void TestProfile::errorMatricesCollectMembers()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        "<Device name='X'><Parameter name='p' id='9'/></Device>"
        "<Device name='Y'><ErrorMatrix id='9' name='M'/><ErrorMatrix name='N'/>"
        "<Parameter name='q' id='9' errorType='Info'/><Parameter name='r' id='8'/></Device>"));
    QCOMPARE(profile.errorMatrices().size(), 2U);
    const ErrorMatrix& matrix = profile.errorMatrices()[0];
    QCOMPARE(matrix.members.size(), 2U);
    QCOMPARE(matrix.members[0]->fullName, "X/p");
    QVERIFY(matrix.members[1]->errorType == ErrorType::Info);
    QCOMPARE(profile.errorMatrices()[1].id, 0);
    QVERIFY(profile.errorMatrices()[1].members.empty());
}

void TestProfile::unitsFollowTheSystem()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        "<UnitConversions><Unit unitMetric='C' unitImperial='F' factor='9' offset='9'/>"
        "<Unit unitMetric='C' unitImperial='F' factor='1.8' offset='32'/></UnitConversions>" +
            device({"name='f' dataType='FLOAT' unitMetric='C' unitImperial='F'",
                    "name='i' dataType='SHORT' unitMetric='C' unitImperial='F'",
                    "name='u' dataType='FLOAT' unitMetric='C' unitImperial='K'"})));
    const ProfileParameter& converted = *profile.parameterByFullName("D/f");
    const ProfileParameter& whole = *profile.parameterByFullName("D/i");
    const ProfileParameter& undefined = *profile.parameterByFullName("D/u");
    QCOMPARE(profile.convertUnit(converted, 100.0), 100.0);
    QCOMPARE(profile.unitLabel(converted), "C");
    profile.setUnitSystem(UnitSystem::Imperial);
    QCOMPARE(profile.convertUnit(converted, 100.0), 212.0);
    QCOMPARE(profile.convertUnit(undefined, 100.0), 100.0);
    QCOMPARE(profile.unitLabel(converted), "F");
    QCOMPARE(profile.unitLabel(whole), "C");
    QCOMPARE(profile.unitLabel(undefined), "C");
}

void TestProfile::unusableFiles_data()
{
    const Rows<QByteArray, QString> row; // content, variantsSay
    row("wrong root", "<Profile><Device name='D'/></Profile>",
        "Profile::loadVariants Not a KorvanProfile\n");
    row("not XML", "KorvanProfile", "Profile::loadVariants Error could not load <%1>\n");
    row("cut short", "<KorvanProfile><Device", "Profile::loadVariants Error could not load <%1>\n");
}

void TestProfile::unusableFiles()
{
    const auto [content, variantsSay] = fetchRow<QByteArray, QString>();
    const QTemporaryDir directory;
    const QString path = directory.filePath("Profile.xml");
    QVERIFY(writeFile(path, content));
    const DiagnosticsCapture output;
    Profile profile;
    for (const QString& unusable : {path, directory.filePath("missing.xml"), directory.path()})
        QVERIFY(!profile.loadProfil(unusable, "915"));
    QVERIFY(output.text().startsWith(QStringLiteral("Profile::loadProfil <%1> <915>\n").arg(path)));
    QVERIFY(profile.devices().empty());
    QVERIFY(!profile.loadVariants(path));
    QVERIFY(
        output.text().contains(variantsSay.contains('%') ? variantsSay.arg(path) : variantsSay));
}

void TestProfile::variantList()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath("Profile.xml");
    QVERIFY(writeFile(
        path, "<KorvanProfile><Variants><Variant name='915' id='a' color='red' engineType='915 *'/>"
              "<Variant name='x'/></Variants><Device name='D'/></KorvanProfile>"));
    Profile profile;
    QVERIFY(profile.loadVariants(path));
    QCOMPARE(profile.variants().size(), 2U);
    QCOMPARE(profile.variants()[0].id, "a");
    QCOMPARE(profile.variants()[0].color, QColor(Qt::red));
    QVERIFY(profile.devices().empty());
    QVERIFY(profile.loadVariants(path));
    QCOMPARE(profile.variants().size(), 2U);
    QVERIFY(profile.loadProfil(path, "915") && profile.engineType() == "915 *");
    QVERIFY(profile.loadProfil(path, "x") && profile.engineType().isEmpty());
}

void TestProfile::engines_data()
{
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QString>("engine");
    QTest::addColumn<bool>("isMeant");
    QTest::newRow("none") << ""
                          << "any" << true;
    QTest::newRow("whole text") << "915"
                                << "915 TURBO" << false;
    QTest::newRow("any case, blanks") << " 915 t* "
                                      << "915 TURBO " << true;
    QTest::newRow("second of two") << "850*, 915*"
                                   << "915 TURBO" << true;
    QTest::newRow("neither") << "850*,91?"
                             << "915 TURBO" << false;
    QTest::newRow("slash") << "915*A"
                           << "915/B A" << true;
    QTest::newRow("unknown engine") << "915*"
                                    << "" << false;
}

void TestProfile::engines()
{
    QFETCH(const QString, patterns);
    QFETCH(const QString, engine);
    QTEST(Profile::matchesEngine(engine, patterns), "isMeant");
}

void TestProfile::lineForSheets()
{
    Profile profile;
    QVERIFY(profileLine(profile).isEmpty());
    const QTemporaryDir directory;
    const QString path = directory.filePath("Profile.xml");
    QVERIFY(writeFile(path, "<KorvanProfile name='Tow plane' version='2.10'/>"));
    QVERIFY(profile.loadProfil(path, "915"));
    QCOMPARE(profileLine(profile), "Profile: Tow plane, version 2.10, variant 915");
}

void TestProfile::newerVersions()
{
    QVERIFY(isNewerVersion("2.10", "2.9") && isNewerVersion("2.1", "2") && isNewerVersion("1", ""));
    for (const auto& [version, than] :
         {std::pair("2.9", "2.10"), {"2.1", "2.1"}, {"2", "2.0"}, {"1.9.9", "2"}, {"", ""}})
        QVERIFY2(!isNewerVersion(version, than), version);
}

void TestProfile::changesOfAProfile()
{
    const QTemporaryDir directory;
    const auto file = [&](const QString& name, const QByteArray& content) {
        writeFile(directory.filePath(name),
                  "<KorvanProfile version='7.1' profileId='I'>" + content + "</KorvanProfile>");
        return directory.filePath(name);
    };
    const QString from =
        file("a", "<!-- old --><Variants><Variant name='V'/></Variants>" +
                      threshold("T", {"val='1'", "val='2' variant='V'"}) + threshold("U", {}) +
                      device({"name='same' id='1' factor='2'", "name='other' id='1'", "name='gone'",
                              "name='gone 2'"}));
    const QString to = file(
        "b", threshold("U", {}) + threshold("T", {"val='1'", "val='3' variant='V'"}) +
                 device({"name='new'", "name='other' id='2'", "factor='2' id='1' name='same'"}));
    QCOMPARE(profileChanges(from, to),
             (QStringList{"Parameters added (1): D/new", "Parameters removed (2): D/gone, D/gone 2",
                          "Parameters changed (1): D/other", "Thresholds changed (1): T",
                          "Variants removed (1): V"}));
    QVERIFY(profileChanges(to, to).isEmpty());
    QCOMPARE(profileVersion(from).version, "7.1");
    QCOMPARE(profileVersion(from).profileId, "I");
    QVERIFY(profileVersion(directory.filePath("none")).version.isEmpty());
}

void TestProfile::reloadForgetsTheOldContent()
{
    Profile profile;
    QVERIFY(loadProfile(
        profile,
        "<UnitConversions><Unit unitMetric='m' unitImperial='ft' factor='3'/></UnitConversions>"
        "<EnumList><Enum name='E'/></EnumList><ThresholdList><Threshold name='T'/></ThresholdList>"
        "<Device name='D'><ErrorMatrix id='1'/><Parameter name='p' id='1' "
        "koltDataType='Track'/></Device>"));
    QVERIFY(loadProfile(
        profile,
        device({"name='p' dataType='FLOAT' unitMetric='m' unitImperial='ft' enumId='E'"})));
    QVERIFY(profile.errorMatrices().empty() && profile.parametersById(1).empty());
    QVERIFY(profile.parameterByRole(Role::Track) == nullptr);
    const ProfileParameter* p = profile.parameterByFullName("D/p");
    QVERIFY(p->conversion == nullptr && p->enumList == nullptr);
}

QTEST_GUILESS_MAIN(TestProfile)
#include "tst_profile.moc"
