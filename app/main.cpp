#include "app/ApplicationContext.h"
#include "app/DialogMain.h"
#include "app/startup/Banner.h"
#include "app/startup/SplashScreen.h"
#include "app/startup/Startup.h"
#include "base/Version.h"
#include "resources/Resources.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

#include <clocale>
#include <csignal>
#include <cstdio>

int main(int argc, char* argv[])
{
    using namespace KOLT;
    // Line-buffered also in a pipe, so that a reader sees each line at once.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);

#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN); // the program goes on when the reader of its output exits
#endif
    initKoltResources();
    printBanner();
    Startup::parseCommandLine(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("KOLT"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/app.svg")));
    // QApplication has set the user's locale; numbers in files need a decimal point.
    std::setlocale(LC_NUMERIC, "C");

    SplashScreen splash;
    splash.show();
    splash.showStep(QApplication::translate("main", "Starting up KOLT..."));
    splash.showStep(QApplication::translate("main", "Version %1").arg(QLatin1String(versionText)));

    ApplicationContext::instance().application = &application;
    Startup::configureGraphics();
    Startup::loadSettings();
    Startup::installTranslations(application);
    Startup::applyFontSize();
    Startup::applyLook(application);

    splash.showStep(QApplication::translate("main", "Creating Dialogs ..."));
    DialogMain mainWindow;
    ApplicationContext::instance().mainWindow = &mainWindow;
    splash.finish(&mainWindow);
    return QApplication::exec();
}
