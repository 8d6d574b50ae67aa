// Loads arbitrary bytes as a profile and decodes messages with every parameter in it.

#include "fuzz/FuzzFile.h"
#include "profile/ValueDecoder.h"

using namespace KOLT;

namespace {

constexpr MessageData messages[] = {
    {0, 0, 0, 0, 0, 0, 0, 0},
    {0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff},
    {0x00, 0x00, 0xc0, 0x7f, 0x01, 0x80, 0xff, 0x7f},
    {0x12, 0x34, 0x56, 0x42, 0x9a, 0xbc, 0xde, 0xf0},
};

void decodeAll(Profile& profile)
{
    for (const ProfileParameter& parameter : profile.parameters()) {
        PositionFilter filter;
        for (const MessageData& message : messages) {
            for (const UnitSystem system : {UnitSystem::Metric, UnitSystem::Imperial}) {
                profile.setUnitSystem(system);
                MessageData data = message;
                if (decodeValue(profile, parameter, data, &filter).text.isEmpty())
                    std::abort();
            }
        }
        profile.unitLabel(parameter);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fuzz::FuzzFile file("Profile.xml");
    const QString path = file.set(data, size);
    for (const char* variant : {"", "915"}) {
        Profile profile;
        profile.loadVariants(path);
        if (profile.loadProfil(path, QLatin1String(variant)))
            decodeAll(profile);
    }
    return 0;
}
