#include "analysis/ui/DialogDataLimit.h"
#include "graph/ScenePainter.h"
#include "graph/ui/EpisodeCard.h"
#include "resources/Resources.h"
#include "tests/support/Buttons.h"
#include "tests/support/RecordingFixture.h"

#include <QClipboard>
#include <QLabel>
#include <QPainter>
#include <QSignalSpy>
#include <QSplitter>
#include <QTableWidget>

using namespace KOLT;
using namespace KOLT::Test;

class TestEpisodeCard : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase() { initKoltResources(); }

    void init();
    void pictureHasBandsTracesAndPeak();
    void cardFollowsTheList();
    void cardKeepsItsShare();

private:
    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
};

/// EGT 1 rises to 180 around 200 s and to 110 around 400 s; EGT 2 has the same steps.
void TestEpisodeCard::init()
{
    QVERIFY(loadProfile(
        m_profile,
        threshold("T", {"val='0' color='#00ff00' state='OK'",
                        "val='100' color='#ffff00' state='WARNING'",
                        "val='150' color='#ff0000' state='LIMIT'"}) +
            device({"name='EGT 1' id='1' dataType='FLOAT' precision='0' unitMetric='C' "
                    "thresholdId='T'",
                    "name='EGT 2' id='2' dataType='FLOAT' precision='0' thresholdId='T'"})));
    m_dataSet = std::make_unique<DataSet>();
    for (int i = 0; i <= 500; ++i) {
        const double hill =
            std::max({0.0, 180.0 - 10.0 * std::abs(i - 200), 110.0 - 10.0 * std::abs(i - 400)});
        add(m_dataSet->messages, 1, i, floats(static_cast<float>(hill)));
        add(m_dataSet->messages, 2, i, floats(40.0F));
    }
    m_dataSet->stopSeconds = 500.0;
}

void TestEpisodeCard::pictureHasBandsTracesAndPeak()
{
    const EpisodeList found = episodesOf(m_profile, *m_dataSet);
    QCOMPARE(found->episodes.size(), 2U);
    EpisodePicture picture;
    picture.show(m_profile, *m_dataSet, found->episodes.front());
    const Graph& graph = picture.graph();
    QCOMPARE(graph.traceCount(), 2);
    QVERIFY(graph.trace(0).size() < 200 && graph.trace(0).size() > 120); // what is shown
    const QSize size(500, 300);
    const GraphScene scene = picture.scene(size, GraphMetrics());
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    paintScene(painter, scene, size);
    painter.end();
    QImage clipped(size, QImage::Format_RGB32); // of a caller that draws on the rest itself
    clipped.fill(Qt::black);
    const QImage rest = clipped.copy(10, 0, 490, 300);
    painter.begin(&clipped);
    painter.setClipRect(0, 0, 10, 300);
    paintScene(painter, scene, size);
    painter.end();
    QCOMPARE(clipped.copy(10, 0, 490, 300), rest);
    const auto colorAt = [&](double seconds, double value) { // the darkest of three
        const auto x = static_cast<int>(graph.xOf(seconds));
        const int y = size.height() - static_cast<int>(graph.commonScale().yOf(value));
        const QColor around[] = {image.pixelColor(x, y - 1), image.pixelColor(x, y),
                                 image.pixelColor(x, y + 1)};
        return *std::ranges::min_element(around, {}, &QColor::lightness);
    };
    const auto isTinted = [&](double value, const QColor& step) { // 163 s: before the episode
        const QColor color = colorAt(163.0, value);
        const auto mixed = [](int channel) { return 255 - (255 - channel) * 60 / 255; };
        return std::abs(color.red() - mixed(step.red())) < 4 &&
               std::abs(color.green() - mixed(step.green())) < 4 &&
               std::abs(color.blue() - mixed(step.blue())) < 4;
    };
    QVERIFY(isTinted(125.0, Qt::yellow));
    QVERIFY(isTinted(170.0, Qt::red));
    QVERIFY(isTinted(75.0, Qt::white));              // normal
    QVERIFY(colorAt(200.0, 180.0).lightness() < 60); // the peak
    QVERIFY(colorAt(163.0, 40.0).lightness() < 230); // the thin line of the group
    QStringList texts;
    for (const GraphScene::Text& text : scene.texts)
        texts << text.text;
    QVERIFY(texts.contains("EGT 1") && texts.contains("EGT 2"));
}

void TestEpisodeCard::cardFollowsTheList()
{
    DialogDataLimit page(m_profile);
    auto* const card = new EpisodeCard(m_profile);
    page.setCard(card, card);
    page.resize(700, 600);
    page.setShown(true);
    page.setData(m_dataSet.get());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto* const table = page.findChild<QTableWidget*>();
    const auto select = [&](int row) {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualItemRect(table->item(row, 0)).center());
    };
    select(table->rowCount() - 1); // the second episode
    QVERIFY(card->isVisible());
    click(*card, "Copy");
    QVERIFY(QApplication::clipboard()->text().contains("Peak\t110 C at 00:06:40.000, EGT 1\n"));
    select(0);
    click(*card, "Copy");
    const QString text = QApplication::clipboard()->text();
    for (const char* line : {"EGT 1: limit\n", "Peak\t180 C at 00:03:20.000, EGT 1\n",
                             "Beyond warning\t17.0 s\n", "Of its group\tEGT 2 40"})
        QVERIFY2(text.contains(line), qPrintable(text));
    QSignalSpy targets(card, &EpisodeCard::signalShowInGraph);
    click(*card, "Show in graph");
    const auto target = targets.value(0).value(0).value<GraphTarget>();
    QCOMPARE(target.parameter, "D/EGT 1");
    QCOMPARE(target.begin, 192.0);
    QVERIFY(target.end > 208.0 && target.end < 212.0);
    page.clear();
    QVERIFY(card->isHidden());
}

void TestEpisodeCard::cardKeepsItsShare()
{
    DialogDataLimit page(m_profile);
    auto* const card = new EpisodeCard(m_profile);
    page.setCard(card, card);
    page.setCardPercent(40);
    page.resize(700, 900);
    page.setShown(true);
    page.setData(m_dataSet.get());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto* const splitter = page.findChild<QSplitter*>();
    const auto share = [&] { return 100 * card->height() / splitter->height(); };
    QVERIFY2(std::abs(share() - 40) <= 2, qPrintable(QString::number(share())));
    const QSignalSpy told(&page, &DialogEventList::signalCardPercent);
    QTest::mousePress(splitter->handle(1), Qt::LeftButton);
    QTest::mouseMove(splitter->handle(1), QPoint(5, -180));
    QTest::mouseRelease(splitter->handle(1), Qt::LeftButton);
    QVERIFY(!told.isEmpty() && std::abs(told.last().value(0).toInt() - 60) <= 3);
}

QTEST_MAIN(TestEpisodeCard)
#include "tst_episodecard.moc"
