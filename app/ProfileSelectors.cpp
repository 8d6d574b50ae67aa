#include "app/ProfileSelectors.h"

#include "app/Selector.h"
#include "profile/Profile.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QToolBar>

namespace KOLT {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::ProfileSelectors)
};

Selector* add(QToolBar& toolBar, const QString& name, const QString& tip)
{
    auto* const selector = new Selector(&toolBar);
    selector->setObjectName(name);
    selector->setToolTip(tip);
    toolBar.addWidget(selector);
    return selector;
}

} // namespace

ProfileSelectors::ProfileSelectors(QToolBar& toolBar)
    : m_variant(add(toolBar, QStringLiteral("profileSelector"),
                    Text::tr("Variant of the parameter profile")))
    , m_units(add(toolBar, QStringLiteral("unitSelector"), Text::tr("Unit system")))
{
    m_units->addItem(Text::tr("Metric"), QStringLiteral("0"));
    m_units->addItem(Text::tr("Imperial"), QStringLiteral("1"));
}

void ProfileSelectors::refresh(const Profile& profile)
{
    m_variant->clear();
    for (const Variant& variant : profile.variants()) {
        QPixmap swatch(12, 12);
        swatch.fill(variant.color);
        m_variant->addItem(swatch, variant.name);
    }
    m_variant->setCurrentText(profile.activeVariant());
    m_variant->setEnabled(m_variant->count() > 0);
    m_units->setCurrentIndex(static_cast<int>(profile.unitSystem()));
}

} // namespace KOLT
