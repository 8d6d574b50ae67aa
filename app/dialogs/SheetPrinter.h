#pragma once

#include <QString>

class QPagedPaintDevice;

namespace KOLT {

/// Prints a page of HTML on paper or into a PDF, in a size that is read at arm's length: the fonts
/// of the windows are in pixels, which are tiny on a printer. Margins of 2 cm within the device's
/// own, with page numbers.
void printSheet(const QString& html, QPagedPaintDevice& device);

} // namespace KOLT
