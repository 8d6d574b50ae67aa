#include "cli/Cut.h"

#include "app/project/Project.h"
#include "cli/Arguments.h"
#include "cli/Recording.h"
#include "record/CaseFile.h"

namespace KOLT::Cli {

QString cut(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openProfile();
    if (error.isEmpty())
        error = recording.openFolder();
    if (!error.isEmpty())
        return error;
    const Profile& profile = recording.profile();
    const QByteArray project =
        arguments.selection.isEmpty() ? QByteArray() : Project::contentFor(arguments.selection);
    const CaseResult result = writeCase(recording.card(), {*arguments.cycle,
                                                           arguments.from,
                                                           arguments.to,
                                                           arguments.output,
                                                           arguments.zip,
                                                           profile.path(),
                                                           profile.activeVariant(),
                                                           arguments.selection,
                                                           project,
                                                           {}});
    if (!result.error.isEmpty())
        return result.error;
    writeOutput(QStringLiteral("%1: %2 samples\n")
                    .arg(arguments.zip.isEmpty() ? arguments.output : arguments.zip,
                         QString::number(result.samples))
                    .toUtf8());
    return finishOutput();
}

} // namespace KOLT::Cli
