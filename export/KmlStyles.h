#pragma once

#include "export/ExportOptions.h"

class QXmlStreamWriter;

namespace KOLT {

/// Writes the styles "path", "curtain", "place" and "error" of a KML document.
void writeKmlStyles(QXmlStreamWriter& xml, const KmlOptions& options);

} // namespace KOLT
