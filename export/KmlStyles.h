#pragma once

#include "export/ExportOptions.h"

class QXmlStreamWriter;

namespace KOLT {

/// Writes the styles of a KML document, "path", "curtain", "place" and "error".
void writeKmlStyles(QXmlStreamWriter& xml, const KmlOptions& options);

} // namespace KOLT
