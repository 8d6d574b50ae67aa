#include "export/RecordingNote.h"

#include "export/ExportText.h"
#include "profile/ProfileLine.h"

#include <QStringList>

namespace KOLT {

QString sourceNote(const Profile& profile, const std::vector<TrustFinding>& findings)
{
    QStringList notes{profileLine(profile), recordingNote(findings)};
    notes.removeAll(QString());
    return notes.join(QLatin1Char('\n'));
}

QString recordingNote(const std::vector<TrustFinding>& findings)
{
    QStringList lines;
    for (const TrustFinding& finding : findings) {
        if (trustSeverity(finding.kind) != TrustSeverity::Note)
            lines << finding.text;
    }
    return lines.isEmpty() ? QString()
                           : ExportText::tr("Recording: %1").arg(lines.join(QLatin1Char('\n')));
}

} // namespace KOLT
