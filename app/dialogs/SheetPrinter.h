#pragma once

#include <QByteArray>
#include <QString>

class QPagedPaintDevice;

namespace KOLT {

/// Prints HTML on paper or into a PDF with a font of 9.5 points; the windows' fonts are set in
/// pixels, which would be tiny on a printer. Adds page numbers and margins of 2 cm within the
/// device's own.
void printSheet(const QString& html, QPagedPaintDevice& device);

/// A PDF file on landscape A4, or Letter where the system's measurement units are American.
QByteArray sheetPdf(const QString& html, const QString& title);

} // namespace KOLT
