// Reads arbitrary bytes as a record file and runs flights, track and look-ups on its samples.

#include "fuzz/FuzzFile.h"
#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/FlightFinder.h"
#include "record/RecordFile.h"
#include "record/TimeSlots.h"
#include "record/Track.h"

using namespace KOLT;

namespace {

const Profile& profile()
{
    static Profile profile;
    if (profile.devices().empty()) {
        Fuzz::FuzzFile file("Profile.xml");
        const QByteArray xml =
            "<KorvanProfile><Device name='D'>"
            "<Parameter name='v' id='1' dataType='FLOAT' koltDataType='GroundSpeed'/>"
            "<Parameter name='t' id='1' startByte='4' dataType='FLOAT' koltDataType='ThrottleA'/>"
            "<Parameter name='a' id='2' dataType='FLOAT' koltDataType='Latitude'/>"
            "<Parameter name='o' id='2' startByte='4' dataType='FLOAT' koltDataType='Longitude'/>"
            "<Parameter name='h' id='2147483647' dataType='SHORT' koltDataType='Altitude'/>"
            "</Device></KorvanProfile>";
        profile.loadProfil(file.set(reinterpret_cast<const std::uint8_t*>(xml.constData()),
                                    static_cast<std::size_t>(xml.size())),
                           {});
    }
    return profile;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fuzz::FuzzFile file("X.CAN");
    RecordFile record;
    if (!record.readRecordInfo(file.set(data, size)))
        std::abort();
    DataSet dataSet;
    if (!record.readRecordData(dataSet.messages) ||
        dataSet.messages.sampleCount() != static_cast<std::size_t>(record.info().sampleCount))
        std::abort();
    dataSet.flights = findFlights(profile(), dataSet.messages, record.info().dateTime);
    dataSet.track = buildTrack(profile(), dataSet.messages);
    if (dataSet.track.size() > static_cast<std::size_t>(maxTimeSlots))
        std::abort();
    for (const auto& [id, series] : dataSet.messages.all()) {
        const StoredSample* const found = series.firstAtOrAfter(record.info().stopSeconds);
        if (found != nullptr && found->seconds() < record.info().stopSeconds)
            std::abort();
    }
    if (!dataSet.flights.empty())
        dataSet.keepFlight(dataSet.flights.size() - 1);
    return 0;
}
