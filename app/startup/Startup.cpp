#include "app/startup/Startup.h"

#include "app/settings/CommandLineOptions.h"
#include "app/settings/DataPaths.h"
#include "app/settings/ProgramSettings.h"
#include "app/startup/StyleSheet.h"
#include "base/Diagnostics.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QLocale>
#include <QSurfaceFormat>
#include <QTranslator>

#include <algorithm>

namespace KOLT::Startup {

namespace {

constexpr int depthBits = 24;
constexpr int stencilBits = 8;

void installTranslation(QApplication& application, QTranslator& translator, const char* label,
                        const QString& prefix, const QString& locale)
{
    const bool loaded = translator.load(prefix + locale, QStringLiteral(":/trl"));
    Diagnostics::print("Translation %s <%s> %d\n", label, qUtf8Printable(locale), loaded ? 1 : 0);
    if (loaded)
        application.installTranslator(&translator);
}

} // namespace

void parseCommandLine(int argc, const char* const* argv)
{
    CommandLineOptions& options = CommandLineOptions::instance();
    options.addFlag("-h", "print this help");
    options.addFlag("-emu", "EMU display only");
    options.addFlag("-connect", "connect after startup");
    options.addValueOption("-s", "stylefile to load", "");
    const bool allKnown = options.parse(argc, argv);
    if (!allKnown || options.isGiven("-h"))
        options.printUsage();
}

void configureGraphics()
{
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setDepthBufferSize(depthBits);
    format.setStencilBufferSize(stencilBits);
    QSurfaceFormat::setDefaultFormat(format);
    // High-DPI scaling and the DPI-aware declaration are always on in this toolkit version.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

void loadSettings()
{
    SettingsStore& settings = SettingsStore::instance();
    settings.setFileName(DataPaths::instance().settingsFile());
    settings.load();
}

void installTranslations(QApplication& application)
{
    static QTranslator toolkit;
    static QTranslator program;
    const QString locale = ProgramSettings().language();
    installTranslation(application, toolkit, "QT", QStringLiteral("qt_"), locale);
    installTranslation(application, program, "IOS", QStringLiteral("kolt_"), locale);
    // Numbers in the windows follow the program's language, not the system's.
    QLocale::setDefault(locale == QLatin1String("de")
                            ? QLocale(QLocale::German, QLocale::Germany)
                            : QLocale(QLocale::English, QLocale::UnitedStates));
}

QString styleFile()
{
    std::string file;
    CommandLineOptions::instance().getValue("-s", file);
    return file.empty() ? QStringLiteral(":/styles/style.KOLT.css")
                        : QFile::decodeName(file.c_str());
}

void applyStyleSheet(QApplication& application)
{
    StyleSheet::Entries colors;
    for (const LookTone& tone : lookTones())
        colors[QString::fromLatin1(tone.name)] = QColor(tone.in(currentLook())).name();
    application.setStyleSheet(StyleSheet().read(styleFile(), colors));
}

void showLook(QApplication& application, Look look)
{
    setCurrentLook(look); // first: widgets ask for colours when the palette changes
    QApplication::setPalette(lookPalette(look));
    applyStyleSheet(application);
}

void applyLook(QApplication& application)
{
    Look look = Look::Light;
    const ProgramSettings::LookChoice choice = ProgramSettings().look();
    if (choice == ProgramSettings::LookChoice::System) {
        QApplication::setPalette(QPalette()); // back to the system's, to see it
        look = lookOf(QApplication::palette());
    }
    if (choice == ProgramSettings::LookChoice::Dark ||
        CommandLineOptions::instance().isGiven("-emu"))
        look = Look::Dark;
    showLook(application, look);
}

void applyFontSize()
{
    constexpr int smallest = 6;
    constexpr int largest = 64;
    QFont font = QApplication::font();
    font.setPixelSize(std::clamp(ProgramSettings().fontPixels(), smallest, largest));
    QApplication::setFont(font);
}

} // namespace KOLT::Startup
