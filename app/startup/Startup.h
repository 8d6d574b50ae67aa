#pragma once

#include "ui/LookColors.h"

#include <QString>

class QApplication;

/// The steps of the start-up, in the order in which main() takes them.
namespace KOLT::Startup {

/// Registers the options and parses the command line. Prints the usage for "-h" and for unknown
/// arguments; the program starts in any case.
void parseCommandLine(int argc, const char* const* argv);

/// OpenGL surface format and application attributes.
void configureGraphics();

/// Points the settings store at "KOLT.ini" in the data path and loads it.
void loadSettings();

/// Installs the toolkit's and the program's translation for the language in the settings.
void installTranslations(QApplication& application);

/// The style sheet of option "-s", or the built-in one among the resources.
QString styleFile();

/// Applies that style sheet, with the colours of the current look.
void applyStyleSheet(QApplication& application);

/// Applies palette and style sheet of a look.
void showLook(QApplication& application, Look look);

/// The same with the look in the settings, or that of the system. The bare display is always dark.
void applyLook(QApplication& application);

/// Applies the font size in the settings (pixels) to all windows.
void applyFontSize();

} // namespace KOLT::Startup
