#include "ui/WidgetNoGl.h"

#include <QApplication>
#include <QLayout>
#include <QOpenGLContext>
#include <QOpenGLWidget>
#include <QTest>
#include <QVBoxLayout>

using namespace KOLT;

/// On a machine whose OpenGL has no shaders, as systems without a driver have one of their own.
class TestOldOpenGl : public QObject
{
    Q_OBJECT

private slots:

    void pagesSayThatTheyCannotBeShown();
};

void TestOldOpenGl::pagesSayThatTheyCannotBeShown()
{
    QOpenGLContext context;
    QVERIFY(context.create());
    if (context.format().majorVersion() >= 2)
        QSKIP("the driver cannot be told to be an old one");

    QWidget page;
    auto* const layout = new QVBoxLayout(&page);
    auto* const picture = new QOpenGLWidget(&page);
    layout->addWidget(picture);
    QCOMPARE(WidgetNoGl::shown(&page), &page);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const auto notes = page.findChildren<WidgetNoGl*>();
    QCOMPARE(notes.size(), 1);
    QVERIFY(notes[0]->isVisible());
    QVERIFY(!picture->isVisible());
}

int main(int argc, char* argv[])
{
    qputenv("MESA_GL_VERSION_OVERRIDE", "1.4");
    qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
    QApplication application(argc, argv);
    TestOldOpenGl test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_oldopengl.moc"
