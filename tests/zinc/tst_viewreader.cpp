#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/view/ViewReader.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

using namespace Zinc2D;
using KOLT::Test::Rows;

class TestViewReader : public QObject
{
    Q_OBJECT

private slots:

    void readsElements();
    void reports_data();
    void reports();
    void stepsBecomeRanges();
    void choosesTheShape();
    void tellsWhichVariablesItNeeds();
    void refusesWhatIsNoView();
    void isBounded();
    void cutFilesNeverCrash();

private:
    std::optional<ViewModel> read(const QByteArray& content)
    {
        const QString path = m_directory.filePath("panel.v");
        if (!KOLT::Test::writeFile(path, content))
            return {};
        m_variables = VariableTable();
        ViewReader reader(m_variables);
        std::optional<ViewModel> model = reader.read(path);
        m_reports.clear();
        for (const Diagnostic& diagnostic : reader.diagnostics())
            m_reports << diagnostic.text().remove(path);
        return model;
    }

    std::optional<ViewModel> readView(const QByteArray& children)
    {
        return read("<view width='100' height='50'>" + children + "</view>");
    }

    QTemporaryDir m_directory;
    VariableTable m_variables;
    QStringList m_reports;
};

void TestViewReader::readsElements()
{
    KOLT::Test::writeFile(m_directory.filePath("logo.png"), "not read here");
    const auto model = read(R"(<?xml version="1.0" encoding="UTF-8"?>
<view width="1280" height="720" background="#102030" font="Some Font">
    <!-- a comment -->
    <define name="hot" value="[Oil Temperature] &gt; 120 &amp;&amp; 1"/>
    <style name="small" size="12" color="#ff0000"/>
    <group x="10"><group rotate="[Angle]"><circle x="0" y="0" radius="5"/></group></group>
    <text x="1" y="2" style="small" size="20" text="a &lt; b"/>
    <text x="1" y="2" style="small" text="=hot ? 'HOT' : ''"/>
    <image x="0" y="0" width="10" height="10" file="logo.png"/>
    <gauge x="1" y="1" radius="9" value="v" min="0" max="9"><range from="0" to="1" color="#ff"/>
        <mark at="3" color="#00ff00"/></gauge>
</view>)");
    QVERIFY(model);
    QCOMPARE(m_reports, QStringList{":10:91: a colour is written as #rrggbb or #aarrggbb"});
    QCOMPARE(model->size, QSizeF(1280, 720));
    QCOMPARE(model->background.constant.number(), double(0xff102030));
    QCOMPARE(model->elements.size(), 7U);
    QCOMPARE(model->elements[2].parent, 1);
    QCOMPARE(model->elements[1].parent, 0);
    const Element& text = model->elements[3];
    QCOMPARE(text.find(Property::Text)->text, "a < b");
    QCOMPARE(text.find(Property::Size)->constant.number(), 20.0); // its own wins
    QCOMPARE(text.find(Property::Color)->constant.number(), double(0xffff0000));
    QCOMPARE(model->elements[5].find(Property::File)->text, m_directory.filePath("logo.png"));
    QCOMPARE(model->elements[6].parts.size(), 2U); // the range stays, in the default colour
    m_variables.set("Oil Temperature", 130);
    m_variables.takeChanges();
    QCOMPARE(
        model->elements[4].find(Property::Text)->expressions.at(0).evaluate(m_variables).text(),
        "HOT");
}

void TestViewReader::reports_data()
{
    // `kept`: the number of elements that are drawn in spite of the fault
    const Rows<QByteArray, QStringList, int> row("children", "reports", "kept");
    row("unknown element", " <dial x='1'><text/></dial>", {":2:3: there is no element \"dial\""},
        0);
    row("unknown attribute", "<line x='1' y='1' x2='2' y2='2' colour='#ff0000'/>",
        {":2:41: \"line\" has no attribute \"colour\""}, 1);
    row("missing attribute", "<group>\n   <line x='1' y='1' x2='2'/>\n</group>",
        {":3:5: \"y2\" is missing"}, 1);
    row("broken expression", "<text x='1' y='2' value='rpm +'/>",
        {":2:31: the expression ends too early"}, 1);
    row("behind entities", "<text x='1' y='2' value='a &lt; 1 &amp;&amp; *'/>",
        {":2:46: \"*\" is not expected here"}, 1);
    row("in a text", "<text x='1' y='2' text='=1 +* 2'/>", {":2:29: \"*\" is not expected here"},
        1);
    row("on a later line", "<text x='1'\n  y='2'\n  color = \"#ff\"/>",
        {":4:12: a colour is written as #rrggbb or #aarrggbb"}, 1);
    row("bad format", "<text x='1' y='2' value='v' format='%.1f %s'/>",
        {":2:42: this is not a number format"}, 1);
    row("bad word", "<text x='1' y='2' text='a' align='middle'/>",
        {":2:35: \"middle\" is none of: left center right"}, 1);
    row("missing file", "<image x='0' y='0' width='1' height='1' file='none.png'/>",
        {":2:47: there is no file \"none.png\""}, 1);
    row("missing style", "<text x='1' y='2' text='a' style='big'/>",
        {":2:35: there is no style \"big\""}, 1);
    row("part outside", "<range from='0' to='1' color='#ffffff'/>",
        {":2:2: \"range\" must be inside another element"}, 0);
    row("wrong part", "<lamp x='1' y='1' width='1' height='1' value='1'><range/></lamp>",
        {":2:51: \"lamp\" cannot contain \"range\""}, 1);
    row("part without all",
        "<annunciator x='1' y='1' width='1' height='1'><message when='1'/>"
        "</annunciator>",
        {":2:48: \"text\" is missing"}, 1);
    row("late definition", "<text x='1' y='1' value='a'/><define name='a' value='1'/>",
        {":2:31: \"a\" is used before it is defined"}, 1);
    row("circular definition", "<define name='a' value='a + 1'/>",
        {":2:2: \"a\" is used before it is defined"}, 0);
    row("second definition", "<define name='a' value='1'/>\n <define name='a' value='2'/>",
        {":3:3: \"a\" is already defined"}, 0);
    row("empty definition", "<define name=' ' value='1'/>",
        {":2:2: a definition needs \"name\" and \"value\""}, 0);
    row("colour words",
        "<define name='red' value='#ff0000'/><circle x='1' y='1' radius='1' fill='red'/>"
        "<circle x='1' y='1' radius='1'\nfill='x > 1 ? blue : red'/>",
        {":3:7: \"blue\" is not a colour here: write #ff0000ff, or define it"}, 2);
    row("no colour", "<line x='0' y='0' x2='1' y2='1' color='123456' thickness='#ff'/>",
        {":2:40: a colour is expected here, such as #00c853",
         ":2:59: a colour is written as #rrggbb or #aarrggbb"},
        1);
    row("types", "<text x='#ff0000' y='1' text='=#ff0000' align='=1'/>",
        {":2:10: a number is expected here", ":2:31: a text is expected here",
         ":2:48: a text is expected here"},
        1);
    row("joined texts",
        "<define name='unit' value=\"imperial ? 'psi' : 'bar'\"/>\n<text x='0' y='0' "
        "text=\"='OIL ' + unit\"/>",
        {":3:33: \"+\" does not take texts"}, 1);
    row("text of a point", "<polygon points=\"0,0; 1,1; 2,'a'\"/>",
        {":2:30: a number is expected here"}, 1);
    row("useless cases",
        "<text x='1' y='1' value='v'><case text='a'/>\n"
        "<case value='1' background='#ffffff'/></text>",
        {":2:30: a case needs \"value\" or \"when\"", ":3:2: a text has no \"background\""}, 1);
    row("what nobody reads",
        "<text x='1' y='1'>OIL</text><style name='s'><a/></style>\n"
        "<lamp x='1' y='1' width='1' height='1' value='1'><case value='1'><b/></case></lamp>",
        {":2:19: text between elements is not shown", ":2:46: \"style\" cannot contain \"a\"",
         ":3:67: \"case\" cannot contain \"b\""},
        2);
    row("style with a fault, twice",
        "<style name='s' size='#'/><text x='0' y='0' style='s'/><text x='0' y='0' style='s'/>",
        {":2:23: a colour is written as #rrggbb or #aarrggbb"}, 2);
    row("alternative without bound", "<alternative file='panel.v'/>",
        {":2:2: an alternative needs \"file\" and \"below\" or \"above\""}, 0);
    row("steps of nothing",
        "<bar x='1' y='1' width='9' height='1' value='v' min='0' max='9'><steps or='a'/></bar>",
        {":2:66: \"of\" is missing"}, 1);
    row("steps with a fault",
        "<bar x='1' y='1' width='9' height='1' value='v' min='0' max='9'>"
        "<steps of='a' factor='*'/></bar>",
        {":2:87: \"*\" is not expected here"}, 1);
    row("a number is no colour", "<line x='0' y='0' x2='1' y2='1' color='color(a)'/>", {}, 1);
    row("bad points", "<polygon points='0,0; 1,1; 2'/>", {":2:29: a point needs \"x, y\""}, 1);
}

void TestViewReader::reports()
{
    QFETCH(QByteArray, children);
    QFETCH(QStringList, reports);
    QFETCH(int, kept);
    const auto model = readView("\n" + children + "\n<circle x='1' y='1' radius='1'/>");
    QVERIFY(model);
    QCOMPARE(m_reports, reports);
    QCOMPARE(static_cast<int>(model->elements.size()), kept + 1);
}

/// A range for each step that is set, up to the next one. The first name goes before the second.
void TestViewReader::stepsBecomeRanges()
{
    const auto model = readView("<bar x='1' y='1' width='9' height='1' value='v' min='0' max='9'>"
                                "<steps of='A/oil' or='oil' factor='2'/></bar>");
    QVERIFY(model && m_reports.isEmpty());
    const auto ranges = [&] {
        m_variables.takeChanges();
        QStringList texts;
        for (const Element& part : model->elements.at(0).parts) {
            const auto number = [&](Property property) {
                return part.find(property)->expressions.at(0).evaluate(m_variables);
            };
            if (number(Property::From).isSet())
                texts << QStringLiteral("%1 %2 %3")
                             .arg(number(Property::From).number())
                             .arg(number(Property::To).number())
                             .arg(number(Property::Color).number());
        }
        return texts;
    };
    QCOMPARE(ranges(), QStringList());
    const std::pair<const char*, double> plain[] = {
        {"oil_STEP1", -5.0}, {"oil_COLOR1", 1.0}, {"oil_STEP2", 4.0}, {"oil_COLOR2", 2.0}};
    for (const auto& [name, value] : plain)
        m_variables.set(name, value);
    QCOMPARE(ranges(), (QStringList{"-10 8 1", "8 2e+09 2"}));
    m_variables.set("A/oil_STEP1", 3.0); // and no second one
    m_variables.set("A/oil_COLOR1", 7.0);
    QCOMPARE(ranges(), QStringList{"6 2e+09 7"});
}

void TestViewReader::choosesTheShape()
{
    KOLT::Test::writeFile(m_directory.filePath("high.v"), "not read here");
    KOLT::Test::writeFile(m_directory.filePath("square.v"), "not read here");
    KOLT::Test::writeFile(m_directory.filePath("low.v"), "not read here");
    const auto model = readView("<alternative below='1.4' file='square.v'/>"
                                "<alternative below='0.8' file='high.v'/>"
                                "<alternative above='2.1' file='low.v'/>");
    QVERIFY(model && m_reports.isEmpty());
    for (const auto& [aspect, file] : {std::pair(2.2, "low.v"),
                                       {2.1, ""},
                                       {1.4, ""},
                                       {1.39, "square.v"},
                                       {0.8, "square.v"},
                                       {0.5, "high.v"}})
        QCOMPARE(QFileInfo(fileFor(model->alternatives, aspect)).fileName(), file);
}

void TestViewReader::tellsWhichVariablesItNeeds()
{
    const auto model = readView("<define name='hot' value='[Oil Temp] > 120'/>\n"
                                "<optional name='Tow'/><text x='1' y='1' value='hot ? rpm : Tow'/>"
                                "\n<polygon points='0,0; rpm,1; [Oil Temp],yaw'/>");
    QVERIFY(model);
    QStringList unknown;
    for (const VariableUse& use : model->variables)
        unknown << use.unknown.text().remove(m_directory.filePath("panel.v"));
    QCOMPARE(unknown, (QStringList{":1:57: there is no variable \"Oil Temp\"",
                                   ":2:48: there is no variable \"rpm\"",
                                   ":2:48: there is no variable \"Tow\"",
                                   ":3:18: there is no variable \"yaw\""}));
    QCOMPARE(model->optionalVariables, QSet<QString>{"Tow"});
}

void TestViewReader::refusesWhatIsNoView()
{
    const std::pair<QByteArray, QString> rows[] = {
        {"", ":1:1:"},
        {"engine", ":1:"},
        {"<?xml version='1.0'?>\n <project/>", ":2:3:"},
        {"<view width='100'></view>", ":1:2:"},
        {"<view width='100' height='-1'></view>", ":1:2:"},
        {"<view width='inf' height='1'></view>", ":1:2:"},
        {"<view width='1' height='1'>\n<group>", ":2:8:"},
        {"<view width='1' height='1'>\n<group></view>", ":2:"},
        {QByteArray("\0\1\2\3", 4), ":1:"}};
    for (const auto& [content, place] : rows) {
        QVERIFY2(!read(content), content);
        QVERIFY2(!m_reports.isEmpty() && m_reports.last().startsWith(place),
                 qPrintable(content + m_reports.join('\n')));
    }
    ViewReader reader(m_variables);
    QVERIFY(!reader.read(m_directory.filePath("missing.v")));
    QCOMPARE(reader.diagnostics().size(), 1U);
}

void TestViewReader::isBounded()
{
    QVERIFY(readView(QByteArray("<group>").repeated(100) + QByteArray("</group>").repeated(100)));
    QCOMPARE(m_reports.size(), 1);
    const auto many = readView(QByteArray("<circle x='0' y='0' radius='1'/>").repeated(30'000));
    QVERIFY(many);
    QCOMPARE(many->elements.size(), 20'000U);
    QCOMPARE(m_reports.size(), 200);
}

void TestViewReader::cutFilesNeverCrash()
{
    const QByteArray whole =
        "<view width='9' height='9'><define name='a' value='b+1'/><style name='s' size='3'/>"
        "<group x='[c d]'><text x='1' y='1' text='=a > 2 ? &apos;x&apos; : &apos;&apos;'/>"
        "<lamp x='1' y='1' width='2' height='2' value='v'><case value='1' text='on'/></lamp>"
        "</group></view>";
    for (qsizetype length = 0; length < whole.size(); ++length) {
        QVERIFY(!read(whole.left(length)));
        QVERIFY(!m_reports.isEmpty());
    }
    QVERIFY(read(whole));
    QCOMPARE(m_reports, QStringList());
}

QTEST_MAIN(TestViewReader)
#include "tst_viewreader.moc"
