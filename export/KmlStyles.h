#pragma once

#include "export/ExportOptions.h"

namespace KOLT {

class XmlExport;

/// Writes the styles "path", "curtain", "place" and "error" of a KML document.
void writeKmlStyles(XmlExport& xml, const KmlOptions& options);

} // namespace KOLT
