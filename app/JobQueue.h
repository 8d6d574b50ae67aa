#pragma once

#include <algorithm>
#include <deque>
#include <functional>

namespace KOLT {

/// Runs jobs one after the other. A long job may process events to keep the window responsive: a
/// job that is added meanwhile waits until the running one has returned.
class JobQueue
{
public:
    using Job = std::function<void()>;

    /// Runs the job at once, or after the running and the waiting ones.
    void run(Job job) { add({std::move(job), Kind::Ordinary}); }

    /// Kinds other than Ordinary supersede waiting jobs of the same kind.
    enum class Kind { Ordinary, Choice, Reload };

    /// Like run(), but drops waiting jobs of the same kind first.
    void runLatest(Kind kind, Job job)
    {
        dropWaiting(kind);
        add({std::move(job), kind});
    }

    /// Discards waiting jobs of this kind.
    void dropWaiting(Kind kind)
    {
        std::erase_if(m_waiting, [kind](const Entry& entry) { return entry.kind == kind; });
    }

    bool isBusy() const { return m_isBusy; }

private:
    struct Entry
    {
        Job job;
        Kind kind = Kind::Ordinary;
    };

    void add(Entry entry)
    {
        m_waiting.push_back(std::move(entry));
        if (m_isBusy)
            return;
        m_isBusy = true;
        while (!m_waiting.empty()) {
            const Job job = std::move(m_waiting.front().job);
            m_waiting.pop_front();
            job();
        }
        m_isBusy = false;
    }

    std::deque<Entry> m_waiting;
    bool m_isBusy = false;
};

} // namespace KOLT
