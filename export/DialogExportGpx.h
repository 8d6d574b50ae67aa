#pragma once

#include "export/DialogExport.h"

namespace KOLT {

/// Exports the flights as GPX tracks. There is nothing to choose but the file.
class DialogExportGpx : public DialogExport
{
    Q_OBJECT

public:
    explicit DialogExportGpx(Source source, QWidget* parent = nullptr);

protected:
    void storeOptions() override {}

    ExportStatus write(QIODevice& device, const ExportProgress& progress) override;
};

/// What there is of a path: "4 flights, 6,305 points", or that there is none.
QString pathSummary(const DataSet& dataSet);

} // namespace KOLT
