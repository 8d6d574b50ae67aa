#pragma once

#include "report/EngineReport.h"

#include <QPageLayout>

class QPagedPaintDevice;

namespace KOLT {

/// Whether any font is installed: without one, pages would be empty.
bool canPrintReports();

/// Portrait pages of this paper.
QPageLayout reportPage(QPageSize::PageSizeId paper);

/// Prints all pages on the device's paper, within its margins, with page numbers. Graphs are
/// vectors.
void printReport(const EngineReport& report, QPagedPaintDevice& device);

/// The report as a PDF file. The same report gives the same bytes, but for the entry CreationDate.
QByteArray reportPdf(const EngineReport& report, QPageSize::PageSizeId paper);

} // namespace KOLT
