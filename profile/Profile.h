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

/// The active parameter profile: what the recording unit sends, and how it is read, named, graded
/// and classified, for one aircraft variant.
///
/// Pointers that the queries hand out stay valid until the next `loadProfil` and no longer.
/// A file that cannot be used leaves an empty profile. Bad content (unknown types, missing lists,
/// numbers that are none) never fails a load: the attribute takes its default.
class Profile
{
public:
    Profile() = default;
    Profile(const Profile&) = delete;
    Profile& operator=(const Profile&) = delete;

    /// Reads the profile for the named variant; elements of other variants are skipped. An empty
    /// variant takes every element. False when the file cannot be read, is no XML, or has another
    /// root than "KorvanProfile".
    bool loadProfil(const QString& path, const QString& activeVariant);

    /// Reads only the list of variants.
    bool loadVariants(const QString& path);

    const QString& version() const { return m_version; }

    const QString& profileId() const { return m_profileId; }

    const QString& name() const { return m_name; }

    const QString& comment() const { return m_comment; }

    const QString& activeVariant() const { return m_activeVariant; }

    const std::vector<Variant>& variants() const { return m_variants; }

    /// Whether the variants that loadVariants() found know the name; true where there are none.
    bool hasVariant(const QString& name) const;
    /// The variant to load where one is only remembered: it, or else the first of the file. With a
    /// variant that the file does not have, nearly nothing of it would be loaded.
    QString variantOrFirst(const QString& name) const;

    /// Another number after each load, of all profiles of the process: what was worked out with the
    /// parameters of another revision is stale.
    std::uint64_t revision() const { return m_revision; }

    UnitSystem unitSystem() const { return m_unitSystem; }

    void setUnitSystem(UnitSystem system) { m_unitSystem = system; }

    /// Devices in file order; each is a parameter group.
    const std::vector<Device>& devices() const { return m_devices; }

    const std::vector<ErrorMatrix>& errorMatrices() const { return m_errorMatrices; }

    /// All parameters in file order.
    const std::deque<ProfileParameter>& parameters() const { return m_parameters; }

    /// Parameters that share a message identifier, in file order; empty when there are none.
    const std::vector<const ProfileParameter*>& parametersById(int id) const;
    /// By "Device/Name"; the first in file order, null when unknown.
    const ProfileParameter* parameterByFullName(const QString& fullName) const;
    /// Parameters with the role, in file order.
    const std::vector<const ProfileParameter*>& parametersByRole(const QString& role) const;
    /// The first parameter with the role, null when there is none.
    const ProfileParameter* parameterByRole(const QString& role) const;
    const EnumList* enumList(int id) const;
    const Threshold* threshold(int id) const;

    /// The value in the active unit system: value * factor + offset where the system is imperial
    /// and the profile defines the parameter's pair of units, the value itself otherwise.
    double convertUnit(const ProfileParameter& parameter, double value) const;
    /// True where `convertUnit` converts a decoded value of this parameter (only FLOAT values are).
    bool isConverted(const ProfileParameter& parameter) const;
    /// The label that fits the number shown: the imperial one only where the value is converted.
    const QString& unitLabel(const ProfileParameter& parameter) const;

    /// Sets the selected flag of every parameter that satisfies the predicate, and clears all
    /// others.
    template <typename Predicate>
    void select(Predicate&& isSelected)
    {
        for (ProfileParameter& parameter : m_parameters)
            parameter.selected = isSelected(std::as_const(parameter));
    }

    /// The order in which selected parameters are shown, by full names; those that are not named
    /// follow in their own order.
    void setDisplayOrder(const QStringList& fullNames) { m_displayOrder = fullNames; }

    /// The selected parameters in display order, by default device by device and in name order.
    std::vector<const ProfileParameter*> selectedParameters() const;

    /// Whether an element's `variant` attribute takes it for the active variant: a comma-separated
    /// list of names, those with a leading "!" excluded.
    static bool matchesVariant(const QString& activeVariant, const QString& attribute);

private:
    friend class ProfileReader;

    void clear();

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
    std::map<QString, std::vector<const ProfileParameter*>> m_parametersByRole;
    QHash<QString, const ProfileParameter*> m_parametersByFullName;
};

} // namespace KOLT
