#pragma once

namespace KOLT {

/// How the user wants the pages of the data window.
struct PageSettings
{
    bool hasClock = false; ///< the data table has the clock time beside the counter
    int cardPercent = 50;  ///< share of the card below a list of exceedances, 10..90

    bool operator==(const PageSettings&) const = default;
};

} // namespace KOLT
