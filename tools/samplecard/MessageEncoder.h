#pragma once

#include "profile/Profile.h"
#include "record/RecordFileWriter.h"
#include "tools/samplecard/ParameterSources.h"
#include "tools/samplecard/Random.h"

#include <vector>

namespace KOLT::SampleCard {

/// Encodes simulated quantities into messages, inverse to the decoding that the profile describes.
class MessageEncoder
{
public:
    /// False, with the reason, when the profile has a parameter or message that the simulation does
    /// not know or that cannot be encoded.
    bool prepare(const Profile& profile, QString* error);

    std::size_t messageCount() const { return m_messages.size(); }

    /// Whether the message is sent in this simulation step.
    bool isDue(std::size_t message, long step) const
    {
        const Message& m = m_messages[message];
        return step % m.period == m.phase;
    }

    /// The sample without its time stamp.
    RecordFileWriter::RecordSample encode(std::size_t message, const Quantities& quantities,
                                          Random& random) const;

private:
    struct Field
    {
        const ParameterSource* source = nullptr; ///< null for a fault bit
        std::string fault;
        DecodingRule rule = DecodingRule::NotImplemented;
        std::size_t startByte = 0;
        int width = 0;
        bool isSigned = false;
        bool isPosition = false;
        double factor = 1.0;
        double offset = 0.0;
        int shift = 0;
        std::uint32_t mask = 0;
    };

    struct Message
    {
        std::uint32_t identifier = 0;
        std::uint16_t kind = 0;
        std::uint8_t channel = 0;
        int period = 1; ///< in steps
        int phase = 0;
        std::vector<Field> fields;
    };

    bool addParameter(const ProfileParameter& parameter, const QString& device, QString* error);
    static std::uint32_t rawValue(const Field& field, double value);

    std::vector<Message> m_messages; ///< in profile order
};

} // namespace KOLT::SampleCard
