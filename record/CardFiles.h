#pragma once

#include "record/CardContainer.h"
#include "record/CaseFile.h"

#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace KOLT {

/// What a record file shows without its samples being decoded: header, both ends and size. Seconds
/// on the unit's counter.
struct FileFacts
{
    QString name;
    RecordInfo info;
    qint64 bytes = 0;
    bool isReadable = false;
    double headerSeconds = 0.0; ///< 0: the unit does not tell
    double firstSeconds = 0.0;  ///< a single stray time at an end does not count
    double lastSeconds = 0.0;
    std::uint64_t firstTicks = 0; ///< as they stand
    std::uint64_t lastTicks = 0;
    QString stem;                ///< the name without number and suffix
    std::optional<int> number;   ///< at the end of the name
    QString copyOf;              ///< the file whose bytes it repeats; empty for nearly all
    std::optional<double> clock; ///< seconds since 1970 at counter 0, by its own header's date

    bool hasSamples() const { return isReadable && info.sampleCount > 0; }

    /// Whether it ends in the midst of its header or of a sample.
    bool isCut() const;
};

/// The files of a card as far as trust needs them. Made once for a folder; costs two short reads
/// for each file, and reads files whole only where they look like copies of each other.
class CardFiles
{
public:
    explicit CardFiles(const CardContainer& card);

    /// In name order.
    const std::vector<FileFacts>& all() const { return m_files; }

    /// Null when the folder has no such file.
    const FileFacts* find(const QString& name) const;

    /// The number of the cycle that consists of these files; none for any other choice of files.
    std::optional<int> cycleOf(const std::vector<QString>& names) const;

    const std::map<int, Cycle>& cycles() const { return m_cycles; }

    /// Whether files are missing between the numbers of two files. Never where the names of the
    /// folder do not count up.
    bool isNumberMissing(const FileFacts& before, const FileFacts& after) const;

    /// The note of a case, when the folder holds one instead of a card's files.
    const std::optional<CaseNote>& caseNote() const { return m_caseNote; }

    /// From the start of a file to that of the next, as most files of the folder have it; 0 where
    /// too few tell.
    double usualSeconds() const { return m_usualSeconds; }

private:
    void findCopies(const CardContainer& card);
    void lookAtNumbers();
    void lookAtLengths();

    std::vector<FileFacts> m_files;
    std::map<int, Cycle> m_cycles;
    bool m_isNumbered = false;
    std::set<std::pair<QString, int>> m_numbers; ///< stems with numbers that are there
    double m_usualSeconds = 0.0;
    std::optional<CaseNote> m_caseNote;
};

} // namespace KOLT
