#include "cli/Cut.h"

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
    const CaseResult result = writeCase(recording.card(), {*arguments.cycle,
                                                           arguments.from,
                                                           arguments.to,
                                                           arguments.output,
                                                           arguments.zip,
                                                           profile.path(),
                                                           profile.activeVariant(),
                                                           arguments.selection,
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
