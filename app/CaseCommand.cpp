#include "app/CaseCommand.h"

#include "app/CardSession.h"
#include "app/project/Project.h"
#include "profile/Profile.h"
#include "record/CaseFile.h"
#include "record/ClockTime.h"
#include "ui/DialogFolders.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace KOLT {

namespace {

constexpr double secondsAround = 30.0;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::CaseCommand)
};

/// The cycle of the loaded data; none if they are not from one cycle of the open folder.
std::optional<int> cycleOf(const CardSession& card)
{
    const CardChoice loaded = card.loaded();
    if (loaded.cycle || loaded.isNone())
        return loaded.cycle;
    for (const auto& [number, cycle] : card.container().cycles()) {
        const auto isInIt = [&names = cycle.fileNames](const QString& path) {
            return std::ranges::find(names, QFileInfo(path).fileName()) != names.end();
        };
        if (std::ranges::all_of(loaded.files, isInIt))
            return number;
    }
    return std::nullopt;
}

/// Such as "Case 2 EGT 1 00-12-03".
QString nameOf(int cycle, const GraphTarget& target)
{
    QString parameter = target.parameter.section(QLatin1Char('/'), -1);
    for (QChar& letter : parameter) {
        if (!letter.isLetterOrNumber() && letter != QLatin1Char('-'))
            letter = QLatin1Char(' ');
    }
    return QStringLiteral("Case %1 %2 %3")
        .arg(QString::number(cycle), parameter.simplified(),
             clockTime(target.begin).toString(QStringLiteral("hh-mm-ss")));
}

/// The path, or one that is not there yet, such as "Case 2 EGT 1 00-12-03 (2)".
QString newPath(const QString& stem, const QString& suffix)
{
    QString path = stem + suffix;
    for (int i = 2; QFileInfo::exists(path); ++i)
        path = QStringLiteral("%1 (%2)%3").arg(stem).arg(i).arg(suffix);
    return path;
}

/// Asks where; false when the user gave up.
bool askForTarget(CaseRequest& request, CaseForm form, const GraphTarget& target, QWidget* window)
{
    const QString kind = QStringLiteral("Case");
    const QString name = QLatin1Char('/') + nameOf(request.cycle, target);
    const QString suffix = QStringLiteral(".zip");
    const QString last = DialogFolders::proposal(kind, QDir::homePath() + QStringLiteral("/."));
    if (form == CaseForm::Folder) {
        const QString where =
            QFileDialog::getExistingDirectory(window, Text::tr("Folder for the Case File"), last);
        if (!where.isEmpty())
            request.folder = newPath(where + name, {});
    } else { // what exists is refused later
        request.zip = askForSavePath(window, Text::tr("Case File for Mail"),
                                     newPath(QFileInfo(last).path() + name, suffix),
                                     Text::tr("Zip Files (*.zip)"), suffix);
    }
    const QString& path = form == CaseForm::Folder ? request.folder : request.zip;
    DialogFolders::note(kind, path);
    return !path.isEmpty();
}

} // namespace

QString writeCaseFile(const Profile& profile, const CardSession& card, const GraphTarget& target,
                      CaseForm form, QWidget* window)
{
    const std::optional<int> cycle = cycleOf(card);
    if (!cycle) {
        Messages::warn(window, Text::tr("A case file is cut from one engine cycle. Open the folder "
                                        "of these data, and choose a cycle or flight in it."));
        return {};
    }
    CaseRequest request;
    request.cycle = *cycle;
    request.from = target.begin - secondsAround;
    request.to = target.end + secondsAround;
    if (!askForTarget(request, form, target, window))
        return {};
    request.profilePath = profile.path();
    request.variant = profile.activeVariant();
    for (const ProfileParameter* parameter : profile.selectedParameters())
        request.selection << parameter->fullName;
    if (!request.selection.contains(target.parameter))
        request.selection << target.parameter;
    request.project = Project::contentFor(request.selection);
    const CaseResult result = writeCase(card.container(), request);
    if (result.error.isEmpty())
        return form == CaseForm::Folder ? request.folder : request.zip;
    Messages::warn(window, result.error);
    return {};
}

} // namespace KOLT
