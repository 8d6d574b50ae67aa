#pragma once

#include "export/ExportOptions.h"
#include "export/ExportProgress.h"
#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/SampleSpan.h"

#include <vector>

class QIODevice;

namespace KOLT {

/// Writes a data set as a table (docs/exports.md): one row per time step from its first to its last
/// sample, with date, clock, seconds and the value of each parameter that held at that time.
///
/// The rows are streamed: memory does not grow with their number. A cell is decoded only when its
/// sample changes. Profile and data set must outlive the writer and stay as they are.
class CsvWriter
{
public:
    /// More rows than this are not written.
    static constexpr qint64 maxRows = 20'000'000;

    CsvWriter(const Profile& profile, const DataSet& dataSet, const CsvOptions& options);
    /// `span` as sampleSpan() finds it, for those who look at many options.
    CsvWriter(const Profile& profile, const DataSet& dataSet, const CsvOptions& options,
              const std::optional<SampleSpan>& span);

    /// Rows below the header; 0 where no sample has a usable time. May exceed maxRows.
    qint64 rowCount() const { return m_rowCount; }

    /// The columns of parameters.
    std::size_t parameterCount() const { return m_parameters.size(); }

    /// Bytes of the file, estimated from a few samples of each parameter. O(parameters).
    double estimatedBytes() const;

    /// Writes everything from the byte-order mark to the last row. Failed too when there are no
    /// rows or more than maxRows, or the options do not fit together; nothing is written then.
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
