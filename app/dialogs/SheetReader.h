#pragma once

#include "analysis/SheetCycle.h"
#include "record/Cycle.h"

#include <QDate>
#include <QString>

#include <functional>
#include <list>
#include <map>
#include <optional>
#include <vector>

namespace KOLT {

/// The open folder and what of it is loaded, for day sheets.
struct SheetSource
{
    QString folder;
    std::map<int, Cycle> cycles;
    QString loadedName; ///< empty when nothing of the folder is loaded
    std::list<QString> loadedFiles;
    std::optional<int> loadedCycle{}; ///< none when only files are loaded
    int clockOffset = 0;              ///< minutes; as in the cycles

    /// The days on which cycles began: that of the loaded data first, then the newest first. An
    /// invalid date stands for cycles without one.
    std::vector<QDate> days() const;
};

/// What a day sheet lists.
struct SheetChoice
{
    enum class Kind { Day, Loaded, Folder };

    Kind kind = Kind::Folder;
    QDate day{}; ///< of the kind Day
};

struct SheetContent
{
    std::vector<SheetCycle> cycles;
    QStringList unreadFiles;
};

/// Reads what a sheet lists, one cycle after the other, into a data set of its own. `progress`
/// receives the cycle's name and percent of the work; where it returns false, nothing is read after
/// the cycle at hand.
SheetContent readSheet(const Profile& profile, const SheetSource& source, const SheetChoice& choice,
                       const std::function<bool(const QString& name, int percent)>& progress);

} // namespace KOLT
