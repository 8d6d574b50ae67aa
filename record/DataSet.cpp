#include "record/DataSet.h"

namespace KOLT {

namespace {

SamplesBefore lastBefore(const MessageMap& messages, double seconds)
{
    SamplesBefore result;
    for (const auto& [id, series] : messages.all()) {
        if (const StoredSample* const sample = series.lastBefore(seconds))
            result.emplace(id, *sample);
    }
    return result;
}

} // namespace

void DataSet::keepFlight(std::size_t index)
{
    const Flight& flight = flights.at(index);
    flightIndex = index;
    startSeconds = flight.startSeconds;
    stopSeconds = flight.endSeconds;
    before = lastBefore(messages, startSeconds);
    messages.keepWindow(startSeconds, stopSeconds);
}

std::unique_ptr<DataSet> DataSet::copyOfFlight(std::size_t index) const
{
    const Flight& flight = flights.at(index);
    auto copy = std::make_unique<DataSet>();
    copy->messages.copyWindow(messages, flight.startSeconds, flight.endSeconds);
    copy->before = lastBefore(messages, flight.startSeconds);
    copy->startSeconds = flight.startSeconds;
    copy->stopSeconds = flight.endSeconds;
    copy->dateTime = dateTime;
    copy->files = files;
    copy->unreadFiles = unreadFiles;
    copy->flights = flights;
    copy->flightIndex = index;
    return copy;
}

} // namespace KOLT
