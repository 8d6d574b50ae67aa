#pragma once

#include <QCoreApplication>

namespace KOLT {

/// Context of the translated texts in exported files.
struct ExportText
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::Export)
};

} // namespace KOLT
