#include "instruments/ui/DialogDataView.h"
#include "libs/zinc/layout/Properties.h"
#include "libs/zinc/view/ViewReader.h"
#include "profile/ValueDecoder.h"
#include "resources/Resources.h"
#include "tests/support/RecordingFixture.h"
#include "tests/support/Rows.h"

#include <QImage>
#include <QRegularExpression>

#include <cmath>
#include <limits>

using namespace KOLT;
using namespace KOLT::Test;

namespace {

constexpr QSize pageSize(400, 300); // twice the view's size
constexpr auto panel = R"(<view width="200" height="150" background="#101820">
<gauge x="75" y="75" radius="60" value="rpm" min="0" max="100" start="-90" sweep="180"
       color="#ff00ff"/>
<lamp x="150" y="10" width="40" height="30" value="lamp" background="#202020">
    <case value="1" background="#ff0000" text=""/></lamp>
<text x="150" y="120" size="40" weight="bold" color="#00ff00" value="rpm" format="%.0f"/>
</view>)";

QColor pixel(const QImage& picture, double x, double y)
{
    const double ratio = picture.devicePixelRatio();
    return picture.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
}

/// The number of pixels of that colour in an area.
int count(const QImage& picture, const QRect& area, const QColor& color)
{
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            found += pixel(picture, x, y) == color ? 1 : 0;
    }
    return found;
}

} // namespace

class TestViewPage : public QObject
{
    Q_OBJECT

private slots:

    void initTestCase() { initKoltResources(); }

    void init();

    void cleanup() { m_page.reset(); }

    void fits();
    void pushesValues();
    void timerFollowsTheProfile();
    void hiddenPageWaits();
    void pushesLimits();
    void stepsAsTheyGrade_data();
    void stepsAsTheyGrade();
    void variantIsANumber();

    void sharedNames();
    void unknownVariables();

    void drawsNeedles();
    void drawsWhereItFits();
    void drawsLampsAndDashes();
    void backgroundFillsThePage();
    void unchangedFrameRebuildsNothing();
    void brokenViews_data();
    void brokenViews();

    void installedPanelFitsTheProfile_data();
    void installedPanelFitsTheProfile();
    void installedPanelHidesNoLimit();
    void installedPanelsTypeNoLimit();
    void pageChoosesTheShape();
    void unusableShapeIsNotTaken();

private:
    void makePage(const QByteArray& content);

    void show()
    {
        m_page->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    }

    QString valuesOf(const QStringList& names) const
    {
        QStringList texts;
        for (const QString& name : names) {
            const Zinc2D::Value value = m_page->view().variables().value(name);
            texts << (value.isSet() ? QString::number(value.number()) : QStringLiteral("-"));
        }
        return texts.join(' ');
    }

    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
    std::unique_ptr<DialogDataView> m_page;
    QStringList m_messages;
    QTemporaryDir m_directory;
};

/// "rpm" climbs from 10 at 1 s to 90 at 9 s, "lamp" is 1 from 5 s on.
void TestViewPage::init()
{
    QVERIFY(loadProfile(
        m_profile,
        threshold(
            "t", {"val='-1000' state='OK'", "val='50' state='WARNING'", "val='80' state='LIMIT'"}) +
            device({"name='rpm' id='1' dataType='FLOAT' thresholdId='t' viewId='EMU'",
                    "name='lamp' id='2' dataType='FLOAT' viewId='EMU'",
                    "name='missing' id='3' dataType='FLOAT' thresholdId='t' viewId='EMU'",
                    "name='text' id='1' dataType='NODATA' viewId='EMU'",
                    "name='other' id='1' dataType='FLOAT'"})));
    m_profile.setUnitSystem(UnitSystem::Metric);
    m_dataSet = std::make_unique<DataSet>();
    for (int i = 1; i <= 9; ++i) {
        add(m_dataSet->messages, 1, i, floats(static_cast<float>(i * 10)));
        add(m_dataSet->messages, 2, i, floats(i >= 5 ? 1.0F : 0.0F));
    }
    m_dataSet->startSeconds = 1.0;
    m_dataSet->stopSeconds = 9.0;
    makePage(panel);
}

void TestViewPage::makePage(const QByteArray& content)
{
    const QString path = m_directory.filePath("panel.v");
    QVERIFY(writeFile(path, content));
    m_messages.clear();
    m_page = std::make_unique<DialogDataView>(m_profile, path);
    connect(m_page.get(), &DialogDataView::signalMessage, this,
            [this](const QString& message) { m_messages << message; });
    m_page->resize(pageSize);
    m_page->setShown(true);
}

void TestViewPage::fits()
{
    // Same size, too wide, too high, larger; and no view.
    for (const auto& [widget, fit] : {std::pair(QSizeF(200, 150), "1 0 0"),
                                      {QSizeF(1000, 300), "2 300 0"},
                                      {QSizeF(100, 400), "0.5 0 162.5"},
                                      {QSizeF(400, 300), "2 0 0"}}) {
        const auto found = DialogDataView::fit(widget, QSizeF(200, 150));
        QCOMPARE(QStringLiteral("%1 %2 %3").arg(found.scale).arg(found.offsetX).arg(found.offsetY),
                 fit);
        QCOMPARE(DialogDataView::fit(widget, {}).scale, 1.0);
    }
}

void TestViewPage::pushesValues()
{
    QCOMPARE(valuesOf({"UNIT", "VARIANT"}), "0 0"); // even without data
    m_page->setData(m_dataSet.get());
    m_page->setTime(5.5); // the sample that follows
    QCOMPARE(valuesOf({"rpm", "rpm_STATE", "lamp", "lamp_STATE"}), "60 1 1 0");
    m_page->setTime(0.0); // before the first sample
    QCOMPARE(valuesOf({"rpm", "rpm_STATE"}), "10 0");
    m_page->setTime(100.0); // after the last one
    QCOMPARE(valuesOf({"rpm", "rpm_STATE"}), "90 2");
    // Never recorded, or a type that cannot be decoded: a state but no value.
    QCOMPARE(valuesOf({"missing", "missing_STATE", "text", "text_STATE"}), "- 0 - 0");
    QCOMPARE(valuesOf({"other", "other_STATE"}), "- -"); // not for the view
    // NaN leaves the last value and has the state 0.
    add(m_dataSet->messages, 1, 10.0, floats(std::numeric_limits<float>::quiet_NaN()));
    m_page->setTime(9.0);
    QCOMPARE(valuesOf({"rpm", "rpm_STATE"}), "90 2");
    m_page->setTime(10.0);
    QCOMPARE(valuesOf({"rpm", "rpm_STATE"}), "90 0");
    m_page->clear();
    QCOMPARE(valuesOf({"rpm", "rpm_STATE", "UNIT"}), "- - 0");
    m_page->setTime(7.0);
    QCOMPARE(valuesOf({"rpm"}), "-");
}

void TestViewPage::timerFollowsTheProfile()
{
    show();
    QCOMPARE(valuesOf({"UNIT"}), "0");
    m_profile.setUnitSystem(UnitSystem::Imperial); // without telling the page
    QTRY_COMPARE_WITH_TIMEOUT(valuesOf({"UNIT"}), "1", 3000);
}

void TestViewPage::hiddenPageWaits()
{
    m_page->setShown(false);
    m_page->setData(m_dataSet.get());
    m_page->setTime(5.0);
    QCOMPARE(valuesOf({"rpm"}), "-");
    m_page->setShown(true);
    QCOMPARE(valuesOf({"rpm"}), "50");
}

/// Also those of a variant whose name is not a number, and none of the variant before.
void TestViewPage::pushesLimits()
{
    const QStringList names{"rpm_STEP1", "rpm_STEP2",   "rpm_STEP3",  "rpm_STEP4",
                            "rpm_LIMIT", "D/rpm_STEP3", "rpm_COLOR3", "lamp_STEP1"};
    QCOMPARE(valuesOf(names).section(' ', 0, 5), "-1000 50 80 - 80 80"); // even without data
    const QByteArray content =
        threshold("t", {"val='-1000' state='OK'", "val='50' state='WARNING' variant='915'",
                        "val='60' color='#0000ff' state='LIMIT' variant='Tow'"}) +
        device({"name='rpm' id='1' dataType='FLOAT' thresholdId='t' viewId='EMU'"});
    QVERIFY(loadProfile(m_profile, content, "Tow"));
    m_page->clear();
    m_page->setData(m_dataSet.get());
    QCOMPARE(valuesOf(names), "-1000 60 - - 60 - - -");
    QCOMPARE(valuesOf({"D/rpm_STEP2", "rpm_COLOR2"}), "60 4.27819e+09");
    QVERIFY(loadProfile(m_profile, content, "915"));
    m_page->setTime(2.0); // without clearing
    QCOMPARE(valuesOf({"rpm_STEP2", "rpm_LIMIT"}), "50 -");
}

void TestViewPage::stepsAsTheyGrade_data()
{
    const Rows<QList<double>, QList<double>> row; // steps, where they begin
    row("none", {}, {});
    row("ascending", {1, 2, 3}, {1, 2, 3});
    row("one is out of order", {10, 5, 20}, {10, 20});
    row("equal", {1, 4, 4}, {1, 4});
    row("too many", {1, 2, 3, 4, 5, 6, 7, 8, 9}, {1, 2, 3, 4, 5, 6, 7, 8});
}

void TestViewPage::stepsAsTheyGrade()
{
    const auto [values, froms] = fetchRow<QList<double>, QList<double>>();
    Threshold threshold;
    for (const double value : values)
        threshold.steps.push_back({value, {static_cast<QRgb>(threshold.steps.size()), {}}});
    QList<double> found;
    for (const ViewStep& step : viewSteps(threshold)) {
        found << step.from;
        QCOMPARE(step.color, threshold.grade(step.from).color);
    }
    QCOMPARE(found, froms);
}

void TestViewPage::variantIsANumber()
{
    for (const auto& [variant, number] :
         {std::pair("915", 915), {"915T", 0}, {"tow", 0}, {"", 0}}) {
        Profile profile;
        QVERIFY(loadProfile(profile, device({}), variant));
        QCOMPARE(variantNumber(profile), number);
    }
}

/// A shared name has the value of its last device; full names tell the devices apart. A name may
/// equal another parameter's full name.
void TestViewPage::sharedNames()
{
    QByteArray content =
        threshold("t", {"val='-1000' state='OK'", "val='50' state='LIMIT'"}) +
        device({"name='rpm' id='1' dataType='FLOAT' thresholdId='t' viewId='EMU'"}) +
        device({"name='rpm' id='2' dataType='FLOAT' thresholdId='t' viewId='EMU'",
                "name='D/lamp' id='2' dataType='FLOAT' viewId='EMU'",
                "name='lamp' id='1' dataType='FLOAT' viewId='EMU'"});
    content.replace(content.lastIndexOf("'D'"), 3, "'E'");
    content += device({"name='lamp' id='1' dataType='FLOAT' viewId='EMU'"});
    QVERIFY(loadProfile(m_profile, content));
    makePage(panel);
    m_page->setData(m_dataSet.get());
    m_page->setTime(9.0);
    QCOMPARE(valuesOf({"D/rpm", "D/rpm_STATE", "E/rpm", "E/rpm_STATE"}), "90 2 1 0");
    QCOMPARE(valuesOf({"rpm", "rpm_STATE", "D/lamp"}), "1 0 1");
    show();
    QTRY_COMPARE(m_messages.size(), 1);
    QCOMPARE(
        m_messages.front(),
        "Several parameters are named \"rpm\" (D/rpm, E/rpm). Under this name the instrument view "
        "shows only the last one. Several parameters are named \"lamp\" (E/lamp, D/lamp). Under "
        "this name the instrument view shows only the last one.");
    m_page->clear();
    m_page->setData(m_dataSet.get());
    QCoreApplication::processEvents();
    QCOMPARE(m_messages.size(), 1);
}

void TestViewPage::unknownVariables()
{
    makePage(
        "<view width='20' height='15'><optional name='tow'/>\n<text x='1' y='1' "
        "value='[D/rpm_STATE] + missing + UNIT + VARIANT + tow + tow_STATE'/>\n"
        "<text x='1' y='1' value='rqm'/><text x='1' y='1' value='rqm + other + lamp'/></view>");
    const DiagnosticsCapture log;
    show();
    QTRY_COMPARE(m_messages.size(), 1);
    QCOMPARE(m_messages.front(),
             "The instrument view has 2 fault(s): panel.v:3:26: there is no variable \"rqm\"");
    QCOMPARE(log.text().count("there is no variable \"other\""), 1);
    // After a change of profile only new faults are reported.
    QVERIFY(
        loadProfile(m_profile, device({"name='rpm' id='1' dataType='FLOAT' viewId='EMU'",
                                       "name='missing' id='1' dataType='FLOAT' viewId='EMU'"})));
    m_page->setData(m_dataSet.get());
    QTRY_COMPARE(m_messages.size(), 2);
    QVERIFY(m_messages.back().contains("3 fault(s)"));
    QCOMPARE(log.text().count("there is no variable"), 3);
    QVERIFY(log.text().contains("no variable \"lamp\""));
}

/// The view is centred in a page that is too wide and in one that is too high.
void TestViewPage::drawsWhereItFits()
{
    m_page->setData(m_dataSet.get());
    m_page->setTime(5.0);
    show();
    // The lamp is at (150, 10) of 200 x 150 and 40 wide.
    for (const auto& [size, corner] :
         {std::pair(QSize(800, 300), QPoint(500, 20)), {QSize(400, 500), QPoint(300, 120)}}) {
        m_page->resize(size);
        QTRY_COMPARE(m_page->grabFramebuffer().size(), size);
        const QImage picture = m_page->grabFramebuffer();
        const QColor lit(0xff, 0, 0);
        QCOMPARE(pixel(picture, corner.x() + 10, corner.y() + 10), lit);
        QCOMPARE(pixel(picture, corner.x() + 70, corner.y() + 50), lit);
        QVERIFY(pixel(picture, corner.x() - 5, corner.y() + 10) != lit);
        QVERIFY(pixel(picture, corner.x() + 10, corner.y() - 5) != lit);
    }
}

void TestViewPage::drawsNeedles()
{
    m_page->setData(m_dataSet.get());
    show();
    // Points on the needle, which starts at (150, 150), 80 pixels from there.
    const std::pair<double, QPoint> tips[] = {{1.0, {-76, -25}}, {5.0, {0, -80}}, {9.0, {76, -25}}};
    for (const auto& [time, tip] : tips) {
        m_page->setTime(time);
        const QImage picture = m_page->grabFramebuffer();
        for (const QPoint place : {tips[0].second, tips[1].second, tips[2].second})
            QCOMPARE(pixel(picture, 150 + place.x(), 150 + place.y()) == QColor(0xff, 0, 0xff),
                     place == tip);
    }
}

void TestViewPage::drawsLampsAndDashes()
{
    const QRect digits(300, 200, 100, 80);
    const QColor green(0, 0xff, 0);
    show();
    QImage picture = m_page->grabFramebuffer();
    const int dashes = count(picture, digits, green);
    QVERIFY(dashes > 20);
    QCOMPARE(count(picture, digits.adjusted(0, 0, 0, -45), green), 0); // dashes are low
    m_page->setData(m_dataSet.get());
    m_page->setTime(4.0);
    picture = m_page->grabFramebuffer();
    QVERIFY(count(picture, digits.adjusted(0, 0, 0, -45), green) > 20); // digits are high
    QCOMPARE(pixel(picture, 320, 30), QColor(0x20, 0x20, 0x20));
    m_page->setTime(5.0);
    QCOMPARE(pixel(m_page->grabFramebuffer(), 320, 30), QColor(0xff, 0, 0));
}

void TestViewPage::backgroundFillsThePage()
{
    m_page->resize(800, 300);
    show();
    const QImage picture = m_page->grabFramebuffer();
    for (const QPoint place : {QPoint(1, 1), QPoint(798, 1), QPoint(1, 298), QPoint(500, 150)})
        QCOMPARE(pixel(picture, place.x(), place.y()), QColor(0x10, 0x18, 0x20));
}

void TestViewPage::unchangedFrameRebuildsNothing()
{
    m_page->setData(m_dataSet.get());
    m_page->setTime(4.0);
    show();
    m_page->grabFramebuffer();
    const long rebuilt = m_page->view().rebuiltElements();
    QVERIFY(rebuilt >= 3);
    m_page->setTime(4.0);
    m_page->grabFramebuffer();
    QCOMPARE(m_page->view().rebuiltElements(), rebuilt);
    m_page->setTime(3.0); // changes the gauge and the number, not the lamp
    m_page->grabFramebuffer();
    QCOMPARE(m_page->view().rebuiltElements(), rebuilt + 2);
}

void TestViewPage::brokenViews_data()
{
    const Rows<QByteArray, QString, bool> row; // content, message, isBlank
    row("no view", "<picture/>",
        "The instrument view cannot be shown: panel.v:1:2: this is not a view: "
        "the first element is \"picture\"",
        true);
    row("broken element", "<view width='20' height='15' background='#101820'>\n<dial/></view>",
        "The instrument view has 1 fault(s): panel.v:2:2: there is no element \"dial\"", false);
}

void TestViewPage::brokenViews()
{
    const auto [content, message, isBlank] = fetchRow<QByteArray, QString, bool>();
    makePage(content);
    m_page->setData(m_dataSet.get());
    m_page->setTime(5.0);
    const DiagnosticsCapture log;
    show();
    QTRY_COMPARE(m_messages.size(), 1);
    QCOMPARE(m_messages.front(), message);
    QVERIFY(log.text().contains(m_directory.filePath("panel.v") + ":"));
    QCOMPARE(pixel(m_page->grabFramebuffer(), 200, 150),
             isBlank ? QColor(Qt::white) : QColor(0x10, 0x18, 0x20));
    m_page->setTime(6.0); // values are set all the same
    QCOMPARE(valuesOf({"rpm"}), "60");
    m_page->hide();
    show();
    QCoreApplication::processEvents();
    QCOMPARE(m_messages.size(), 1);
}

const QStringList panels{"instruments", "instruments-square", "instruments-narrow",
                         "instruments-low"};

QString panelFile(const QString& name)
{
    return QStringLiteral(KOLT_VIEWS "/%1.v").arg(name);
}

void TestViewPage::installedPanelFitsTheProfile_data()
{
    const Rows<QString, QString, int> row; // file, variant, unit
    for (const QString& panel : panels) {
        for (const char* variant : {"915", "915T", "850"}) {
            for (const int unit : {0, 1})
                row(qPrintable(QStringLiteral("%1 %2 %3").arg(panel, variant).arg(unit)),
                    panelFile(panel), variant, unit);
        }
    }
}

/// The page sets every variable of the panel, and the panel's scales have the colours of the
/// profile's thresholds.
void TestViewPage::installedPanelFitsTheProfile()
{
    const auto [file, variant, unitSystem] = fetchRow<QString, QString, int>();
    Profile profile;
    QVERIFY(profile.loadProfil(QStringLiteral(KOLT_PROFILE), variant));
    profile.setUnitSystem(static_cast<UnitSystem>(unitSystem));
    Zinc2D::VariableTable variables;
    Zinc2D::ViewReader reader(variables);
    const auto model = reader.read(file);
    QVERIFY(model);
    QVERIFY2(reader.diagnostics().empty(),
             qPrintable(reader.diagnostics().empty() ? QString() : reader.diagnostics()[0].text()));

    for (const Zinc2D::VariableUse& use : model->variables)
        QVERIFY2(viewVariables(profile).contains(use.name) ||
                     (use.name.startsWith("Lamp Tow") && variant != "915T"),
                 qPrintable(use.unknown.text()));

    DialogDataView page(profile, file);
    page.setShown(true);
    const Zinc2D::VariableTable& pushed = page.view().variables();
    for (const QString& name : pushed.names()) {
        if (pushed.value(name).isSet())
            variables.set(name, pushed.value(name).number());
    }
    variables.takeChanges();
    const double factor = unitSystem == 1 ? 0.0295299831 : 1.0; // of the manifold pressure
    int compared = 0;
    for (const Zinc2D::Element& element : model->elements) {
        const Zinc2D::PropertyValue* const shown = element.find(Zinc2D::Property::Value);
        if (shown == nullptr || shown->expressions.empty() || element.parts.empty() ||
            element.parts[0].type != Zinc2D::ElementType::Range)
            continue;
        // The parameter that the element shows: setting it gives the element a value.
        const auto parameters = viewParameters(profile);
        const auto found = std::ranges::find_if(parameters, [&](const ViewParameter& parameter) {
            variables.set(parameter.name, 1.0);
            variables.takeChanges();
            const bool isShown = shown->expressions[0].evaluate(variables).isSet();
            variables.set(parameter.name, std::numeric_limits<double>::quiet_NaN());
            return isShown;
        });
        QVERIFY(found != parameters.end());
        const ProfileParameter& parameter = *found->parameter;
        const double scale = parameter.name == "Manifold Pressure" ? factor : 1.0;
        for (const Zinc2D::Element& part : element.parts) {
            if (part.type != Zinc2D::ElementType::Range)
                continue;
            const Zinc2D::Properties range(part, variables);
            if (!range.number(Zinc2D::Property::From))
                continue; // no such step
            const double from = *range.number(Zinc2D::Property::From) / scale;
            const double to = *range.number(Zinc2D::Property::To) / scale;
            QVERIFY(from < to);
            const auto color = range.color(Zinc2D::Property::Color, 0);
            for (const double inside : {from + (to - from) * 1e-6, to - (to - from) * 1e-6})
                QVERIFY2(gradeOf(parameter, inside).color == color,
                         qPrintable(QStringLiteral("%1 %2").arg(parameter.name).arg(inside)));
            ++compared;
        }
    }
    QVERIFY(compared > 40);
    // Where the tow lamp is.
    QCOMPARE(variables.value("hasTow").number(), variant == "915T" ? 1.0 : 0.0);
    QCOMPARE(variables.value("mapEnd").number(), variant == "850" ? 1200.0 : 1800.0);
}

/// No shipped panel has a number that is a threshold of the profile, in any variant: neither as the
/// end of a range or a mark, nor in conditions and definitions.
void TestViewPage::installedPanelsTypeNoLimit()
{
    Profile profile;
    QVERIFY(profile.loadProfil(QStringLiteral(KOLT_PROFILE), QString())); // of all variants
    QSet<double> limits;
    for (const ViewParameter& parameter : viewParameters(profile)) {
        if (const Threshold* const threshold = parameter.parameter->threshold)
            for (const ThresholdStep& step : threshold->steps)
                limits << step.value;
    }
    QVERIFY(limits.contains(5850.0) && limits.contains(5300.0));
    // Smaller whole numbers are states and ends of scales too.
    const auto isLimit = [&](double number) {
        return limits.contains(number) && (number >= 100.0 || number != std::floor(number));
    };
    const QRegularExpression attribute(
        QStringLiteral("\\s(value|digits|min|max|from|to|at|when|factor|color)=\"([^\"]*)\""));
    const QRegularExpression token(QStringLiteral("(?<![\\w.#%])\\d+(\\.\\d+)?(?![\\w.])"));
    for (const QString& panel : panels) {
        QFile file(panelFile(panel));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        QVERIFY(!text.contains(QLatin1String("<range")));
        for (const auto& match : attribute.globalMatch(text)) {
            if (match.captured(2).contains(QLatin1String("imperial")))
                continue; // converts units
            for (const auto& number : token.globalMatch(match.captured(2)))
                QVERIFY2(!isLimit(number.captured().toDouble()),
                         qPrintable(panel + match.captured()));
        }
    }
}

/// The panel fills pages of the shapes that the window gives them, with texts of 11 pixels at
/// least.
void TestViewPage::pageChoosesTheShape()
{
    Profile profile;
    QVERIFY(profile.loadProfil(QStringLiteral(KOLT_PROFILE), "915"));
    m_page = std::make_unique<DialogDataView>(profile, panelFile("instruments"));
    m_page->setShown(true);
    const std::pair<QSize, QSizeF> shapes[] = {{{329, 548}, {360, 600}},  // 1000x800, beside a map
                                               {{666, 548}, {720, 700}},  // without a map
                                               {{473, 514}, {720, 700}},  // 1366x768
                                               {{666, 272}, {740, 300}},  // above a map
                                               {{800, 450}, {1280, 720}}, // the bare display
                                               {{528, 745}, {360, 600}}}; // 1600x1000
    for (const auto& [size, view] : shapes) {
        m_page->resize(size);
        show();
        QTRY_COMPARE(m_page->grabFramebuffer().size(), size);
        QCOMPARE(QSizeF(m_page->view().width(), m_page->view().height()), view);
        const double scale = DialogDataView::fit(size, view).scale;
        QVERIFY(view.width() * view.height() * scale * scale > 0.8 * size.width() * size.height());
        for (const Zinc2D::Element& element : m_page->view().model().elements) {
            const Zinc2D::Properties look(element, m_page->view().variables());
            for (const auto property : {Zinc2D::Property::Size, Zinc2D::Property::LabelSize})
                QVERIFY(look.number(property, 100.0) * scale >= 11.0);
        }
    }
    // The values stay.
    QCOMPARE(valuesOf({"UNIT", "Engine Speed_STEP1"}), "0 -1e+06");
}

void TestViewPage::unusableShapeIsNotTaken()
{
    QVERIFY(writeFile(m_directory.filePath("high.v"), "<picture/>"));
    makePage("<view width='20' height='10' background='#101820'>"
             "<alternative below='1' file='high.v'/></view>");
    m_page->resize(200, 400);
    show();
    QTRY_COMPARE(m_messages.size(), 1);
    QVERIFY(m_messages.front().contains("high.v:1:2"));
    QCOMPARE(m_page->view().width(), 20.0);
    m_page->resize(210, 400);
    QTRY_COMPARE(m_page->grabFramebuffer().width(), 210);
    QCOMPARE(m_messages.size(), 1);
}

/// The dial shows lane A's value; the warnings show the worse of both lanes.
void TestViewPage::installedPanelHidesNoLimit()
{
    Zinc2D::VariableTable variables;
    QVERIFY(Zinc2D::ViewReader(variables).read(panelFile("instruments")));
    for (const double ofLaneA : {2.0, 0.0}) {
        variables.set("ECU Lane A/Engine Speed", 1000.0);
        variables.set("Engine Speed", 2000.0);
        variables.set("ECU Lane A/Engine Speed_STATE", ofLaneA);
        variables.set("Engine Speed_STATE", 2.0 - ofLaneA);
        variables.takeChanges();
        QCOMPARE(variables.value("rpm").number(), 1000.0);
        QCOMPARE(variables.value("rpmState").number(), ofLaneA);
        QCOMPARE(variables.value("rpmWorst").number(), 2.0);
    }
}

QTEST_MAIN(TestViewPage)
#include "tst_viewpage.moc"
