#pragma once

#include <QDomElement>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace KOLT {

/// An element of a profile file with what it is called.
struct CheckedElement
{
    QDomElement element;
    QString fullName; ///< of parameters: with the device

    QString text(const char* attribute) const;
    /// A whole number, 0 for anything else.
    int number(const char* attribute) const;
    std::vector<QDomElement> children(const char* name) const;
};

/// The elements of a profile file by their kinds, in file order, those of all variants.
class CheckedElements
{
public:
    explicit CheckedElements(const QDomElement& root);

    /// The names of the variants; one empty name if there are none.
    const QStringList& variants() const { return m_variants; }

    const std::vector<CheckedElement>& parameters() const { return m_parameters; }

    const std::vector<CheckedElement>& matrices() const { return m_matrices; }

    const std::vector<CheckedElement>& units() const { return m_units; }

    const std::vector<CheckedElement>& enumerations() const { return m_enumerations; }

    const std::vector<CheckedElement>& thresholds() const { return m_thresholds; }

    /// Calls the function for the root and all elements below it.
    void forAll(const std::function<void(const QDomElement&)>& function) const;

    /// Whether an element and all around it apply to a variant.
    static bool isIn(const QDomElement& element, const QString& variant);

private:
    std::vector<CheckedElement> entriesOf(const char* list, const char* entry) const;

    QDomElement m_root;
    QStringList m_variants;
    std::vector<CheckedElement> m_parameters;
    std::vector<CheckedElement> m_matrices;
    std::vector<CheckedElement> m_units;
    std::vector<CheckedElement> m_enumerations;
    std::vector<CheckedElement> m_thresholds;
};

} // namespace KOLT
