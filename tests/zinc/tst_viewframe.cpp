#include "libs/zinc/layout/InstrumentLook.h"
#include "libs/zinc/layout/ViewFrame.h"
#include "libs/zinc/view/ViewReader.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

#include <QLineF>
#include <QPolygonF>

#include <cmath>

using namespace Zinc2D;
using KOLT::Test::fetchRow;
using KOLT::Test::Rows;

using Kind = DrawCommand::Kind;

class TestViewFrame : public QObject
{
    Q_OBJECT

private slots:

    void rebuildsOnlyWhatChanged();
    void groupsCarryWhatIsInThem();

    void gauge();
    void gaugeWithoutValueHasNoNeedle();
    void scalesWithoutEndsPointNowhere_data();
    void scalesWithoutEndsPointNowhere();
    void bars();
    void lamps();
    void partsFadeAndHide_data();
    void partsFadeAndHide();
    void annunciator();
    void texts_data();
    void texts();
    void tape();
    void brokenPlacesAreNotDrawn();

private:
    void load(const QByteArray& children)
    {
        const QString path = m_directory.filePath("panel.v");
        QVERIFY(
            KOLT::Test::writeFile(path, "<view width='400' height='300'>" + children + "</view>"));
        m_variables = VariableTable();
        ViewReader reader(m_variables);
        std::optional<ViewModel> model = reader.read(path);
        QVERIFY(model);
        for (const Diagnostic& diagnostic : reader.diagnostics())
            QFAIL(qPrintable(diagnostic.text()));
        m_model = std::move(*model);
        m_frame.setModel(m_model, m_variables);
        m_frame.update();
    }

    void set(const QString& name, double value)
    {
        m_variables.set(name, value);
        m_frame.update();
    }

    QStringList textsOf(std::size_t element) const
    {
        QStringList texts;
        for (const DrawCommand& command : m_frame.drawList(element).commands) {
            if (command.kind == Kind::Text)
                texts << command.text;
        }
        return texts;
    }

    /// The first command of that kind and colour; null if there is none.
    const DrawCommand* find(std::size_t element, Kind kind, Argb color) const
    {
        for (const DrawCommand& command : m_frame.drawList(element).commands) {
            if (command.kind == kind && command.color == color)
                return &command;
        }
        return nullptr;
    }

    QPolygonF pointsOf(std::size_t element, const DrawCommand& command) const
    {
        const auto* const first = &m_frame.drawList(element).points[command.firstPoint];
        return QPolygonF(QList<QPointF>(first, first + command.pointCount));
    }

    QRectF boundsOf(std::size_t element, const DrawCommand& command) const
    {
        return pointsOf(element, command).boundingRect();
    }

    QTemporaryDir m_directory;
    VariableTable m_variables;
    ViewModel m_model;
    ViewFrame m_frame;
};

void TestViewFrame::rebuildsOnlyWhatChanged()
{
    load("<define name='half' value='a / 2'/>"
         "<text x='1' y='1' value='a'/><text x='1' y='1' value='b'/>"
         "<text x='1' y='1' value='half'/><circle x='1' y='1' radius='1'/>"
         "<group x='c'><circle x='1' y='1' radius='2'/><text x='1' y='1' value='b'/></group>"
         "<lamp x='1' y='1' width='9' height='9' value='1'><case when='d' text='x'/></lamp>");
    QCOMPARE(m_frame.update(), 0);
    const auto rebuilt = [this](const char* name, double value) {
        m_variables.set(name, value);
        return m_frame.update();
    };
    QCOMPARE(rebuilt("a", 4.0), 2); // the texts of "a" and "half"
    QCOMPARE(rebuilt("a", 4.0), 0);
    QCOMPARE(rebuilt("b", 1.0), 2);
    QCOMPARE(rebuilt("c", 5.0), 2); // all contents of the group
    QCOMPARE(rebuilt("d", 1.0), 1); // used by a part of the lamp
    QCOMPARE(rebuilt("unknown", 1.0), 0);
    const unsigned before = m_frame.revision(3);
    m_variables.set("a", 5.0);
    m_variables.set("b", 5.0);
    m_variables.set("c", 6.0);
    QCOMPARE(m_frame.update(), 5); // each once
    QCOMPARE(m_frame.revision(3), before);
    m_variables.unsetAll();
    m_frame.update();
    QCOMPARE(textsOf(0), QStringList{"---"});
    QCOMPARE(textsOf(2), QStringList{"---"});
    QVERIFY(m_frame.drawList(5).commands.empty()); // the position of its group is not set
}

void TestViewFrame::groupsCarryWhatIsInThem()
{
    load("<group x='100' y='50' rotate='90' scale='2' opacity='0.5'><group x='10'>"
         "<line x='0' y='0' x2='0' y2='-5' thickness='3' color='#ffffff'/>"
         "<text x='1' y='0' text='t' size='10'/></group></group>"
         "<group visible='on'><group><circle x='0' y='0' radius='1'/></group></group>");
    const DrawList& list = m_frame.drawList(2);
    const DrawCommand& line = list.commands.at(0);
    // (10, 0) and (10, -5), scaled by 2, rotated by 90 degrees clockwise, moved
    QVERIFY((list.points[0] - QPointF(100, 70)).manhattanLength() < 1e-9);
    QVERIFY((list.points[1] - QPointF(110, 70)).manhattanLength() < 1e-9);
    QCOMPARE(line.thickness, 6.0);
    QCOMPARE(line.color >> 24, 128U);
    const DrawCommand& text = m_frame.drawList(3).commands.at(0);
    QCOMPARE(text.size, 20.0);
    QCOMPARE(text.angle, 90.0);
    QVERIFY(m_frame.drawList(6).commands.empty());
    set("on", 1.0);
    QCOMPARE(m_frame.drawList(6).commands.size(), 1U);
}

void TestViewFrame::gauge()
{
    load("<gauge x='200' y='150' radius='100' min='0' max='100' value='v' color='#123456' "
         "format='%.0f' major='25' label='RPM' unit='rpm'/>");
    for (const auto& [value, angle] : {std::pair(25.0, -60.0), {1000.0, 120.0}}) {
        set("v", value);
        const DrawCommand* const needle = find(0, Kind::Fill, 0xff123456);
        QVERIFY(needle != nullptr);
        const QLineF line(QPointF(200, 150), pointsOf(0, *needle).first());
        QVERIFY(std::abs(std::remainder(90.0 - line.angle() - angle, 360.0)) < 1e-6);
        QVERIFY(line.length() > 90.0);
        QCOMPARE(textsOf(0), (QStringList{"0", "25", "50", "75", "100",
                                          QString::number(value, 'f', 0), "RPM rpm"}));
    }
}

void TestViewFrame::gaugeWithoutValueHasNoNeedle()
{
    load("<gauge x='200' y='150' radius='100' min='0' max='100' value='v' color='#123456' "
         "format='%.1f' state='s'><range from='0' to='limit' color='#00ff00'/>"
         "<range from='50' to='100' color='#ff0000'/><range from='200' to='300' color='#0000ff'/>"
         "</gauge>");
    QVERIFY(find(0, Kind::Fill, 0xff123456) == nullptr);
    QCOMPARE(textsOf(0), QStringList{"--.-"});
    QVERIFY(find(0, Kind::Stroke, 0xff00ff00) == nullptr); // its end is not set
    QVERIFY(find(0, Kind::Stroke, 0xffff0000) != nullptr);
    QVERIFY(find(0, Kind::Stroke, 0xff0000ff) == nullptr); // beyond the scale
    set("limit", 50.0);
    const DrawCommand* const green = find(0, Kind::Stroke, 0xff00ff00);
    QVERIFY(green != nullptr);
    const QRectF bounds = boundsOf(0, *green); // from lower left to the top
    QVERIFY(std::abs(bounds.right() - 200.0) < 1e-6 && bounds.left() < 110.0);
    set("s", 2.0); // has no effect without a value
    QVERIFY(find(0, Kind::Fill, Palette::limit) == nullptr);
    set("v", 70.0);
    QVERIFY(find(0, Kind::Fill, Palette::limit) != nullptr);
    set("s", 1.0);
    QVERIFY(find(0, Kind::Fill, Palette::limit) == nullptr);
    QVERIFY(find(0, Kind::Fill, Palette::warning) != nullptr);
}

void TestViewFrame::scalesWithoutEndsPointNowhere_data()
{
    const Rows<QByteArray> row("element");
    const QByteArray scale = "value='5' color='#123456' format='%.1f' min='low' max='high'>"
                             "<mark at='5' color='#654321'/>";
    const QByteArray bar = "<bar x='100' y='50' width='200' height='10' ";
    row("gauge", "<gauge x='200' y='150' radius='100' " + scale + "</gauge>");
    row("pointer", bar + scale + "</bar>");
    row("fill", bar + "look='fill' " + scale + "</bar>");
}

void TestViewFrame::scalesWithoutEndsPointNowhere()
{
    QFETCH(QByteArray, element);
    load(element);
    const auto pointers = [this] {
        return (find(0, Kind::Fill, 0xff123456) != nullptr ? 1 : 0) +
               (find(0, Kind::Stroke, 0xff654321) != nullptr ? 1 : 0);
    };
    QCOMPARE(pointers(), 0);
    set("low", 0.0);
    QCOMPARE(pointers(), 0);
    set("high", 0.0); // no extent
    QCOMPARE(pointers(), 0);
    QVERIFY(textsOf(0).contains("5.0"));
    set("high", 10.0);
    QCOMPARE(pointers(), 2);
}

void TestViewFrame::bars()
{
    load("<bar x='100' y='50' width='200' height='10' min='0' max='10' value='a' value2='b' "
         "format='%.1f' digits='a * 2' color='#123456' state='0' state2='s' label='PRESS'/>"
         "<bar x='20' y='100' width='10' height='100' min='0' max='10' value='a' look='fill' "
         "color='#123456'/>");
    QVERIFY(find(0, Kind::Fill, 0xff123456) == nullptr);
    QCOMPARE(textsOf(0), (QStringList{"PRESS", "--.-", "--.-"}));
    set("a", 5.0);
    const DrawCommand* first = find(0, Kind::Fill, 0xff123456);
    QVERIFY(first != nullptr);
    QCOMPARE(pointsOf(0, *first).first().x(), 200.0);
    QVERIFY(boundsOf(0, *first).top() < 50.0); // above the bar
    QCOMPARE(boundsOf(1, *find(1, Kind::Fill, 0xff123456)), QRectF(20, 150, 10, 50));
    set("b", 99.0);
    set("s", 2.0);
    const DrawCommand* const second = find(0, Kind::Fill, Palette::limit);
    QVERIFY(second != nullptr);
    QCOMPARE(pointsOf(0, *second).first().x(), 300.0);
    QVERIFY(boundsOf(0, *second).bottom() > 60.0);
    QCOMPARE(textsOf(0), (QStringList{"PRESS", "99.0", "10.0"})); // from the right
}

void TestViewFrame::lamps()
{
    load("<lamp x='10' y='10' width='60' height='30' value='v' text='OIL|PRESS' "
         "background='#111111'><case value='1' background='#ff0000' color='#ffffff'/>"
         "<case when='v &gt; 1' background='#ffff00' text='TEST'/></lamp>");
    const auto lamp = [this](double value) {
        set("v", value);
        const Argb background = m_frame.drawList(0).commands.at(0).color;
        return textsOf(0).join('|') + ' ' + QString::number(background, 16);
    };
    QCOMPARE(textsOf(0), QStringList{"---"});
    QCOMPARE(lamp(0.0), "OIL|PRESS ff111111");
    QCOMPARE(lamp(1.0), "OIL|PRESS ffff0000");
    QCOMPARE(lamp(7.0), "TEST ffffff00");
}

void TestViewFrame::partsFadeAndHide_data()
{
    const Rows<QByteArray, QByteArray> row; // element, part
    const QByteArray scale = " min='0' max='9' value='5'>";
    const QByteArray bar = "<bar x='9' y='9' width='90' height='9'";
    const QByteArray tape = "<tape x='9' y='9' width='90' height='9' span='9' value='5'>";
    for (const QByteArray part : {"range from='4' to='6'", "mark at='5'"}) {
        row("gauge " + part, "<gauge x='9' y='9' radius='9'" + scale, part);
        row("pointer " + part, bar + scale, part);
        row("fill " + part, bar + " look='fill'" + scale, part);
        row("tape " + part, tape, part);
    }
    row("text", "<text x='1' y='1' value='5'>", "case value='5' text='a'");
    row("lamp", "<lamp x='9' y='9' width='9' height='9' value='5'>", "case value='5' text='a'");
    row("message", "<annunciator x='9' y='9' width='90' height='90'>", "message when='1' text='a'");
}

void TestViewFrame::partsFadeAndHide()
{
    const auto [element, part] = fetchRow<QByteArray, QByteArray>();
    const QByteArray name = element.mid(1, element.indexOf(' ') - 1);
    load(element + '<' + part + " color='#123456' visible='on' opacity='fade'/></" + name + '>');
    const auto alphas = [this] {
        QStringList found;
        for (const DrawCommand& command : m_frame.drawList(0).commands) {
            if ((command.color & 0xffffff) == 0x123456)
                found << QString::number(command.color >> 24);
        }
        return found.join(' ');
    };
    QCOMPARE(alphas(), QString());
    set("on", 1.0);
    QCOMPARE(alphas(), "255");
    set("fade", 0.5);
    QCOMPARE(alphas(), "128");
}

void TestViewFrame::annunciator()
{
    load("<annunciator x='0' y='0' width='100' height='60' rows='2'>"
         "<message when='a' text='caution' priority='1'/>"
         "<message when='b' text='warning' priority='2'/>"
         "<message when='c' text='also a caution' priority='1'/>"
         "<message when='b &amp;&amp; never' text='nobody knows' priority='9'/></annunciator>");
    const auto after = [this](const char* name, double value) {
        set(name, value);
        return textsOf(0).join('|');
    };
    QCOMPARE(textsOf(0), QStringList());
    QCOMPARE(after("a", 1.0), "caution");
    QCOMPARE(after("b", 1.0), "warning|caution");
    QCOMPARE(after("c", 1.0), "warning|caution|+1");
    QCOMPARE(after("a", 0.0), "warning|also a caution");
}

void TestViewFrame::texts_data()
{
    // With v not set, and with v = 2.
    const Rows<QByteArray, QString, QString> row("attributes", "unset", "set");
    row("text='OIL'/>", "OIL", "OIL");
    row("value='v'/>", "---", "2");
    row("value='v' format='%.2f l'/>", "--.-- l", "2.00 l");
    row("value='v' format='%.2f' dashes='no data'/>", "no data", "2.00");
    row("value='v' format=\"=v == 2 ? '%.1f' : '%d'\"/>", "---", "2.0");
    row("text=\"=v == 2 ? 'two' : 'other'\"/>", "", "two");
    row("text='=v'/>", "", "2");
    row("value='v'><case value='1' text='one'/><case value='2' text='two'/></text>", "---", "two");
    row("value='v' text='?'><case value='1' text='one'/></text>", "---", "?");
    row("value='v'><case value='1' text='one'/></text>", "---", "2");
    row("value='v' format='%d'><case value='1' text='one'/></text>", "---", "2");
    row("text='off'><case when='v > 1' text='on'/></text>", "off", "on");
}

void TestViewFrame::texts()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, unset);
    QFETCH(QString, set);
    load("<text x='1' y='1' " + attributes);
    QCOMPARE(textsOf(0).join('|'), unset);
    this->set("v", 2.0);
    QCOMPARE(textsOf(0).join('|'), set);
}

void TestViewFrame::tape()
{
    load("<tape x='10' y='0' width='100' height='200' value='v' span='40' major='10' "
         "format='%.0f'><range from='90' to='105' color='#00ff00'/>"
         "<range from='never' to='105' color='#0000ff'/></tape>"
         "<tape x='10' y='0' width='100' height='200' value='v' span='wide' major='10'/>");
    QCOMPARE(textsOf(0), QStringList{"---"});
    set("v", 100.0);
    QCOMPARE(textsOf(0), (QStringList{"80", "90", "100", "110", "120", "100"}));
    QVERIFY(find(0, Kind::Fill, 0xff0000ff) == nullptr); // one end is not set
    QCOMPARE(textsOf(1), QStringList{"100"});            // the span is not set
    const DrawCommand* const range = find(0, Kind::Fill, 0xff00ff00);
    QVERIFY(range != nullptr);
    QCOMPARE(boundsOf(0, *range).top(), 75.0); // 5 units per value, 100 in the middle
    QCOMPARE(boundsOf(0, *range).height(), 75.0);
    QCOMPARE(m_frame.drawList(0).clips.at(static_cast<std::size_t>(range->clip)),
             QRectF(10, 0, 100, 200));
    QCOMPARE(m_frame.drawList(0).commands.back().clip, -1); // the window is not clipped
}

void TestViewFrame::brokenPlacesAreNotDrawn()
{
    load("<circle x='a' y='1' radius='5'/><circle x='1' y='1' radius='-5'/>"
         "<rectangle x='1' y='1' width='0' height='5'/><gauge x='1' y='1' radius='0' value='1' "
         "min='0' max='1'/><bar x='1' y='1' width='9' height='2' value='1' min='1' max='1'/>"
         "<polygon points='0,0; 1,1'/><line x='1' y='1' x2='2' y2='2' thickness='0'/>"
         "<polygon points='0,0; 9,0; 9,a; 0,9'/><polyline points='0,0; a,0; 9,9'/>"
         "<ring x='9' y='9' radius='9' inner='a' start='0' sweep='90'/>");
    for (const std::size_t element : {0U, 1U, 2U, 3U, 5U, 6U, 7U, 8U, 9U})
        QVERIFY(m_frame.drawList(element).commands.empty());
    set("a", 3.0);
    for (const std::size_t element : {0U, 7U, 8U, 9U})
        QCOMPARE(m_frame.drawList(element).commands.size(), 1U);
}

QTEST_MAIN(TestViewFrame)
#include "tst_viewframe.moc"
