#include "base/Diagnostics.h"
#include "cli/Arguments.h"
#include "cli/Recording.h"
#include "cli/Verbs.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdio>

namespace {

using namespace KOLT;

int fail(const QString& error, int status)
{
    std::fprintf(stderr, "kolt-cli: %s\n", qUtf8Printable(error));
    return status;
}

} // namespace

int main(int argc, char* argv[])
{
    // The standard output is for the result only.
    Diagnostics::setSink(Diagnostics::toStandardError);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("KOLT"));
    // QCoreApplication has set the user's locale; numbers in files need a decimal point.
    std::setlocale(LC_NUMERIC, "C");

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
