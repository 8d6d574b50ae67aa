#pragma once

#include "analysis/GraphTarget.h"
#include "app/DataWindow.h"

#include <QObject>
#include <QStringList>

#include <optional>

namespace KOLT {

class NoticeBar;

/// Goes from an exceedance, lamp or fault to its trace: selects the parameter if need be, opens the
/// graph there and marks begin and end. A bar offers to take back what was selected for it, at once
/// for all since the user's own selection.
class GraphJump : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this, except for the bar's owner.
    GraphJump(Profile& profile, const DataWindow& parts, NoticeBar& notice);

    void show(const GraphTarget& target);

    /// The user has made a selection, which stays.
    void forget();

signals:
    /// A parameter was added to the profile's selection, or the one before is back.
    void signalSelectionChanged();

private:
    void select(const ProfileParameter& parameter);
    void undo();

    /// What the user has selected.
    struct Selection
    {
        std::vector<const ProfileParameter*> parameters; ///< in their order
        bool isReordered = false;                        ///< their order was changed meanwhile
    };

    Profile& m_profile;
    DataWindow m_parts;
    NoticeBar& m_notice;
    std::optional<Selection> m_before; ///< none if nothing was added to it
    QStringList m_added;
};

} // namespace KOLT
