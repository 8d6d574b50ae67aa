#pragma once

#include "library/archive/CardImport.h"

namespace KOLT::Library {

/// "28 of 28 files are safe; 12 were here before", and what it means for the card.
QString sentenceOf(const ImportResult& result);

/// "Copying REC00012.CAN: 12 of 28 files, 21.4 MB/s, about 2 min left".
QString textOf(const ImportProgress& progress);

} // namespace KOLT::Library
