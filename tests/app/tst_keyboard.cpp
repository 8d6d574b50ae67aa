#include "analysis/ui/PositionSlider.h"
#include "graph/ui/WidgetGraphBase.h"
#include "map/ui/WidgetMap.h"
#include "tests/app/MainWindowFixture.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

using namespace KOLT;
using namespace KOLT::Test;

/// The main window without a mouse, and as programs that read windows aloud see it.
class TestKeyboard : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:

    void initTestCase() { prepareOnce(); }

    void init() { QVERIFY(prepare() && openCycle(folder("card"))); }

    void cleanup()
    {
        m_window.reset();
        m_output.reset();
    }

    void pagesTurn();
    void spaceRunsTheReplay();
    void arrowsStepTheTime();
    void tabReachesAllAndMarksIt();
    void everyWidgetHasAName();

private:
    DialogData& data() const { return *m_window->findChild<DialogData*>(); }

    template <typename Widget>
    Widget* child() const
    {
        return m_window->findChild<Widget*>();
    }

    /// To what has the focus, as from the keyboard.
    static void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }

    bool focus(QWidget* widget) const
    {
        widget->setFocus();
        return QTest::qWaitFor([&] { return QApplication::focusWidget() == widget; });
    }
};

void TestKeyboard::pagesTurn()
{
    QVERIFY(focus(m_window->findChild<QTreeWidget*>("cyclesTree")));
    const auto page = [this] { return int(data().arrangement().page); };
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(page(), 1);
    press(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(page(), 6);
    QCOMPARE(QApplication::focusWidget()->objectName(), "cyclesTree");
    press(Qt::Key_1, Qt::AltModifier);
    QVERIFY(focus(child<DialogDataTable>()->findChild<QTableView*>()));
    press(Qt::Key_2, Qt::AltModifier);
    QCOMPARE(page(), 1);
    QCOMPARE(QApplication::focusWidget(), child<WidgetGraphBase>()); // the page had the focus
}

void TestKeyboard::spaceRunsTheReplay()
{
    auto* const start = labelled(data(), "Replay Start");

    const struct
    {
        QWidget* focus;
        const char* text; ///< of the replay's button, afterwards
    } steps[] = {{child<DialogDataTable>()->findChild<QTableView*>(), "Replay Pause"},
                 {data().findChild<QTabBar*>(), "Replay Run"},
                 {child<WidgetMap>(), "Replay Pause"},
                 {m_window->findChild<QTreeWidget*>("cyclesTree"), "Replay Pause"},
                 {labelled(*m_window, "Clear"), "Replay Pause"},
                 {start, "Replay Run"}};

    for (const auto& step : steps) {
        QVERIFY(focus(step.focus));
        press(Qt::Key_Space);
        QCOMPARE(start->text(), step.text);
    }
}

void TestKeyboard::arrowsStepTheTime()
{
    QVERIFY(focus(m_window->findChild<QTreeWidget*>("cyclesTree")));
    data().setTime(3.0);
    for (const auto& [key, time] : {std::pair(Qt::Key_Right, 4.0),
                                    {Qt::Key_Left, 3.0},
                                    {Qt::Key_Up, 13.0},
                                    {Qt::Key_Up, 19.0}, // the end
                                    {Qt::Key_Down, 9.0},
                                    {Qt::Key_Down, 0.0}}) {
        press(key, Qt::AltModifier);
        QCOMPARE(data().time(), time);
    }
    data().setCurrentPage(DialogData::Page::Graph);
    for (QWidget* own :
         std::initializer_list<QWidget*>{child<WidgetGraphBase>(), child<WidgetMap>()}) {
        QVERIFY(focus(own));
        data().setTime(3.0);
        press(Qt::Key_Up, Qt::AltModifier);
        QVERIFY2(data().time() < 10.0, own->metaObject()->className());
    }
}

void TestKeyboard::tabReachesAllAndMarksIt()
{
    data().setCurrentPage(DialogData::Page::Graph);
    QWidget* const first = m_window->findChild<QTreeWidget*>("cyclesTree");
    QVERIFY(focus(first));
    QSet<const QWidget*> reached;
    constexpr int most = 200;
    for (int i = 0; i < most && !reached.contains(first); ++i) {
        press(Qt::Key_Tab);
        const QWidget* const now = QApplication::focusWidget();
        reached << now;
        const auto* const ring = m_window->findChild<QWidget*>("focusRing");
        QTRY_VERIFY(ring->isVisible());
        QTRY_VERIFY2(ring->geometry().topLeft() == now->mapTo(m_window.get(), QPoint()),
                     now->metaObject()->className());
    }
    const auto* const bar = m_window->findChild<QToolBar*>("mainToolBar");
    for (const QWidget* wanted : std::initializer_list<const QWidget*>{
             bar->widgetForAction(bar->actions().front()),
             m_window->findChild<QWidget*>("unitSelector"), data().findChild<QTabBar*>(),
             child<WidgetGraphBase>(), child<WidgetMap>(), child<PositionSlider>(),
             labelled(data(), "Replay Start")})
        QVERIFY2(reached.contains(wanted), qPrintable(wanted->toolTip()));
    QTest::mouseClick(m_window->findChild<QTreeWidget*>("cyclesTree")->viewport(), Qt::LeftButton);
    QTRY_VERIFY(!m_window->findChild<QWidget*>("focusRing")->isVisible());
}

void TestKeyboard::everyWidgetHasAName()
{
    for (std::size_t page = 0; page < DialogData::pageCount - 1; ++page) {
        data().setCurrentPage(static_cast<DialogData::Page>(page));
        QCoreApplication::processEvents();
    }
    QStringList nameless;
    int seenCount = 0;
    for (QWidget* widget : m_window->findChildren<QWidget*>()) {
        const auto* const button = qobject_cast<QAbstractButton*>(widget);
        const bool isIconOnly =
            button != nullptr && button->text().isEmpty() && !button->icon().isNull();
        const bool isEmpty = button != nullptr && button->text().isEmpty() && !isIconOnly;
        const bool isReached = (widget->focusPolicy() & Qt::TabFocus) != 0;
        // The toolkit's parts of its own widgets have no name; nor have buttons not in use, and
        // notes without a text.
        const auto* const note = qobject_cast<const QLabel*>(widget);
        const bool isPart = (note != nullptr && note->text().isEmpty()) ||
                            widget->inherits("QLineEditIconButton") ||
                            widget->objectName().startsWith("qt_") ||
                            widget->inherits("QTableCornerButton");
        if (widget->window() != m_window.get() || widget->focusProxy() != nullptr || isPart ||
            isEmpty || (!isIconOnly && !isReached))
            continue;
        ++seenCount;
        widget->ensurePolished();
        const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(widget);
        if (seen == nullptr || seen->text(QAccessible::Name).isEmpty())
            nameless << QStringLiteral("%1 '%2' in %3")
                            .arg(widget->metaObject()->className(), widget->objectName(),
                                 widget->parentWidget()->metaObject()->className());
    }
    QVERIFY(seenCount > 40);
    QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join('\n')));
}

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
