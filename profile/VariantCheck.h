#pragma once

#include "profile/CheckedElements.h"

#include <functional>
#include <map>

namespace KOLT {

/// The part of checkProfile() that looks at what one variant loads.
class VariantCheck
{
public:
    /// Called with what a finding is about, and its sentence.
    using Add = std::function<void(const QDomElement& element, const QString& text)>;

    VariantCheck(const QDomElement& root, const CheckedElements& elements, QString variant,
                 Add add);

    void run() const;

private:
    void checkSteps() const;
    void checkNames() const;
    void checkBitFields() const;
    void checkRoles() const;
    void checkQuantities() const;

    QDomElement m_root;
    const CheckedElements& m_elements;
    QString m_variant;
    Add m_add;
    std::vector<CheckedElement> m_parameters;
};

} // namespace KOLT
