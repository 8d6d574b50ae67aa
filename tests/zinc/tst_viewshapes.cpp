#include "libs/zinc/drawing/MeshBuilder.h"
#include "libs/zinc/drawing/Triangulation.h"
#include "libs/zinc/layout/Dial.h"
#include "libs/zinc/layout/InstrumentLook.h"
#include "tests/support/Rows.h"

#include <cmath>

using namespace Zinc2D;
using KOLT::Test::Rows;

namespace {

using Points = std::vector<QPointF>;
using TUSK::OpenGL::MeshVertex;

/// Area of the triangles, weighted with their alpha.
double coverage(const DrawCommand& command, const Points& points, double scale = 1.0)
{
    std::vector<MeshVertex> vertices;
    addMesh(command, points, {scale, {}}, vertices);
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

} // namespace

/// Scales of instruments, and the triangles of fills and strokes.
class TestViewShapes : public QObject
{
    Q_OBJECT

private slots:
    void dialPlaces();
    void dialExtents();
    void dialTicks();
    void meshCoversItsFigure_data();
    void meshCoversItsFigure();
    void levelEdgesAreSharp();
    void oddShapesEnd();
};

void TestViewShapes::dialPlaces()
{
    const Dial dial{0.0, 100.0, -120.0, 240.0};
    QCOMPARE(dial.place(50.0), 0.0);
    QCOMPARE(dial.place(100.0), 120.0);
    QCOMPARE(dial.place(-1e9), -120.0);
    QCOMPARE(dial.place(1e9), 120.0);
    QCOMPARE((Dial{20.0, 40.0, 300.0, -100.0}.place(25.0)), 275.0); // a vertical bar
    const Dial falling{10.0, 0.0, 0.0, 90.0};
    QCOMPARE(falling.place(2.5), 67.5);
    QCOMPARE(falling.place(-3.0), 90.0);
    QCOMPARE((Dial{5.0, 5.0, 7.0, 90.0}.place(9.0)), 7.0); // without extent
}

void TestViewShapes::dialExtents()
{
    const auto extent = [](double from, double to) {
        QString text;
        for (const Dial& dial : {Dial{0.0, 100.0, 0.0, 100.0}, Dial{0.0, 100.0, 100.0, -100.0}}) {
            const auto found = dial.extent(from, to);
            text += found ? QString("%1 %2;").arg(found->first).arg(found->second) : "-";
        }
        return text;
    };
    QCOMPARE(extent(20.0, 30.0), "20 10;80 -10;");
    QCOMPARE(extent(90.0, 120.0), "90 10;10 -10;"); // clipped
    QCOMPARE(extent(-5.0, 120.0), "0 100;100 -100;");
    QCOMPARE(extent(101.0, 120.0), "--"); // beyond
    QCOMPARE(extent(-9.0, 0.0), "--");
    QCOMPARE(extent(40.0, 40.0), "--");
    QCOMPARE(extent(40.0, 30.0), "--"); // reversed
    QCOMPARE(extent(std::nan(""), 30.0), "--");
}

void TestViewShapes::dialTicks()
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

void TestViewShapes::meshCoversItsFigure_data()
{
    const Rows<DrawCommand, Points, double> row("command", "points", "area");
    DrawCommand fill;
    fill.color = 0xffffffff;
    const Points square{{0, 0}, {20, 0}, {20, 10}, {0, 10}};
    row("rectangle", fill, square, 200.0);
    row("triangle", fill, {{0, 0}, {40, 0}, {0, 40}}, 800.0);
    row("the other way", fill, {{0, 0}, {0, 40}, {40, 0}}, 800.0);
    row("turned", fill, {{20, 0}, {40, 20}, {20, 40}, {0, 20}}, 800.0);
    row("concave", fill, {{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 30}, {0, 30}}, 500.0);
    Points comb{{0, 100}}; // many reflex corners
    for (int i = 0; i < 20; ++i) {
        comb.emplace_back(i * 20.0, i % 2 == 0 ? 0.0 : 80.0);
        comb.emplace_back(i * 20.0 + 10.0, i % 2 == 0 ? 0.0 : 80.0);
    }
    comb.emplace_back(390, 100);
    row("comb", fill, comb, 23400.0);
    Points circle;
    for (int i = 0; i < 120; ++i)
        circle.push_back(onCircle({50, 50}, 30, i * 3.0));
    row("circle", fill, circle, 2827.0);
    DrawCommand faint = fill;
    faint.color = 0x80ffffff;
    row("half transparent", faint, square, 100.4);
    DrawCommand stroke = fill;
    stroke.kind = DrawCommand::Kind::Stroke;
    stroke.thickness = 4.0;
    row("slanted line", stroke, {{0, 0}, {30, 40}}, 200.0);
    row("level line", stroke, {{0, 5}, {50, 5}}, 200.0);
    row("corner", stroke, {{0, 3}, {40, 3}, {40, 43}}, 320.0);
    stroke.path = Path::Closed;
    row("outline", stroke, circle, 754.0);
    stroke.path = Path::Open;
    stroke.thickness = 0.5;
    row("hairline", stroke, {{0, 0}, {30, 40}}, 25.0);
}

void TestViewShapes::meshCoversItsFigure()
{
    QFETCH(DrawCommand, command);
    QFETCH(Points, points);
    QFETCH(double, area);
    const double found = coverage(command, points);
    QVERIFY2(std::abs(found - area) < 0.02 * area, qPrintable(QString::number(found)));
    const double doubled = coverage(command, points, 2.0);
    QVERIFY2(std::abs(doubled - 4.0 * area) < 0.08 * area, qPrintable(QString::number(doubled)));
    std::vector<MeshVertex> vertices;
    addMesh(command, points, {1e9, {}}, vertices); // too large
    QVERIFY(vertices.empty());
}

void TestViewShapes::levelEdgesAreSharp()
{
    DrawCommand fill;
    fill.color = 0xffffffff;
    std::vector<MeshVertex> vertices;
    addMesh(fill, Points{{0.3, 0.2}, {5.4, 0.2}, {5.4, 3.4}, {0.3, 3.4}}, {}, vertices);
    fill.kind = DrawCommand::Kind::Stroke;
    fill.thickness = 1.0;
    addMesh(fill, Points{{2.0, 7.2}, {9.0, 7.2}}, {}, vertices);
    for (const MeshVertex& vertex : vertices) {
        if (vertex.rgba >> 24 == 255 && vertex.y < 7.0F)
            QCOMPARE(vertex.y, std::round(vertex.y));
    }
    // A thin rectangle keeps the height of a pixel.
    fill.kind = DrawCommand::Kind::Fill;
    QCOMPARE(coverage(fill, {{0.4, 0.4}, {9.0, 0.4}, {9.0, 0.45}, {0.4, 0.45}}), 9.0);
}

void TestViewShapes::oddShapesEnd()
{
    QVERIFY(triangulate(Points(2)).empty());
    QVERIFY(triangulate(Points(50)).size() <= 48); // flat
    // With crossing edges there are not more triangles than without.
    const Points crossed{{0, 0}, {10, 10}, {10, 0}, {0, 10}, {5, -5}};
    QVERIFY(triangulate(crossed).size() <= crossed.size() - 2);
}

QTEST_APPLESS_MAIN(TestViewShapes)
#include "tst_viewshapes.moc"
