#include "app/DialogMain.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTest>

#include <cstdio>

namespace {

/// The windows are saved as they are drawn on the screen, at the sizes users have.
bool saveWindow(QWidget& window, const QSize& size, const QString& path)
{
    window.resize(size);
    if (!QTest::qWaitForWindowExposed(&window))
        return false;
    if (!window.grab().save(path))
        return false;
    std::printf("%s\n", qUtf8Printable(path));
    return true;
}

} // namespace

/// kolt-screenshots DIR: opens the program's windows and saves a picture of each.
int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("KOLT"));
    const QString directory = QCoreApplication::arguments().value(1);
    if (directory.isEmpty() || !QDir().mkpath(directory)) {
        std::fprintf(stderr, "kolt-screenshots: needs a directory that can be written\n");
        return 2;
    }
    KOLT::DialogMain window;
    const QString pattern = directory + QStringLiteral("/main-window-%1x%2.png");
    for (const QSize size : {QSize(1000, 800), QSize(1600, 1000)}) {
        if (!saveWindow(window, size, pattern.arg(size.width()).arg(size.height()))) {
            std::fprintf(stderr, "kolt-screenshots: could not save the main window\n");
            return 1;
        }
    }
    return 0;
}
