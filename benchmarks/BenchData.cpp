#include "benchmarks/BenchData.h"

#include "base/Diagnostics.h"
#include "tools/samplecard/SampleCard.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace KOLT::Bench {

namespace {

void endUnless(bool isGood, const QString& error)
{
    if (isGood)
        return;
    std::fprintf(stderr, "no data for the benchmark: %s\n", qUtf8Printable(error));
    std::exit(2);
}

} // namespace

Card::Card(double hours)
{
    Diagnostics::setSink([](std::string_view) {});
    SampleCard::SampleCardOptions options;
    options.folder = m_directory.path();
    options.profilePath = QStringLiteral(KOLT_PROFILE);
    options.hours = hours;
    QString error;
    endUnless(SampleCard::writeSampleCard(options, &error) &&
                  profile.loadProfil(options.profilePath, QStringLiteral("915")) &&
                  container.readContainer(options.folder) && container.loadCycle(1),
              error);
}

std::unique_ptr<Profile> profileOf(const QByteArray& elements, const QByteArray& lists)
{
    Diagnostics::setSink([](std::string_view) {});
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("Profile.xml")));
    auto profile = std::make_unique<Profile>();
    endUnless(file.open(QIODevice::WriteOnly) &&
                  file.write("<KorvanProfile>" + lists + "<Device name='D'>" + elements +
                             "</Device></KorvanProfile>") > 0 &&
                  file.flush() && profile->loadProfil(file.fileName(), {}),
              file.fileName());
    return profile;
}

} // namespace KOLT::Bench
