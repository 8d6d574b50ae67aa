#pragma once

#include "library/ledger/LogbookRecords.h"

namespace KOLT::Library {

/// A recording's file as notes know it, wherever it lies and however it was sorted into cycles.
struct NotedFile
{
    QString name;
    QString key;        ///< as recordingKey(); empty: it cannot be read
    QDateTime dateTime; ///< of counter 0 by the unit's clock; may be invalid
};

/// Whether a note is about something in this file. The begin of the file decides, so that copies,
/// and longer or shorter versions of it have the same notes; runs of the engine that begin alike
/// are told apart by name or date.
bool isAbout(const NotePlace& place, const NotedFile& file);

} // namespace KOLT::Library
