#pragma once

#include "record/CardContainer.h"

#include <QString>
#include <QStringList>

#include <optional>

/// A case: what was recorded around a finding, in a folder of its own that opens like a card. It is
/// told from a card by the note beside the record file (docs/formats/record-file.md).
namespace KOLT {

struct CaseRequest
{
    int cycle = 0;
    double from = 0.0; ///< seconds on the counter, both ends included
    double to = 0.0;
    QString folder;      ///< must not exist, or be empty
    QString zip;         ///< in place of a folder: a file that must not exist
    QString profilePath; ///< copied beside; may be empty
    QString variant;
    QStringList selection; ///< full names of the chosen parameters
    QByteArray project;    ///< the selection as a project file, put beside; may be empty
    QString remark;        ///< for people; may be empty
};

struct CaseResult
{
    QString error; ///< for the user; empty on success
    std::size_t samples = 0;
};

/// Writes the samples of a cycle within the time bit for bit into one new record file, with the
/// header of the file that they begin in and the cycle's date for counter 0, so that clock times
/// are those of the card. Creates files only; what
/// was begun is removed on failure. The folder of the card stays protected.
CaseResult writeCase(const CardContainer& card, const CaseRequest& request);

/// The note of a case.
struct CaseNote
{
    QString file; ///< name of the record file
    double from = 0.0;
    double to = 0.0;
    QStringList sources; ///< names of the files that it was cut from
};

/// The note in a folder; none where there is none, or it cannot be read.
std::optional<CaseNote> readCaseNote(const QString& folder);

} // namespace KOLT
