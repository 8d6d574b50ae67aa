#include "cli/ProfileVerb.h"

#include "cli/Arguments.h"
#include "cli/Recording.h"
#include "profile/ProfileCheck.h"

namespace KOLT::Cli {

QString profileVerb(const Arguments& arguments)
{
    const std::vector<ProfileFinding> findings = checkProfile(arguments.folder);
    for (const ProfileFinding& finding : findings)
        writeOutput(QStringLiteral("%1:%2: %3\n")
                        .arg(arguments.folder, QString::number(finding.line), finding.text)
                        .toUtf8());
    const QString error = finishOutput();
    if (!error.isEmpty() || findings.empty())
        return error;
    return findings.size() == 1 ? QStringLiteral("1 finding")
                                : QStringLiteral("%1 findings").arg(findings.size());
}

} // namespace KOLT::Cli
