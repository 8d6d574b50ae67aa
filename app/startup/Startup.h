#pragma once

#include <QString>

class QApplication;

/// The steps that bring up the program, in the order in which main() takes them.
namespace KOLT::Startup {

/// Registers the program's options and parses the command line; prints the usage when an argument
/// is unknown or help was asked for. The program starts in any case.
void parseCommandLine(int argc, const char* const* argv);

/// OpenGL surface format and application attributes.
void configureGraphics();

/// Points the settings store at "KOLT.ini" in the data path and loads it.
void loadSettings();

/// Installs the toolkit's and the program's translation for the language in the settings.
void installTranslations(QApplication& application);

/// The style sheet of option "-s", or the built-in one among the resources.
QString styleFile();

/// Applies that style sheet.
void applyStyleSheet(QApplication& application);

constexpr int defaultFontPixels = 12;

/// Gives all windows the font size of the settings, in pixels.
void applyFontSize();

/// The folder that was opened last, "." before the first.
QString lastPath();

} // namespace KOLT::Startup
