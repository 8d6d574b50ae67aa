#include "resources/SvgPath.h"
#include "resources/SvgPlugin.h"
#include "tests/support/Rows.h"
#include "tests/support/TestFiles.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>

#include <cstdlib>
#include <memory>

using namespace KOLT;
using namespace KOLT::Test;

/// The substitute for the toolkit's module for SVG, compared with that module.
class TestSvgDrawing : public QObject
{
    Q_OBJECT

private slots:
    void iconsAreAsByTheToolkit_data();
    void iconsAreAsByTheToolkit();
    void pathsAreAsByTheToolkit_data();
    void pathsAreAsByTheToolkit();
    void otherFilesAreRefused_data();
    void otherFilesAreRefused();

private:
    static QImage ours(const QByteArray& svg, const QSize& size);
    static QImage theirs(const QByteArray& svg, const QSize& size);
    static void compare(const QByteArray& svg);
};

QImage TestSvgDrawing::ours(const QByteArray& svg, const QSize& size)
{
    QBuffer buffer;
    buffer.setData(svg);
    buffer.open(QIODevice::ReadOnly);
    const SvgPlugin plugin;
    if (!plugin.capabilities(&buffer, {}).testFlag(QImageIOPlugin::CanRead))
        return {};
    const std::unique_ptr<QImageIOHandler> handler(plugin.create(&buffer, "svg"));
    if (!size.isEmpty())
        handler->setOption(QImageIOHandler::ScaledSize, size);
    QImage image;
    return handler->read(&image) ? image : QImage();
}

QImage TestSvgDrawing::theirs(const QByteArray& svg, const QSize& size)
{
    QBuffer buffer;
    buffer.setData(svg);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(size);
    return reader.read();
}

void TestSvgDrawing::compare(const QByteArray& svg)
{
    for (const QSize size : {QSize(24, 24), QSize(113, 113)}) {
        const QImage expected = theirs(svg, size).convertToFormat(QImage::Format_ARGB32);
        const QImage drawn = ours(svg, size).convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(drawn.size(), size);
        QCOMPARE(expected.size(), size);
        int visible = 0;
        int different = 0;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const QRgb a = qPremultiply(expected.pixel(x, y));
                const QRgb b = qPremultiply(drawn.pixel(x, y));
                constexpr int tolerance = 24; // of smoothed edges
                visible += qAlpha(a) > 0 ? 1 : 0;
                different += std::abs(qAlpha(a) - qAlpha(b)) > tolerance ||
                                     std::abs(qRed(a) - qRed(b)) > tolerance ||
                                     std::abs(qGreen(a) - qGreen(b)) > tolerance ||
                                     std::abs(qBlue(a) - qBlue(b)) > tolerance
                                 ? 1
                                 : 0;
            }
        }
        QVERIFY(visible > 0);
        QVERIFY2(different * 100 <= visible,
                 qPrintable(QString("%1 of %2 pixels differ").arg(different).arg(visible)));
    }
}

void TestSvgDrawing::iconsAreAsByTheToolkit_data()
{
    QTest::addColumn<QString>("path");
    const QDir icons(KOLT_ICONS);
    for (const QString& name : icons.entryList({"*.svg"}))
        QTest::newRow(qPrintable(name)) << icons.filePath(name);
}

void TestSvgDrawing::iconsAreAsByTheToolkit()
{
    QFETCH(const QString, path);
    compare(readFile(path));
}

void TestSvgDrawing::pathsAreAsByTheToolkit_data()
{
    const Rows<QString> row("outline");
    row("large arc, clockwise", "M3 12A8 8 0 1 1 12 20");
    row("large arc, the other way", "M12 20A8 8 0 1 0 3 12");
    row("small arcs", "M4 12A9 9 0 0 1 12 4 9 9 0 0 0 20 12");
    row("turned ellipse, relative, flags without blanks", "m5 15a9 4 30 1112-6");
    row("arc with too small radii", "M4 12A2 2 0 0 1 20 12");
    row("curves that go on", "M2 12C4 2 8 2 10 12S16 22 18 12s3-8 4 0");
    row("numbers without blanks", "M2 2 10.5.5-.5 12l1e1-3H20v8.5h-4V20z");
    row("further points of a move", "m2 2 4 8 6-4 3 12z M14 2l6 6");
    row("after a closed part", "M4 4h6v6z l10 12");
}

void TestSvgDrawing::pathsAreAsByTheToolkit()
{
    QFETCH(const QString, outline);
    compare("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 24 24\">"
            "<path stroke=\"#102030\" stroke-width=\"2\" fill=\"#a0c0e0\" d=\"" +
            outline.toUtf8() + "\"/></svg>");
}

void TestSvgDrawing::otherFilesAreRefused_data()
{
    const Rows<QByteArray> row("svg");
    row("nothing", "");
    row("no XML", "<svg viewBox='0 0 24 24'><path d='M1 1");
    row("another root", "<html viewBox='0 0 24 24'/>");
    row("without a view box", "<svg/>");
    row("an empty view box", "<svg viewBox='0 0 0 24'/>");
    row("an unknown element", "<svg viewBox='0 0 24 24'><text>a</text></svg>");
    row("an unknown transform",
        "<svg viewBox='0 0 24 24'><g transform='skewX(3)'><rect width='9' height='9'/></g></svg>");
    row("a quadratic curve", "<svg viewBox='0 0 24 24'><path d='M1 1Q2 2 3 3'/></svg>");
    row("half a point", "<svg viewBox='0 0 24 24'><path d='M1 1L2'/></svg>");
    row("numbers without a command", "<svg viewBox='0 0 24 24'><path d='1 1 2 2'/></svg>");
    row("no flag of an arc", "<svg viewBox='0 0 24 24'><path d='M1 1A3 3 0 2 0 5 5'/></svg>");
}

void TestSvgDrawing::otherFilesAreRefused()
{
    QFETCH(const QByteArray, svg);
    QVERIFY(ours(svg, QSize(24, 24)).isNull());
}

QTEST_MAIN(TestSvgDrawing)
#include "tst_svgdrawing.moc"
