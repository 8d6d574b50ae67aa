#include "base/Diagnostics.h"
#include "base/System.h"
#include "cli/Arguments.h"
#include "cli/Library.h"
#include "cli/Recording.h"
#include "cli/Verbs.h"

#include <QByteArrayView>
#include <QGuiApplication>

#include <algorithm>
#include <clocale>
#include <memory>

namespace {

using namespace KOLT;

int fail(const QString& error, int status)
{
    Diagnostics::print("kolt-cli: %s\n", qUtf8Printable(error));
    return status;
}

/// Fonts need a platform of QtGui.
std::unique_ptr<QCoreApplication> createApplication(int& argc, char** argv)
{
    const bool isPdf = std::any_of(argv, argv + argc, [](const char* argument) {
        return QByteArrayView(argument).startsWith("--pdf");
    });
    if (!isPdf)
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", System::fontPlatform());
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    System::prepareConsole();
    // The standard output is for the result only.
    Diagnostics::setSink(Diagnostics::toStandardError);
    const std::unique_ptr<QCoreApplication> application = createApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("KOLT"));
    // QCoreApplication has set the user's locale; numbers in files need a decimal point.
    std::setlocale(LC_NUMERIC, "C");

    const QStringList given = QCoreApplication::arguments().mid(1);
    if (given.value(0) == QLatin1String("library"))
        return Cli::runLibrary(given.mid(1));
    const Cli::ParseResult parsed = Cli::parseArguments(QCoreApplication::arguments());
    if (!parsed.error.isEmpty())
        return fail(parsed.error, 2);
    if (!parsed.arguments) {
        Cli::writeOutput(parsed.help.toUtf8());
        const QString error = Cli::finishOutput();
        return error.isEmpty() ? 0 : fail(error, 1);
    }
    const QString error = parsed.arguments->verb->run(*parsed.arguments);
    return error.isEmpty() ? 0 : fail(error, 1);
}
