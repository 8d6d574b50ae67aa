#pragma once

#include "profile/ProfileParameter.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <deque>
#include <map>
#include <utility>
#include <vector>

namespace KOLT {

/// The parameter profile for one aircraft variant: which parameters the recording unit sends, and
/// how they are decoded, named, graded and classified.
///
/// Pointers returned by the queries are valid until the next `loadProfil`. After a failed load the
/// profile is empty. Bad content (unknown types, missing lists, malformed numbers) does not fail a
/// load: the attribute takes its default.
class Profile
{
public:
    Profile() = default;
    Profile(const Profile&) = delete;
    Profile& operator=(const Profile&) = delete;

    /// Reads the profile for the named variant and skips elements of other variants. With an empty
    /// variant nothing is skipped. False when the file cannot be read, is not XML, or has a root
    /// other than "KorvanProfile".
    bool loadProfil(const QString& path, const QString& activeVariant);

    /// Reads only the list of variants.
    bool loadVariants(const QString& path);

    const QString& version() const { return m_version; }

    const QString& profileId() const { return m_profileId; }

    const QString& name() const { return m_name; }

    const QString& comment() const { return m_comment; }

    const QString& activeVariant() const { return m_activeVariant; }

    /// The loaded file.
    const QString& path() const { return m_path; }

    const std::vector<Variant>& variants() const { return m_variants; }

    /// Whether loadVariants() found a variant of this name; true if the file lists no variants.
    bool hasVariant(const QString& name) const;
    /// `name` if the file has that variant, otherwise its first one. For a remembered name, which
    /// may come from another profile: loading an unknown variant would skip most of the file.
    QString variantOrFirst(const QString& name) const;

    /// The engines that the active variant is for, as its wildcard patterns; empty: any. Known
    /// after loadVariants().
    QString engineType() const;

    /// Changes with each load and is unique in the process: results computed with another revision
    /// are stale.
    std::uint64_t revision() const { return m_revision; }

    UnitSystem unitSystem() const { return m_unitSystem; }

    void setUnitSystem(UnitSystem system) { m_unitSystem = system; }

    /// In file order. Each device is also a parameter group.
    const std::vector<Device>& devices() const { return m_devices; }

    const std::vector<ErrorMatrix>& errorMatrices() const { return m_errorMatrices; }

    /// All parameters in file order.
    const std::deque<ProfileParameter>& parameters() const { return m_parameters; }

    /// The parameters of a message identifier, in file order; may be empty.
    const std::vector<const ProfileParameter*>& parametersById(int id) const;
    /// By "Device/Name"; the first in file order, null if there is none.
    const ProfileParameter* parameterByFullName(const QString& fullName) const;
    /// The parameters with a role, in file order; may be empty.
    const std::vector<const ProfileParameter*>& parametersByRole(Role role) const;
    /// The first parameter with a role, null if there is none.
    const ProfileParameter* parameterByRole(Role role) const;
    const EnumList* enumList(int id) const;
    const Threshold* threshold(int id) const;

    /// The value in the active unit system: value * factor + offset if that is imperial and the
    /// profile defines a conversion for the parameter's units, otherwise the value itself.
    double convertUnit(const ProfileParameter& parameter, double value) const;
    /// Whether decoded values of the parameter are converted; only FLOAT values ever are.
    bool isConverted(const ProfileParameter& parameter) const;
    /// The label that fits the number shown: the imperial one only if the value is converted.
    const QString& unitLabel(const ProfileParameter& parameter) const;

    /// Sets each parameter's selected flag to the result of the predicate.
    template <typename Predicate>
    void select(Predicate&& isSelected)
    {
        for (ProfileParameter& parameter : m_parameters)
            parameter.selected = isSelected(std::as_const(parameter));
    }

    /// Sets the order of selectedParameters() by full name. Parameters not in the list follow in
    /// default order.
    void setDisplayOrder(const QStringList& fullNames) { m_displayOrder = fullNames; }

    /// The selected parameters in display order; by default by device, then by name.
    std::vector<const ProfileParameter*> selectedParameters() const;

    /// Whether an element with this `variant` attribute applies to the active variant. The
    /// attribute is a comma-separated list of names; a leading "!" excludes a variant.
    static bool matchesVariant(const QString& activeVariant, const QString& attribute);

    /// Whether an engine is meant by one of the wildcard patterns, which are separated by commas.
    /// Upper and lower case are the same. No patterns mean all engines.
    static bool matchesEngine(const QString& engineType, const QString& patterns);

private:
    friend class ProfileReader;

    void clear();

    QString m_path;
    QString m_version;
    QString m_profileId;
    QString m_name;
    QString m_comment;
    QString m_activeVariant;
    QStringList m_displayOrder;
    UnitSystem m_unitSystem = UnitSystem::Metric;
    std::uint64_t m_revision = 0; ///< 0: never loaded
    std::vector<Variant> m_variants;
    std::map<QString, UnitConversion> m_conversions; ///< by unitMetric + "_" + unitImperial
    std::map<int, EnumList> m_enumLists;
    std::map<int, Threshold> m_thresholds;
    std::vector<ErrorMatrix> m_errorMatrices;
    std::vector<Device> m_devices;
    std::deque<ProfileParameter> m_parameters; ///< a deque, so that pointers stay valid
    std::map<int, std::vector<const ProfileParameter*>> m_parametersById;
    std::map<Role, std::vector<const ProfileParameter*>> m_parametersByRole;
    QHash<QString, const ProfileParameter*> m_parametersByFullName;
};

} // namespace KOLT
