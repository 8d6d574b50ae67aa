#pragma once

class QTextDocument;

namespace KOLT {

/// Starts a new page before a heading that would stand at the foot of a page, and before an entry
/// (a heading of the third level with what belongs to it) that would be cut by the end of a page
/// although it fits on one. For a document with a page size and a layout.
void keepTogether(QTextDocument& document);

} // namespace KOLT
