#pragma once

#include "export/XmlExport.h"
#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/SampleWalker.h"

#include <span>
#include <vector>

namespace KOLT {

/// The values of the selected parameters along the tracks that play back, in the profile's unit
/// system: for each point the last value up to its time, enumerations as numbers.
class KmlTrackValues
{
public:
    KmlTrackValues(XmlExport& xml, const Profile& profile, const DataSet& dataSet);

    std::size_t count() const { return m_columns.size(); }

    /// The element of the document that describes the values; nothing without parameters.
    void writeSchema();
    /// The values at the points of one track. Tracks must be written in ascending order of time.
    /// False if the export was cancelled or failed.
    bool write(std::span<const TrackPoint> points);

private:
    struct Column
    {
        const ProfileParameter* parameter;
        const StoredSample* before; ///< held when the data set begins; may be null
        SampleWalker walker;
    };

    QString textAt(Column& column, double seconds) const;

    XmlExport& m_xml;
    const Profile& m_profile;
    std::vector<Column> m_columns;
};

} // namespace KOLT
