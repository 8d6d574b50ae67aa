#pragma once

#include "export/ExportOptions.h"

namespace KOLT {

class XmlExport;

/// Writes the styles "path", "curtain", "place", "error" (LIMIT) and "warning" of a KML document.
void writeKmlStyles(XmlExport& xml, const KmlOptions& options);

} // namespace KOLT
