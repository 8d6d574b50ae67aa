#include "analysis/WidgetEmptyPage.h"

#include <QLabel>
#include <QVBoxLayout>

namespace KOLT {

WidgetEmptyPage::WidgetEmptyPage(const QString& title, QWidget* parent)
    : QWidget(parent)
{
    auto* const label = new QLabel(tr("%1 is not part of this version.").arg(title), this);
    label->setObjectName(QStringLiteral("emptyState"));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(label);
}

} // namespace KOLT
