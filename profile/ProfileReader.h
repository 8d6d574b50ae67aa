#pragma once

#include "profile/Profile.h"

#include <QDomElement>
#include <QHash>

namespace KOLT {

/// Fills an empty Profile from the root element of a profile file.
///
/// Lists and matrices are read before the parameters, so a parameter may refer to a list that comes
/// later in the file.
class ProfileReader
{
public:
    explicit ProfileReader(Profile& profile)
        : m_profile(profile)
    {
    }

    void read(const QDomElement& root);

    static std::vector<Variant> readVariants(const QDomElement& root);

private:
    /// Calls `function` for each child of that name that applies to the active variant.
    template <typename Function>
    void forEach(const QDomElement& parent, const QString& name, Function&& function) const;

    void readUnit(const QDomElement& element);
    void readEnum(const QDomElement& element);
    void readThreshold(const QDomElement& element);
    void readErrorMatrix(const QDomElement& element);
    void readDevice(const QDomElement& element);
    void readParameter(const QDomElement& element, const Device& device);
    void resolve(ProfileParameter& parameter) const;
    void registerParameters();

    Profile& m_profile;
    QHash<QString, int> m_enumIds;      ///< list name to identifier
    QHash<QString, int> m_thresholdIds; ///< list name to identifier
};

} // namespace KOLT
