#include "map/ui/DialogDataMap.h"
#include "map/ui/OutlinedLabel.h"
#include "tests/support/MapWindow.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <functional>
#include <initializer_list>

using namespace KOLT;
using namespace KOLT::Test;

/// User input on the map, and the map page.
class TestMapPage : public QObject
{
    Q_OBJECT

private slots:

    void init();
    void cleanup();

    void wheelAndPinchZoomAboutThePointer_data();
    void wheelAndPinchZoomAboutThePointer();
    void touchPadPans();
    void heldKeysMove_data();
    void heldKeysMove();
    void fitKeyShowsTheTrack();
    void clickTellsTheMoment_data();
    void clickTellsTheMoment();
    void dragAndFitEndFollowing();
    void doubleClickGlides();
    void shadingKeyGoesBeforeTheWindows();
    void coveredMapRests();
    void marksTellWhatTheyAre();
    void notesAreFlagsOnTheTrack();
    void valuesHaveTheirUnits();
    void valuesScrollAndFold();
    void valuesAreReadableOnAnyGround_data();
    void valuesAreReadableOnAnyGround();
    void flightPanelSaysWhereItIs();
    void fitLeavesTheValuesFree();
    void noteSaysThatTilesAreLacking();

private:
    void makePage();
    QAction& action(const QString& text);
    void waitForFrame();

    View pageView() const { return viewOf(m_page->viewState(), m_page->widget()); }

    std::unique_ptr<MapWindow> m_window;
    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
    std::unique_ptr<DialogDataMap> m_page;
};

void TestMapPage::init()
{
    m_window = std::make_unique<MapWindow>();
    QVERIFY(m_window->show());
    m_window->lookAt(home, 100e3);
    QVERIFY(!m_window->settled().isNull());
}

void TestMapPage::cleanup()
{
    m_window.reset();
    m_page.reset();
}

void TestMapPage::wheelAndPinchZoomAboutThePointer_data()
{
    const Rows<int, double> row("angle", "factor"); // angle 0: a pinch
    row("wheel away from the user", 120, 1.0 / 1.100000023841858);
    row("wheel towards the user", -120, 1.100000023841858);
    row("pinch", 0, 1.0 / 1.25);
}

void TestMapPage::wheelAndPinchZoomAboutThePointer()
{
    QFETCH(int, angle);
    QFETCH(double, factor);
    m_window->lookAt(home, 2e6);
    m_window->settled();
    const QPointF pointer(80, 350);
    const QPointF global = m_window->map.mapToGlobal(pointer);
    const Place place = *m_window->view().placeAt(pointer.x(), pointer.y());
    for (int i = 0; i < 3; ++i) {
        QWheelEvent wheel(pointer, global, {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(),
                                  2, pointer, pointer, global, 0.25, {});
        QCoreApplication::sendEvent(&m_window->map,
                                    angle != 0 ? static_cast<QEvent*>(&wheel) : &pinch);
    }
    const int frames = m_window->map.frameCount();
    QTRY_VERIFY(m_window->map.frameCount() > frames);
    QVERIFY(std::abs(m_window->state.width / (2e6 * factor * factor * factor) - 1.0) < 1e-9);
    QVERIFY(m_window->view().distance(pointer, place) < 0.1);
}

void TestMapPage::touchPadPans()
{
    m_window->state.follow = 2;
    QSignalSpy ended(&m_window->map, &WidgetMap::signalUpdateMode);
    const QPointingDevice pad("pad", 1, QInputDevice::DeviceType::TouchPad,
                              QPointingDevice::PointerType::Finger,
                              QInputDevice::Capability::Scroll, 2, 2);
    const QPointingDevice* device = QPointingDevice::primaryPointingDevice();
    const auto scroll = [&](Qt::ScrollPhase phase, QPoint way) {
        QWheelEvent event({250, 200}, m_window->map.mapToGlobal(QPointF(250, 200)), way, {},
                          Qt::NoButton, Qt::NoModifier, phase, false, Qt::MouseEventNotSynthesized,
                          device);
        QCoreApplication::sendEvent(&m_window->map, &event);
    };
    scroll(Qt::ScrollBegin, {});
    scroll(Qt::ScrollUpdate, {30, 10});
    device = &pad; // some platforms report no phases
    scroll(Qt::NoScrollPhase, {12, -35});
    scroll(Qt::ScrollEnd, {});
    QCOMPARE(m_window->state.width, 100e3);
    QCOMPARE(ended.count(), 1);
    QVERIFY(m_window->view().distance({292.0, 175.0}, home) < 0.5);
}

void TestMapPage::heldKeysMove_data()
{
    const Rows<int, int, int, int> row("key", "zoom", "east", "north"); // steps per frame
    row("+", Qt::Key_Plus, -1, 0, 0);
    row("-", Qt::Key_Minus, 1, 0, 0);
    row("left", Qt::Key_Left, 0, -1, 0);
    row("right", Qt::Key_Right, 0, 1, 0);
    row("up", Qt::Key_Up, 0, 0, 1);
    row("down", Qt::Key_Down, 0, 0, -1);
}

void TestMapPage::heldKeysMove()
{
    QFETCH(int, key);
    QFETCH(int, zoom);
    QFETCH(int, east);
    QFETCH(int, north);
    const int before = m_window->map.frameCount();
    QTest::keyPress(&m_window->map, static_cast<Qt::Key>(key));
    QTRY_VERIFY(m_window->map.frameCount() >= before + 3);
    // Releases from auto-repeat are ignored.
    QKeyEvent repeated(QEvent::KeyRelease, key, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&m_window->map, &repeated);
    // Faster than the one frame a second of an idle map.
    QTRY_VERIFY_WITH_TIMEOUT(m_window->map.frameCount() >= before + 12, 5000);
    QTest::keyRelease(&m_window->map, static_cast<Qt::Key>(key));
    const int frames = m_window->map.frameCount() - before;
    const double step = 0.015 * 100e3 / 111120.0;
    const auto verify = [&] {
        QVERIFY(std::abs(m_window->state.width / (100e3 * std::pow(1.03, zoom * frames)) - 1.0) <
                1e-9);
        QVERIFY(std::abs(m_window->state.latitude - home.latitude - north * frames * step) < 1e-9);
        QVERIFY(std::abs(m_window->state.longitude - home.longitude -
                         east * frames * step / std::cos(home.latitude * degree)) < 1e-9);
    };
    verify();
    m_window->map.grabFramebuffer();
    verify(); // released, the map stays still
}

void TestMapPage::fitKeyShowsTheTrack()
{
    const auto track = straightTrack();
    m_window->map.setTrack(&track, {});
    m_window->lookAt({-30.0, 100.0}, 5e6);
    m_window->state.follow = 2;
    QSignalSpy ended(&m_window->map, &WidgetMap::signalUpdateMode);
    QTest::keyClick(&m_window->map, Qt::Key_F);
    QCOMPARE(ended.count(), 1);
    QCOMPARE(m_window->state.follow, 0);
    m_window->settled();
    QVERIFY(m_window->view().distance({250.0, 200.0}, home) < 1.0);
    QVERIFY(m_window->state.width < 60e3); // the track is 45 km long
}

void TestMapPage::clickTellsTheMoment_data()
{
    // Near the point of the track that is passed at 50 s and again at 200 s.
    const Rows<QPoint, bool, QList<double>> row("offset", "hasMark", "seconds");
    row("near the track", {0, 8}, false, {50.0});
    row("beside it", {0, 13}, false, {});
    row("on a mark", {3, -4}, true, {201.25});
    row("beside the mark", {12, 0}, true, {53.0});
}

void TestMapPage::clickTellsTheMoment()
{
    QFETCH(QPoint, offset);
    QFETCH(bool, hasMark);
    QFETCH(QList<double>, seconds);
    auto track = straightTrack();
    track.push_back({400, 48.2, 11.3});
    track.push_back({401, track[40].latitude, track[40].longitude}); // another lap
    m_window->map.setTrack(&track, {});
    const Place place = placeOf(track[40]);
    if (hasMark)
        m_window->map.setMarks({{MapMark::Kind::Exceedance,
                                 201.25,
                                 {place.latitude, place.longitude},
                                 QColor(Qt::red),
                                 QStringLiteral("Oil is hot")}});
    QSignalSpy picked(&m_window->map, &WidgetMap::signalTime);
    const QPoint point = m_window->view().pixelOf(place).toPoint();
    QTest::mouseClick(&m_window->map, Qt::RightButton, {}, point);
    // A drag that ends on the track is no click.
    QTest::mousePress(&m_window->map, Qt::LeftButton, {}, point - QPoint(0, 40));
    QTest::mouseMove(&m_window->map, point);
    QTest::mouseMove(&m_window->map, point - QPoint(0, 40));
    QTest::mouseRelease(&m_window->map, Qt::LeftButton, {}, point - QPoint(0, 40));
    QTest::mouseClick(&m_window->map, Qt::LeftButton, {}, point + offset);
    QTest::qWait(2 * QApplication::doubleClickInterval());
    QList<double> told;
    for (const auto& arguments : picked)
        told << arguments[0].toDouble();
    QCOMPARE(told, seconds);
}

void TestMapPage::makePage()
{
    m_window.reset();
    QVERIFY(loadProfile(m_profile, device({"name='speed' id='1' dataType='FLOAT' unitMetric='km/h'",
                                           "name='plain' id='2' dataType='FLOAT'"})));
    m_profile.select([](const ProfileParameter&) { return true; });
    m_dataSet = std::make_unique<DataSet>();
    for (int i = 10; i < 70; ++i) {
        add(m_dataSet->messages, 1, i, floats(static_cast<float>(100 + i)));
        add(m_dataSet->messages, 2, i, floats(static_cast<float>(i)));
    }
    m_dataSet->startSeconds = 10.0;
    m_dataSet->stopSeconds = 70.0;
    m_dataSet->track = straightTrack();
    m_page = std::make_unique<DialogDataMap>(m_profile, offlineSettings());
    m_page->resize(900, 400);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_page->setShown(true);
    m_page->setData(m_dataSet.get());
}

void TestMapPage::dragAndFitEndFollowing()
{
    makePage();
    WidgetMap& map = m_page->widget();
    const MapViewState& state = m_page->viewState();
    QAction& follow = action(QStringLiteral("Center AC"));
    QVERIFY(follow.isChecked());
    waitForFrame(); // shows the whole flight
    m_page->setTime(30.0);
    const TrackPoint& there = m_dataSet->track[20];
    QTRY_COMPARE(state.longitude, there.longitude);
    QCOMPARE(state.latitude, there.latitude);

    QSignalSpy ended(&map, &WidgetMap::signalUpdateMode);
    const Place pressed = *pageView().placeAt(250, 250);
    QTest::mousePress(&map, Qt::LeftButton, {}, {250, 250});
    for (const QPoint& point : {QPoint(290, 240), QPoint(330, 200), QPoint(360, 150)})
        QTest::mouseMove(&map, point);
    QTest::mouseRelease(&map, Qt::LeftButton, {}, {360, 150});
    QCOMPARE(ended.count(), 1);
    QCOMPARE(state.follow, 0);
    QVERIFY(!follow.isChecked());
    m_page->setTime(31.0); // the aircraft is no longer followed
    waitForFrame();
    QVERIFY(pageView().distance({360.0, 150.0}, pressed) < 0.5);

    // At once, though the aircraft has not moved.
    follow.trigger();
    QTRY_COMPARE(state.longitude, m_dataSet->track[21].longitude);

    action(QStringLiteral("Fit flight")).trigger();
    QVERIFY(!follow.isChecked());
    m_page->setTime(30.0);
    waitForFrame();
    const double whole = m_dataSet->track.front().longitude + m_dataSet->track.back().longitude;
    QVERIFY(std::abs(state.longitude - whole / 2.0) < 1e-6);
}

QAction& TestMapPage::action(const QString& text)
{
    const auto actions = m_page->findChildren<QAction*>();
    const auto found = std::ranges::find(actions, text, &QAction::text);
    if (found == actions.end())
        qFatal("no action %s", qPrintable(text));
    return **found;
}

void TestMapPage::waitForFrame()
{
    const int frames = m_page->widget().frameCount();
    QTRY_VERIFY(m_page->widget().frameCount() > frames);
}

void TestMapPage::doubleClickGlides()
{
    makePage(); // follow mode waits for the aircraft to move
    waitForFrame();
    WidgetMap& map = m_page->widget();
    const MapViewState& state = m_page->viewState();
    const double width = state.width;
    const QPoint pointer = pageView().pixelOf(placeOf(m_dataSet->track[40])).toPoint();
    const Place place = *pageView().placeAt(pointer.x(), pointer.y());
    const int frames = map.frameCount();
    const QSignalSpy picked(&map, &WidgetMap::signalTime);
    QTest::mouseClick(&map, Qt::LeftButton, {}, pointer);
    QTest::mouseDClick(&map, Qt::LeftButton, {}, pointer);
    QTest::mouseRelease(&map, Qt::LeftButton, {}, pointer);
    QVERIFY(state.isRangeAnimated && state.isPositionAnimated);
    QCOMPARE(state.width, width); // animated, so not changed at once
    QTRY_VERIFY(!state.isRangeAnimated && !state.isPositionAnimated);
    QVERIFY(map.frameCount() > frames + 10);
    QVERIFY(std::abs(state.width - width / 4.0) < 1.0);
    QVERIFY(pageView().distance(pointer, place) < 1.0);
    QTest::qWait(QApplication::doubleClickInterval());
    QCOMPARE(picked.count(), 0); // a double click on the track only zooms
}

void TestMapPage::shadingKeyGoesBeforeTheWindows()
{
    makePage();
    QMainWindow window;
    QAction save(&window);
    save.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    window.addAction(&save);
    window.setCentralWidget(m_page.get());
    const auto end = qScopeGuard([&] { window.takeCentralWidget(); });
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QApplication::setActiveWindow(&window);
    m_page->widget().setFocus();
    QTRY_VERIFY(m_page->widget().hasFocus());
    QSignalSpy saved(&save, &QAction::triggered);
    QTest::keyClick(&m_page->widget(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(saved.count(), 0);
    QVERIFY(!m_page->viewState().isShaded);
    QVERIFY(!action(QStringLiteral("Hill shading")).isChecked());
    action(QStringLiteral("Hill shading")).trigger();
    QVERIFY(m_page->viewState().isShaded);
}

void TestMapPage::coveredMapRests()
{
    makePage();
    QSplitter splitter(Qt::Vertical);
    splitter.addWidget(m_page.get());
    const auto end = qScopeGuard([&] { m_page->setParent(nullptr); });
    auto* const other = new QWidget;
    splitter.addWidget(other);
    splitter.resize(900, 500);
    splitter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&splitter));
    waitForFrame();
    splitter.setSizes({0, 500});
    QTRY_VERIFY(m_page->widget().visibleRegion().isEmpty());
    const int frames = m_page->widget().frameCount();
    // More than two idle periods, in which a visible map would be drawn.
    QElapsedTimer timer;
    timer.start();
    double seconds = 30.0;
    QTRY_VERIFY_WITH_TIMEOUT((m_page->setTime(seconds += 0.5), timer.elapsed() > 2200), 5000);
    QCOMPARE(m_page->widget().frameCount(), frames);
    splitter.setSizes({300, 200});
    waitForFrame();
}

void TestMapPage::marksTellWhatTheyAre()
{
    const auto track = straightTrack();
    m_window->map.setTrack(&track, {});
    const Place place = placeOf(track[20]);
    const QString text = QStringLiteral("Oil is hot");
    m_window->map.setMarks({{MapMark::Kind::Exceedance,
                             30.0,
                             {place.latitude, place.longitude},
                             QColor(Qt::red),
                             text}});
    const auto tipAt = [&](QPoint point) {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, point, m_window->map.mapToGlobal(point));
        QCoreApplication::sendEvent(&m_window->map, &help);
        return QToolTip::text();
    };
    const QPoint point = m_window->view().pixelOf(place).toPoint();
    QCOMPARE(tipAt(point + QPoint(4, -5)), text);
    QVERIFY(!tipAt(point + QPoint(0, 15)).contains(text));
}

void TestMapPage::notesAreFlagsOnTheTrack()
{
    makePage();
    m_page->setNotes({{40.25, "Rough running"}, {9000.0, "not in these data"}});
    QTRY_VERIFY(m_page->widget().frameCount() > 0);
    const auto& state = m_page->viewState();
    QTRY_VERIFY(!state.isRangeAnimated && !state.isPositionAnimated);
    const TrackPoint& point = m_dataSet->track[*trackPointAt(m_dataSet->track, 40.25)];
    const Tessa::Globe globe({state.latitude, state.longitude}, state.metresPerPixel,
                             m_page->widget().width(), m_page->widget().height());
    const auto place = globe.latLong2Window({point.latitude, point.longitude});
    QVERIFY(place);
    const QPoint pixel(qRound(place->x + 4.0), qRound(m_page->widget().height() - place->y - 10.0));
    const auto tip = [&] {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, pixel, m_page->widget().mapToGlobal(pixel));
        QCoreApplication::sendEvent(&m_page->widget(), &help);
        return QToolTip::text();
    };
    QCOMPARE(tip(), "Rough running");
    QSignalSpy picked(m_page.get(), &DialogDataMap::signalTime);
    QTest::mouseClick(&m_page->widget(), Qt::LeftButton, {}, pixel);
    QTRY_COMPARE(picked.size(), 1);
    QCOMPARE(picked[0][0].toDouble(), 40.25);

    QSignalSpy settings(m_page.get(), &DialogDataMap::signalSettings);
    for (QAction* action : m_page->findChildren<QAction*>()) {
        if (action->text() == "Notes")
            action->trigger();
    }
    QCOMPARE(settings.size(), 1);
    QVERIFY(!settings[0][0].value<MapSettings>().areNotesShown);
    QVERIFY(tip() != "Rough running");
}

void TestMapPage::valuesScrollAndFold()
{
    makePage();
    auto* const panel = m_page->findChild<QWidget*>(QStringLiteral("valuePanel"));
    auto* const scroll = m_page->findChild<QScrollArea*>(QStringLiteral("valueScroll"));
    QVERIFY(!scroll->verticalScrollBar()->isVisible());
    QVERIFY(panel->testAttribute(Qt::WA_TransparentForMouseEvents)); // the map is below
    m_page->resize(900, 90);                                         // too low for two rows
    QTRY_VERIFY(scroll->verticalScrollBar()->isVisible());
    QVERIFY(!panel->testAttribute(Qt::WA_TransparentForMouseEvents));
    QVERIFY(scroll->verticalScrollBar()->maximum() > 0); // all rows are there
    auto* const fold = m_page->findChild<QToolButton*>(QStringLiteral("foldValues"));
    m_page->resize(210, 240); // the track would be left without room
    QTRY_VERIFY(!panel->isVisible());
    QVERIFY(!fold->isEnabled());
    m_page->resize(900, 90);
    QTRY_VERIFY(panel->isVisible() && fold->isEnabled());
    const QSignalSpy told(m_page.get(), &DialogDataMap::signalSettings);
    fold->click();
    QVERIFY(!panel->isVisible());
    QCOMPARE(told.count(), 1);
    QVERIFY(!m_page->settings().areValuesShown);
    m_page->refresh(DataPage::Change::Selection); // makes new rows
    QVERIFY(!panel->isVisible());
    MapSettings settings = offlineSettings();
    settings.areValuesShown = false;
    DialogDataMap restarted(m_profile, settings);
    restarted.setShown(true);
    restarted.setData(m_dataSet.get());
    QVERIFY(restarted.findChild<QWidget*>(QStringLiteral("valuePanel"))->isHidden());
}

void TestMapPage::valuesAreReadableOnAnyGround_data()
{
    const Rows<QColor, QColor> row("text", "ground"); // the ground has the panel's veil
    for (const char* ground : {"#f2efe9", "#aad3df", "#101010"}) {
        for (const char* text : {"#ff1744", "#ffab00", "#00c853", "#ffffff", "#000080"})
            row(qPrintable(QStringLiteral("%1 on %2").arg(text, ground)), QColor(text),
                QColor(ground));
    }
}

double luminance(const QColor& color)
{
    const auto linear = [](float part) { return std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// Each pixel of the text's colour is surrounded by an outline with a contrast of 4 at least.
void TestMapPage::valuesAreReadableOnAnyGround()
{
    QFETCH(QColor, text);
    QFETCH(QColor, ground);
    OutlinedLabel label(QStringLiteral("118.5 [km/h]"));
    label.setTextColor(text);
    label.ensurePolished();
    label.resize(label.sizeHint());
    QImage picture(label.size(), QImage::Format_RGB32);
    picture.fill(ground.darker(167)); // a veil of 40 % black
    label.render(&picture, {}, {}, QWidget::DrawChildren);
    // The strongest contrast around a pixel.
    double least = 99.0;
    int found = 0;
    for (int y = 2; y < picture.height() - 2; ++y) {
        for (int x = 2; x < picture.width() - 2; ++x) {
            if (picture.pixelColor(x, y) != text)
                continue;
            double best = 1.0;
            for (int i = 0; i < 25; ++i) {
                const QColor near = picture.pixelColor(x - 2 + i % 5, y - 2 + i / 5);
                const double a = luminance(near) + 0.05;
                const double b = luminance(text) + 0.05;
                best = std::max(best, std::max(a, b) / std::min(a, b));
            }
            least = std::min(least, best);
            ++found;
        }
    }
    QVERIFY(found > 20);
    QVERIFY2(least >= 4.0, qPrintable(QString::number(least)));
    // Each change is drawn, though the picture is kept.
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [&] { label.setText(QStringLiteral("9.0 [km/h]")); },
             [&] { label.setTextColor(QColor(200, 30, 200)); },
             [&] { label.setAlignment(Qt::AlignRight | Qt::AlignVCenter); }}) {
        const QImage before = picture;
        change();
        picture.fill(ground.darker(167));
        label.render(&picture, {}, {}, QWidget::DrawChildren);
        QVERIFY(picture != before);
    }
}

void TestMapPage::flightPanelSaysWhereItIs()
{
    makePage();
    QVERIFY(loadProfile(
        m_profile,
        device({"name='Alt' id='9' dataType='FLOAT' unitMetric='m' koltDataType='Altitude'",
                "name='GS' id='9' dataType='FLOAT' unitMetric='km/h' koltDataType='GroundSpeed'",
                "name='Trk' id='9' dataType='FLOAT' unitMetric='\u00b0' koltDataType='Track'",
                "name='speed' id='1' dataType='FLOAT' unitMetric='km/h'"})));
    m_profile.select([](const ProfileParameter&) { return true; });
    m_dataSet->track[0].hasFix = false;
    m_dataSet->track[1].hasAltitude = false;
    for (TrackPoint& point : m_dataSet->track) {
        point.altitude = 512.4;
        point.groundSpeed = 120.6;
        point.heading = 271.0;
    }
    m_page->setData(m_dataSet.get());
    auto* const panel = m_page->findChild<QWidget*>(QStringLiteral("flightPanel"));
    const auto textsAt = [&](double seconds) {
        m_page->setTime(seconds);
        QStringList all;
        for (const QLabel* label : panel->findChildren<QLabel*>())
            all << label->text();
        return all.join(' ');
    };
    QCOMPARE(textsAt(10.0), "Altitude --- Speed --- Heading ---");
    QCOMPARE(textsAt(11.0), "Altitude --- Speed 121 km/h Heading 271 \u00b0");
    QCOMPARE(textsAt(12.0), "Altitude 512 m Speed 121 km/h Heading 271 \u00b0");
    QVERIFY(panel->isVisible());
    // Altitude and speed have their entries already.
    const auto* const coloring = m_page->findChild<QComboBox*>();
    QStringList entries;
    for (int i = 0; i < coloring->count(); ++i)
        entries << coloring->itemText(i);
    QCOMPARE(entries.join(' '), "One color Altitude Ground speed Trk speed");
    m_dataSet->track.clear();
    m_page->setData(m_dataSet.get());
    m_page->setTime(13.0);
    QVERIFY(!panel->isVisible());
}

/// In a wide map as in a narrow one, and again when its size changes or the values fold.
void TestMapPage::fitLeavesTheValuesFree()
{
    makePage();
    const auto* const panel = m_page->findChild<QWidget*>(QStringLiteral("valuePanel"));
    const auto isFree = [&] {
        const View view = pageView();
        return std::ranges::all_of(m_dataSet->track, [&](const TrackPoint& point) {
            const QPointF place = view.pixelOf(placeOf(point));
            return QRectF(m_page->rect()).contains(place) &&
                   (panel->isHidden() || !QRectF(panel->geometry()).contains(place));
        });
    };
    for (std::size_t i = 0; i < m_dataSet->track.size(); ++i)
        m_dataSet->track[i].latitude += i % 2 == 0 ? 0.1 : -0.1; // about as high as wide
    m_page->setData(m_dataSet.get());
    QTRY_VERIFY(isFree());
    for (const QSize& size : {QSize(330, 500), QSize(1200, 300)}) {
        const double width = m_page->viewState().width;
        m_page->resize(size);
        QTRY_VERIFY(m_page->viewState().width != width && isFree());
    }
    const double longitude = m_page->viewState().longitude;
    m_page->findChild<QToolButton*>(QStringLiteral("foldValues"))->click();
    QTRY_VERIFY(m_page->viewState().longitude != longitude && isFree());
    // What the user has moved stays.
    const double fitted = m_page->viewState().longitude;
    QTest::keyPress(&m_page->widget(), Qt::Key_Right);
    QTRY_VERIFY(m_page->viewState().longitude != fitted);
    QTest::keyRelease(&m_page->widget(), Qt::Key_Right);
    const double moved = m_page->viewState().width;
    m_page->resize(600, 300);
    waitForFrame();
    QCOMPARE(m_page->viewState().width, moved);
}

void TestMapPage::noteSaysThatTilesAreLacking()
{
    makePage();
    auto* const note = m_page->findChild<QLabel*>(QStringLiteral("mapNote"));
    QTRY_VERIFY(note->isVisible());
    QVERIFY(note->text().startsWith("No map tiles: offline"));
    const QSignalSpy asked(m_page.get(), &DialogDataMap::signalOpenSettings);
    const QSize size = note->size();
    QTest::mouseClick(note, Qt::LeftButton, {}, {size.width() - 20, size.height() / 2});
    QCOMPARE(asked.count(), 1);
    // A grid, whose lines are equally far apart, and the compass.
    const auto isLine = [](const QImage& picture, int x) {
        int dark = 0;
        for (int y = 120; y < 300; ++y)
            dark += qGray(picture.pixel(x, y)) + 20 < qGray(picture.pixel(x - 2, y)) ? 1 : 0;
        return dark > 120;
    };
    const QImage picture = m_page->widget().grabFramebuffer();
    QList<int> lines;
    for (int x = 3; x < picture.width(); ++x) {
        if (isLine(picture, x))
            lines << x;
    }
    QVERIFY(lines.size() >= 4);
    for (qsizetype i = 2; i < lines.size(); ++i)
        QVERIFY(std::abs((lines[i] - lines[i - 1]) - (lines[1] - lines[0])) <= 1);
    // The world as a whole has the embedded map.
    QTest::keyPress(&m_page->widget(), Qt::Key_Minus);
    QTRY_VERIFY_WITH_TIMEOUT(!note->isVisible(), 30000);
    QTest::keyRelease(&m_page->widget(), Qt::Key_Minus);
}

void TestMapPage::valuesHaveTheirUnits()
{
    makePage();
    auto* const panel = m_page->findChild<QWidget*>(QStringLiteral("valuePanel"));
    QVERIFY(panel != nullptr && panel->isVisible());
    const auto textsAt = [&](double seconds) {
        m_page->setTime(seconds);
        QStringList all;
        for (const QLabel* label : panel->findChildren<QLabel*>())
            all << label->text();
        return all.join(' ');
    };
    QCOMPARE(textsAt(30.0), "plain 30.000000 speed 130.000000 [km/h]");
    QCOMPARE(textsAt(42.0), "plain 42.000000 speed 142.000000 [km/h]");
    QCOMPARE(panel->geometry().topLeft(), QPoint(m_page->width() - 310, 10));
    QCOMPARE(panel->width(), 300);
    const int height = panel->height();
    QVERIFY(height > 2 * panel->fontMetrics().height());
    m_page->refresh(DataPage::Change::Selection);
    QCOMPARE(panel->height(), height);
    m_dataSet->track.clear(); // values are shown without a track too
    m_page->setData(m_dataSet.get());
    QCOMPARE(textsAt(43.0), "plain 43.000000 speed 143.000000 [km/h]");
    m_page->setData(nullptr);
    QVERIFY(!panel->isVisible());
}

QTEST_MAIN(TestMapPage)
#include "tst_mappage.moc"
