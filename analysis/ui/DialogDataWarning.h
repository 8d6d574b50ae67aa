#pragma once

#include "analysis/ui/DialogEventList.h"

namespace KOLT {

/// The "Warning Lamps" page: the moments when warning lamps came on.
class DialogDataWarning : public DialogEventList
{
    Q_OBJECT

public:
    explicit DialogDataWarning(const Profile& profile, QWidget* parent = nullptr)
        : DialogEventList(profile, EventScope::WarningLamps, tr("Warning Lamps"), parent)
    {
    }
};

} // namespace KOLT
