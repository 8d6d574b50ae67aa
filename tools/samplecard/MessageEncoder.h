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

    /// Sends what flights and engine runs are found by once a second, all else every five seconds:
    /// a tenth of the size. After prepare().
    void thinOut();

    std::size_t messageCount() const { return m_messages.size(); }

    /// The messages that are sent in this simulation step.
    const std::vector<std::size_t>& due(long step) const
    {
        return m_due[static_cast<std::size_t>(step) % m_due.size()];
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
        std::uint32_t identifier = 0; ///< as sent, with its flag
        std::uint16_t kind = 0;
        std::uint8_t channel = 0;
        int period = 1; ///< in steps
        int phase = 0;
        std::vector<Field> fields;
    };

    bool addParameter(const ProfileParameter& parameter, const QString& device, QString* error);
    void spread();
    static std::uint32_t rawValue(const Field& field, double value);

    std::vector<Message> m_messages;             ///< in profile order
    std::vector<std::vector<std::size_t>> m_due; ///< by step, as long as the longest period
};

} // namespace KOLT::SampleCard
