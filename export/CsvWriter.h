#pragma once

#include "export/ExportOptions.h"
#include "export/ExportProgress.h"
#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/SampleSpan.h"

#include <vector>

class QIODevice;

namespace KOLT {

/// Writes a data set as a table (docs/exports.md): one row per time step from the first to the last
/// sample, with date, clock, seconds and the value of each parameter at that time.
///
/// Rows are streamed, so memory use does not depend on their number. Profile and data set must
/// outlive the writer unchanged.
class CsvWriter
{
public:
    /// write() fails with more rows than this.
    static constexpr qint64 maxRows = 20'000'000;

    CsvWriter(const Profile& profile, const DataSet& dataSet, const CsvOptions& options);
    /// `span` is the result of sampleSpan(), for callers that try several options.
    CsvWriter(const Profile& profile, const DataSet& dataSet, const CsvOptions& options,
              const std::optional<SampleSpan>& span);

    /// Rows below the header; 0 if no sample has a usable time. May exceed maxRows.
    qint64 rowCount() const { return m_rowCount; }

    /// Number of parameter columns.
    std::size_t parameterCount() const { return m_parameters.size(); }

    /// Size of the file in bytes, estimated from a few samples per parameter. O(parameters).
    double estimatedBytes() const;

    /// Writes the whole table. Fails without writing anything if there are no rows, more than
    /// maxRows or options that conflict.
    ExportStatus write(QIODevice& device, const ExportProgress& progress = {}) const;

private:
    std::string header() const;
    double secondsOf(qint64 row) const;

    const Profile& m_profile;
    const DataSet& m_dataSet;
    CsvOptions m_options;
    SampleSpan m_span;
    std::vector<const ProfileParameter*> m_parameters;
    qint64 m_rowCount = 0;
};

} // namespace KOLT
