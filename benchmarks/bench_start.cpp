// The start of the program until its window is painted, beside that of an empty window with one
// OpenGL area. Both run as programs of their own: this one, called with "--kolt" or "--empty".

#include "benchmarks/ChildProcess.h"
#include "benchmarks/Figures.h"

#include <QApplication>
#include <QMainWindow>
#include <QOpenGLWidget>
#include <QPaintEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <cstring>
#include <unistd.h>

// The program itself, under another name.
#define main koltMain // NOLINT(cppcoreguidelines-macro-usage)
#include "app/main.cpp"
#undef main

namespace {

/// Ends the program when the first main window has been painted and its picture handed over.
class FirstPaint : public QObject
{
protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || !object->isWidgetType())
            return false;
        const QWidget* const window = static_cast<QWidget*>(object)->window();
        if (window->inherits("QMainWindow") && window->isVisible())
            QTimer::singleShot(0, this, [] { _exit(0); });
        return false;
    }
};

bool watches = false;

void watch()
{
    if (watches)
        qApp->installEventFilter(new FirstPaint);
}

Q_COREAPP_STARTUP_FUNCTION(watch)

int emptyWindow(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QOpenGLWidget);
    window.resize(1000, 800);
    window.show();
    return QApplication::exec();
}

double startRatio()
{
    const QTemporaryDir home; // the settings are written once, by the first start
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    const std::string own = QCoreApplication::applicationFilePath().toStdString();
    return KOLT::Bench::timeRatio({own, "--kolt"}, {own, "--empty"});
}

} // namespace

int main(int argc, char** argv)
{
    const char* const mode = argc > 1 ? argv[1] : "";
    if (std::strcmp(mode, "--kolt") == 0 || std::strcmp(mode, "--empty") == 0) {
        watches = true;
        int count = 1;
        if (std::strcmp(mode, "--kolt") == 0)
            return koltMain(count, argv);
        return emptyWindow(count, argv);
    }
    const QCoreApplication application(argc, argv);
    return KOLT::Bench::run(argc, argv,
                            {{"start to the painted window / an empty one", nullptr, nullptr,
                              KOLT::Bench::Bound::AtMost, 1.5, startRatio}});
}
