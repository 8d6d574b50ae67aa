#include "record/DataSet.h"

namespace KOLT {

void DataSet::keepFlight(std::size_t index)
{
    const Flight& flight = flights.at(index);
    flightIndex = index;
    startSeconds = flight.startSeconds;
    stopSeconds = flight.endSeconds;
    messages.keepWindow(startSeconds, stopSeconds);
}

} // namespace KOLT
