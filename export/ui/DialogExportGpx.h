#pragma once

#include "export/ui/DialogExport.h"

namespace KOLT {

/// Exports the flights as GPX tracks. It has no options.
class DialogExportGpx : public DialogExport
{
    Q_OBJECT

public:
    explicit DialogExportGpx(Source source, QWidget* parent = nullptr);

protected:
    ExportStatus write(QIODevice& device, const ExportProgress& progress) override;
};

} // namespace KOLT
