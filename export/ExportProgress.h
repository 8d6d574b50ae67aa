#pragma once

#include <cstddef>
#include <functional>

namespace KOLT {

/// Called with the progress in percent, 0..100; returns false to cancel.
using ExportProgress = std::function<bool(int percent)>;

enum class ExportStatus {
    Done,
    Cancelled,
    Failed ///< nothing to write, or the device did not accept everything
};

/// Counts the steps of an export and reports the progress every few hundred steps.
class ExportMeter
{
public:
    ExportMeter(const ExportProgress& progress, std::size_t steps)
        : m_progress(progress)
        , m_steps(steps)
    {
    }

    /// Counts one step; false once the export was cancelled.
    bool step()
    {
        constexpr std::size_t stepsPerCall = 256;
        if (++m_done % stepsPerCall == 0 && m_progress && !m_isCancelled)
            m_isCancelled = !m_progress(percent());
        return !m_isCancelled;
    }

    bool isCancelled() const { return m_isCancelled; }

private:
    int percent() const
    {
        return static_cast<int>(m_steps > m_done ? m_done * 100 / m_steps : 100);
    }

    const ExportProgress& m_progress;
    std::size_t m_steps;
    std::size_t m_done = 0;
    bool m_isCancelled = false;
};

} // namespace KOLT
