#pragma once

#include "analysis/ui/DialogEventList.h"

namespace KOLT {

/// The "Limit/Warning" page: the exceedances of all parameters.
class DialogDataLimit : public DialogEventList
{
    Q_OBJECT

public:
    explicit DialogDataLimit(const Profile& profile, QWidget* parent = nullptr)
        : DialogEventList(profile, EventScope::AllParameters, tr("Warning/Limit Exceed"), parent)
    {
    }
};

} // namespace KOLT
