#pragma once

#include <QString>

namespace KOLT::Library {

struct ArchiveSettings
{
    QString folder; ///< of the library; empty before the first import
};

} // namespace KOLT::Library
