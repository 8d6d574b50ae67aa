#include "libs/zinc/Dial.h"
#include "libs/zinc/InstrumentLook.h"
#include "libs/zinc/MeshBuilder.h"
#include "libs/zinc/Triangulation.h"
#include "libs/zinc/ViewFrame.h"
#include "libs/zinc/ViewReader.h"
#include "tests/support/TestFiles.h"

#include <QTest>

#include <cmath>

using namespace Zinc2D;

namespace {

using Kind = DrawCommand::Kind;
using TUSK::OpenGL::MeshVertex;

/// What the triangles cover, faded ones in part.
double coverage(const std::vector<MeshVertex>& vertices)
{
    double sum = 0.0;
    for (std::size_t i = 0; i + 2 < vertices.size(); i += 3) {
        const MeshVertex& a = vertices[i];
        const MeshVertex& b = vertices[i + 1];
        const MeshVertex& c = vertices[i + 2];
        const auto area = std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2.0F;
        const auto alpha = (a.rgba >> 24) + (b.rgba >> 24) + (c.rgba >> 24);
        sum += static_cast<double>(area) * alpha / 3.0 / 255.0;
    }
    return sum;
}

double coverage(const DrawCommand& command, const std::vector<QPointF>& points, double scale = 1.0)
{
    std::vector<MeshVertex> vertices;
    addMesh(command, points, {scale, {}}, vertices);
    return coverage(vertices);
}

} // namespace

class TestViewFrame : public QObject
{
    Q_OBJECT

private slots:

    void dialPlaces_data();
    void dialPlaces();
    void dialExtents_data();
    void dialExtents();
    void dialTicks();

    void rebuildsOnlyWhatChanged();
    void groupsCarryWhatIsInThem();

    void gauge_data();
    void gauge();
    void gaugeWithoutValueHasNoNeedle();
    void scalesWithoutEndsPointNowhere_data();
    void scalesWithoutEndsPointNowhere();
    void bars();
    void lamps();
    void annunciator();
    void texts_data();
    void texts();
    void tape();
    void brokenPlacesAreNotDrawn();

    void meshCoversItsFigure_data();
    void meshCoversItsFigure();
    void levelEdgesAreSharp();
    void triangulatesAnyShape();

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
        QVERIFY2(
            reader.diagnostics().empty(),
            qPrintable(reader.diagnostics().empty() ? QString() : reader.diagnostics()[0].text()));
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

    /// The first figure of that colour; null when there is none.
    const DrawCommand* find(std::size_t element, Kind kind, Argb color) const
    {
        for (const DrawCommand& command : m_frame.drawList(element).commands) {
            if (command.kind == kind && command.color == color)
                return &command;
        }
        return nullptr;
    }

    QRectF boundsOf(std::size_t element, const DrawCommand& command) const
    {
        QPolygonF polygon;
        for (std::size_t i = 0; i < command.pointCount; ++i)
            polygon << m_frame.drawList(element).points[command.firstPoint + i];
        return polygon.boundingRect();
    }

    QPointF firstPoint(std::size_t element, const DrawCommand& command) const
    {
        return m_frame.drawList(element).points[command.firstPoint];
    }

    QTemporaryDir m_directory;
    VariableTable m_variables;
    ViewModel m_model;
    ViewFrame m_frame;
};

void TestViewFrame::dialPlaces_data()
{
    QTest::addColumn<Dial>("dial");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("place");
    const Dial dial{0.0, 100.0, -120.0, 240.0};
    QTest::newRow("lower end") << dial << 0.0 << -120.0;
    QTest::newRow("middle") << dial << 50.0 << 0.0;
    QTest::newRow("upper end") << dial << 100.0 << 120.0;
    QTest::newRow("below") << dial << -1e9 << -120.0;
    QTest::newRow("above") << dial << 1e9 << 120.0;
    const Dial upwards{20.0, 40.0, 300.0, -100.0}; // a vertical bar
    QTest::newRow("upwards") << upwards << 25.0 << 275.0;
    const Dial turned{10.0, 0.0, 0.0, 90.0}; // falling values
    QTest::newRow("falling") << turned << 2.5 << 67.5;
    QTest::newRow("falling, beyond") << turned << -3.0 << 90.0;
    QTest::newRow("without extent") << Dial{5.0, 5.0, 7.0, 90.0} << 9.0 << 7.0;
}

void TestViewFrame::dialPlaces()
{
    QFETCH(Dial, dial);
    QFETCH(double, value);
    QFETCH(double, place);
    QCOMPARE(dial.place(value), place);
}

void TestViewFrame::dialExtents_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<QString>("extent");
    QTest::newRow("inside") << 20.0 << 30.0 << "20+10";
    QTest::newRow("over an end") << 90.0 << 120.0 << "90+10";
    QTest::newRow("over both") << -5.0 << 120.0 << "0+100";
    QTest::newRow("beyond") << 101.0 << 120.0 << "-";
    QTest::newRow("before") << -9.0 << 0.0 << "-";
    QTest::newRow("gap") << 40.0 << 40.0 << "-";
    QTest::newRow("turned") << 40.0 << 30.0 << "-";
    QTest::newRow("not a number") << std::nan("") << 30.0 << "-";
}

void TestViewFrame::dialExtents()
{
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(QString, extent);
    const auto found = Dial{0.0, 100.0, 0.0, 100.0}.extent(from, to);
    QCOMPARE(found ? QStringLiteral("%1+%2").arg(found->first).arg(found->second) : "-", extent);
    const auto upwards = Dial{0.0, 100.0, 100.0, -100.0}.extent(from, to);
    QCOMPARE(upwards ? QStringLiteral("%1+%2").arg(100.0 - upwards->first).arg(-upwards->second)
                     : "-",
             extent);
}

void TestViewFrame::dialTicks()
{
    const std::vector<double> tenths = Dial{0.0, 0.3, 0.0, 1.0}.ticks(0.1);
    QCOMPARE(tenths.size(), 4U); // in spite of rounding
    QCOMPARE(Dial({-5.0, 5.0, 0.0, 1.0}).ticks(4.0), (std::vector<double>{-4.0, 0.0, 4.0}));
    QCOMPARE(Dial({10.0, 0.0, 0.0, 1.0}).ticks(5.0), (std::vector<double>{0.0, 5.0, 10.0}));
    for (const double step : {0.0, -1.0, 1e-9, std::nan("")})
        QVERIFY(Dial({0.0, 100.0, 0.0, 1.0}).ticks(step).empty());
    QVERIFY(Dial({1e300, 2e300, 0.0, 1.0}).ticks(1e-3).empty());
    QVERIFY(Dial({1e17, 1e17 + 64, 0.0, 1.0}).ticks(1.0).size() <= 500);
}

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
    QCOMPARE(rebuilt("a", 4.0), 2); // itself and its half
    QCOMPARE(rebuilt("a", 4.0), 0); // nothing changed
    QCOMPARE(rebuilt("b", 1.0), 2);
    QCOMPARE(rebuilt("c", 5.0), 2); // all that the group carries
    QCOMPARE(rebuilt("d", 1.0), 1); // a part's variable is its element's
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
    QVERIFY(m_frame.drawList(5).commands.empty()); // its group has no place any more
}

void TestViewFrame::groupsCarryWhatIsInThem()
{
    load("<group x='100' y='50' rotate='90' scale='2' opacity='0.5'><group x='10'>"
         "<line x='0' y='0' x2='0' y2='-5' thickness='3' color='#ffffff'/>"
         "<text x='1' y='0' text='t' size='10'/></group></group>"
         "<group visible='on'><group><circle x='0' y='0' radius='1'/></group></group>");
    const DrawList& list = m_frame.drawList(2);
    const DrawCommand& line = list.commands.at(0);
    // (10, 0) and (10, -5), doubled, turned a quarter clockwise, moved
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

void TestViewFrame::gauge_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("angle");
    QTest::newRow("start") << 0.0 << -120.0;
    QTest::newRow("quarter") << 25.0 << -60.0;
    QTest::newRow("middle") << 50.0 << 0.0;
    QTest::newRow("end") << 100.0 << 120.0;
    QTest::newRow("beyond the end") << 1000.0 << 120.0;
    QTest::newRow("below the start") << -1000.0 << -120.0;
}

void TestViewFrame::gauge()
{
    QFETCH(double, value);
    QFETCH(double, angle);
    load("<gauge x='200' y='150' radius='100' min='0' max='100' value='v' color='#123456' "
         "format='%.0f' major='25' label='RPM' unit='rpm'/>");
    set("v", value);
    const DrawCommand* const needle = find(0, Kind::Fill, 0xff123456);
    QVERIFY(needle != nullptr);
    const QPointF tip = firstPoint(0, *needle) - QPointF(200, 150);
    QVERIFY(std::abs(std::remainder(qRadiansToDegrees(std::atan2(tip.x(), -tip.y())) - angle,
                                    360.0)) < 1e-6);
    QVERIFY(std::hypot(tip.x(), tip.y()) > 90.0);
    QCOMPARE(textsOf(0), (QStringList{"0", "25", "50", "75", "100", QString::number(value, 'f', 0),
                                      "RPM rpm"}));
}

void TestViewFrame::gaugeWithoutValueHasNoNeedle()
{
    load("<gauge x='200' y='150' radius='100' min='0' max='100' value='v' color='#123456' "
         "format='%.1f' state='s'><range from='0' to='limit' color='#00ff00'/>"
         "<range from='50' to='100' color='#ff0000'/><range from='200' to='300' color='#0000ff'/>"
         "</gauge>");
    QVERIFY(find(0, Kind::Fill, 0xff123456) == nullptr);
    QCOMPARE(textsOf(0), QStringList{"--.-"});
    QVERIFY(find(0, Kind::Stroke, 0xff00ff00) == nullptr); // its end is not known
    QVERIFY(find(0, Kind::Stroke, 0xffff0000) != nullptr);
    QVERIFY(find(0, Kind::Stroke, 0xff0000ff) == nullptr); // beyond the scale
    set("limit", 50.0);
    const DrawCommand* const green = find(0, Kind::Stroke, 0xff00ff00);
    QVERIFY(green != nullptr);
    const QRectF bounds = boundsOf(0, *green); // from lower left to the top
    QVERIFY(std::abs(bounds.right() - 200.0) < 1e-6 && bounds.left() < 110.0);

    set("s", 2.0); // without a value there is nothing to be red
    QVERIFY(find(0, Kind::Fill, Palette::limit) == nullptr);
    set("v", 70.0);
    QVERIFY(find(0, Kind::Fill, Palette::limit) != nullptr);
    set("s", 1.0);
    QVERIFY(find(0, Kind::Fill, Palette::limit) == nullptr);
    QVERIFY(find(0, Kind::Fill, Palette::warning) != nullptr);
}

void TestViewFrame::scalesWithoutEndsPointNowhere_data()
{
    QTest::addColumn<QByteArray>("element");
    const QByteArray scale = "value='5' color='#123456' format='%.1f' min='low' max='high'>"
                             "<mark at='5' color='#654321'/>";
    QTest::newRow("gauge") << "<gauge x='200' y='150' radius='100' " + scale + "</gauge>";
    QTest::newRow("pointer") << "<bar x='100' y='50' width='200' height='10' " + scale + "</bar>";
    QTest::newRow("fill") << "<bar x='100' y='50' width='200' height='10' look='fill' " + scale +
                                 "</bar>";
}

void TestViewFrame::scalesWithoutEndsPointNowhere()
{
    QFETCH(QByteArray, element);
    load(element);
    const auto points = [this] {
        return find(0, Kind::Fill, 0xff123456) != nullptr &&
               find(0, Kind::Stroke, 0xff654321) != nullptr;
    };
    const auto isBlank = [this] {
        return find(0, Kind::Fill, 0xff123456) == nullptr &&
               find(0, Kind::Stroke, 0xff654321) == nullptr;
    };
    QVERIFY(isBlank());
    set("low", 0.0);
    QVERIFY(isBlank());
    set("high", 0.0); // no extent
    QVERIFY(isBlank());
    QVERIFY(textsOf(0).contains("5.0"));
    set("high", 10.0);
    QVERIFY(points());
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
    QCOMPARE(firstPoint(0, *first).x(), 200.0);
    QVERIFY(boundsOf(0, *first).top() < 50.0); // above the bar
    QCOMPARE(boundsOf(1, *find(1, Kind::Fill, 0xff123456)), QRectF(20, 150, 10, 50));
    set("b", 99.0);
    set("s", 2.0);
    const DrawCommand* const second = find(0, Kind::Fill, Palette::limit);
    QVERIFY(second != nullptr);
    QCOMPARE(firstPoint(0, *second).x(), 300.0);
    QVERIFY(boundsOf(0, *second).bottom() > 60.0);
    QCOMPARE(textsOf(0), (QStringList{"PRESS", "99.0", "10.0"})); // from the right
}

void TestViewFrame::lamps()
{
    load("<lamp x='10' y='10' width='60' height='30' value='v' text='OIL|PRESS' "
         "background='#111111'><case value='1' background='#ff0000' color='#ffffff'/>"
         "<case when='v &gt; 1' background='#ffff00' text='TEST'/></lamp>");
    QCOMPARE(textsOf(0), QStringList{"---"});
    set("v", 0.0);
    QCOMPARE(textsOf(0), (QStringList{"OIL", "PRESS"}));
    QCOMPARE(m_frame.drawList(0).commands[0].color, 0xff111111U);
    set("v", 1.0);
    QCOMPARE(textsOf(0), (QStringList{"OIL", "PRESS"}));
    QCOMPARE(m_frame.drawList(0).commands[0].color, 0xffff0000U);
    set("v", 7.0);
    QCOMPARE(textsOf(0), QStringList{"TEST"});
    QCOMPARE(m_frame.drawList(0).commands[0].color, 0xffffff00U);
}

void TestViewFrame::annunciator()
{
    load("<annunciator x='0' y='0' width='100' height='60' rows='2'>"
         "<message when='a' text='caution' priority='1'/>"
         "<message when='b' text='warning' priority='2'/>"
         "<message when='c' text='also a caution' priority='1'/>"
         "<message when='b &amp;&amp; never' text='nobody knows' priority='9'/></annunciator>");
    QCOMPARE(textsOf(0), QStringList());
    set("a", 1.0);
    QCOMPARE(textsOf(0), QStringList{"caution"});
    set("b", 1.0);
    QCOMPARE(textsOf(0), (QStringList{"warning", "caution"}));
    set("c", 1.0);
    QCOMPARE(textsOf(0), (QStringList{"warning", "caution", "+1"}));
    set("a", 0.0);
    QCOMPARE(textsOf(0), (QStringList{"warning", "also a caution"}));
}

void TestViewFrame::texts_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("unset"); // with v not set
    QTest::addColumn<QString>("set");   // with v = 2
    const auto row = [](const QByteArray& attributes, const char* unset, const char* set) {
        QTest::newRow(attributes) << attributes << unset << set;
    };
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
    QVERIFY(find(0, Kind::Fill, 0xff0000ff) == nullptr); // it would begin at 0
    QCOMPARE(textsOf(1), QStringList{"100"});            // no scale of unknown width
    const DrawCommand* const range = find(0, Kind::Fill, 0xff00ff00);
    QVERIFY(range != nullptr);
    QCOMPARE(boundsOf(0, *range).top(), 75.0); // 5 for each, 100 in the middle
    QCOMPARE(boundsOf(0, *range).height(), 75.0);
    QCOMPARE(m_frame.drawList(0).clips.at(static_cast<std::size_t>(range->clip)),
             QRectF(10, 0, 100, 200));
    QCOMPARE(m_frame.drawList(0).commands.back().clip, -1); // the window lies over it
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

void TestViewFrame::meshCoversItsFigure_data()
{
    QTest::addColumn<DrawCommand>("command");
    QTest::addColumn<std::vector<QPointF>>("points");
    QTest::addColumn<double>("area");
    DrawCommand fill;
    fill.color = 0xffffffff;
    using Points = std::vector<QPointF>;
    const Points square{{0, 0}, {20, 0}, {20, 10}, {0, 10}};
    QTest::newRow("rectangle") << fill << square << 200.0;
    QTest::newRow("triangle") << fill << Points{{0, 0}, {40, 0}, {0, 40}} << 800.0;
    QTest::newRow("the other way") << fill << Points{{0, 0}, {0, 40}, {40, 0}} << 800.0;
    QTest::newRow("turned") << fill << Points{{20, 0}, {40, 20}, {20, 40}, {0, 20}} << 800.0;
    QTest::newRow("concave") << fill
                             << Points{{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 30}, {0, 30}}
                             << 500.0;
    Points circle;
    for (int i = 0; i < 120; ++i)
        circle.push_back(onCircle({50, 50}, 30, i * 3.0));
    QTest::newRow("circle") << fill << circle << 2827.0;
    DrawCommand faint = fill;
    faint.color = 0x80ffffff;
    QTest::newRow("half transparent") << faint << square << 100.4;
    DrawCommand stroke = fill;
    stroke.kind = Kind::Stroke;
    stroke.thickness = 4.0;
    QTest::newRow("slanted line") << stroke << Points{{0, 0}, {30, 40}} << 200.0;
    QTest::newRow("level line") << stroke << Points{{0, 5}, {50, 5}} << 200.0;
    stroke.thickness = 0.5;
    QTest::newRow("hairline") << stroke << Points{{0, 0}, {30, 40}} << 25.0;
    stroke.thickness = 4.0;
    stroke.isClosed = true;
    QTest::newRow("outline") << stroke << circle << 754.0;
    stroke.isClosed = false;
    QTest::newRow("corner") << stroke << Points{{0, 3}, {40, 3}, {40, 43}} << 320.0;
}

void TestViewFrame::meshCoversItsFigure()
{
    QFETCH(DrawCommand, command);
    QFETCH(std::vector<QPointF>, points);
    QFETCH(double, area);
    const double found = coverage(command, points);
    QVERIFY2(std::abs(found - area) < 0.02 * area, qPrintable(QString::number(found)));
    const double doubled = coverage(command, points, 2.0);
    QVERIFY2(std::abs(doubled - 4.0 * area) < 0.08 * area, qPrintable(QString::number(doubled)));
    std::vector<MeshVertex> vertices;
    addMesh(command, points, {1e9, {}}, vertices); // farther away than any screen is large
    QVERIFY(vertices.empty());
}

void TestViewFrame::levelEdgesAreSharp()
{
    DrawCommand fill;
    fill.color = 0xffffffff;
    std::vector<MeshVertex> vertices;
    addMesh(fill, std::vector<QPointF>{{0.3, 0.2}, {5.4, 0.2}, {5.4, 3.4}, {0.3, 3.4}}, {},
            vertices);
    fill.kind = Kind::Stroke;
    fill.thickness = 1.0;
    addMesh(fill, std::vector<QPointF>{{2.0, 7.2}, {9.0, 7.2}}, {}, vertices);
    for (const MeshVertex& vertex : vertices) {
        if (vertex.rgba >> 24 == 255 && vertex.y < 7.0F)
            QCOMPARE(vertex.y, std::round(vertex.y));
    }
    // Nothing becomes so thin that it is not seen.
    fill.kind = Kind::Fill;
    QCOMPARE(coverage(fill, {{0.4, 0.4}, {9.0, 0.4}, {9.0, 0.45}, {0.4, 0.45}}), 9.0);
}

void TestViewFrame::triangulatesAnyShape()
{
    std::vector<QPointF> comb; // many corners inwards
    for (int i = 0; i < 20; ++i) {
        comb.emplace_back(i * 2.0, i % 2 == 0 ? 0.0 : 8.0);
        comb.emplace_back(i * 2.0 + 1.0, i % 2 == 0 ? 0.0 : 8.0);
    }
    comb.emplace_back(39.0, 10.0);
    comb.emplace_back(0.0, 10.0);
    double sum = 0.0;
    for (const Triangle& corners : triangulate(comb)) {
        const QPointF a = comb[corners[1]] - comb[corners[0]];
        const QPointF b = comb[corners[2]] - comb[corners[0]];
        sum += std::abs(a.x() * b.y() - a.y() * b.x()) / 2.0;
    }
    double whole = 0.0;
    for (std::size_t i = 0; i < comb.size(); ++i) {
        const QPointF& next = comb[(i + 1) % comb.size()];
        whole += (comb[i].x() * next.y() - next.x() * comb[i].y()) / 2.0;
    }
    QVERIFY(std::abs(sum - std::abs(whole)) < 1e-9);
    QVERIFY(triangulate(std::vector<QPointF>(2)).empty());
    // Crossed and flat shapes end as well.
    triangulate(std::vector<QPointF>{{0, 0}, {10, 10}, {10, 0}, {0, 10}, {5, -5}});
    triangulate(std::vector<QPointF>(50));
}

QTEST_MAIN(TestViewFrame)
#include "tst_viewframe.moc"
