// The library: what the proof of an import costs.

#include "benchmarks/BenchData.h"
#include "benchmarks/Figures.h"
#include "library/archive/CardImport.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

using namespace KOLT;

namespace {

[[noreturn]] void giveUp(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

void shell(const QString& command)
{
    if (QProcess::execute(QStringLiteral("sh"), {QStringLiteral("-c"), command}) != 0)
        giveUp("a system program failed");
}

/// Copying a card with the system's programs as carefully as they can: cp, sync, sha256sum of both
/// sides, one after the other, divided by the time of the import.
double importSpeed()
{
    static const Bench::Card card;
    const QTemporaryDir directory;
    const QString from = card.container.folder();
    const QString copy = directory.filePath(QStringLiteral("copy"));
    QElapsedTimer timer;
    timer.start();
    shell(QStringLiteral("cp -r '%1' '%2' && sync -f '%2' && sha256sum '%1'/* > '%2.sums' && "
                         "sha256sum '%2'/* >> '%2.sums'")
              .arg(from, copy));
    const double bySystem = static_cast<double>(timer.nsecsElapsed());

    const QString root = directory.filePath(QStringLiteral("library"));
    Library::Archive archive;
    if (!Library::Archive::create(root).isEmpty() || !archive.open(root))
        giveUp("the library cannot be created");
    timer.start();
    const Library::ImportResult result = Library::CardImport(archive, from).run();
    const double byUs = static_cast<double>(timer.nsecsElapsed());
    if (!result.isComplete() || result.copied != static_cast<int>(card.container.files().size()))
        giveUp("the import is not complete");
    return bySystem / byUs;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return Bench::run(argc, argv,
                      {{"import beside cp, sync and two sha256sum, speed", nullptr, nullptr,
                        Bench::Bound::AtLeast, 0.5, importSpeed}});
}
