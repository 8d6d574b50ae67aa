#pragma once

#include "export/ExportClock.h"
#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/SampleWalker.h"

#include <QString>

#include <map>
#include <vector>

namespace KOLT {

/// The descriptions of the marks along a path: an HTML table of time, altitude, speed and the
/// selected parameters, in the profile's unit system. of() must be called in ascending order of
/// time.
class KmlDescription
{
public:
    KmlDescription(const Profile& profile, const DataSet& dataSet);

    QString of(const TrackPoint& point);

    /// "14:32:05" of the recording's clock, otherwise of the unit's counter.
    QString timeText(double seconds) const;
    /// "28.07.2026 14:32:05.500", without a clock the counter's "hh:mm:ss.zzz".
    QString momentText(double seconds) const;

private:
    struct Column
    {
        const ProfileParameter* parameter;
        SampleWalker* walker;
    };

    const StoredSample* heldSample(const Column& column) const;
    QString roleText(Role role, double metric, const char* unit, int decimals) const;

    const Profile& m_profile;
    const DataSet& m_dataSet;
    ExportClock m_clock;
    bool m_hasSpeed;
    std::map<int, SampleWalker> m_walkers; ///< by message identifier
    std::vector<Column> m_columns;
};

} // namespace KOLT
