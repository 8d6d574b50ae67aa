#pragma once

#include "record/Track.h"

#include <array>
#include <limits>

class QWidget;

namespace KOLT {

class OutlinedLabel;

/// The small floating panel that says where the flight is: altitude, ground speed and heading, in
/// the profile's units.
class FlightPanel
{
public:
    /// The panel becomes a child of `parent`. `profile` must outlive this.
    FlightPanel(const Profile& profile, QWidget* parent);

    QWidget& widget() const { return *m_panel; }

    /// Hidden without a point. What the point does not know is shown as dashes.
    void show(const TrackPoint* point);

    /// Hidden where it is wider than this, too.
    void fit(int room);

private:
    QString textOf(Role role, double metric, bool isKnown) const;

    const Profile& m_profile;
    QWidget* m_panel;
    std::array<OutlinedLabel*, 3> m_values{};
    bool m_isKnown = false; ///< where the flight is
    int m_room = std::numeric_limits<int>::max();
};

} // namespace KOLT
