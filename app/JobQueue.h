#pragma once

#include <algorithm>
#include <deque>
#include <functional>

namespace KOLT {

/// Runs jobs one after the other. A long job keeps the window alive by handling events, and what
/// the user asks for meanwhile waits until it has ended; nothing is lost and nothing runs inside
/// it.
class JobQueue
{
public:
    using Job = std::function<void()>;

    /// Runs the job now, or behind the one that runs.
    void run(Job job) { add({std::move(job), Kind::Ordinary}); }

    /// Jobs of which only the latest of each kind counts.
    enum class Kind { Ordinary, Choice, Reload };

    /// The same for a kind of which only the latest counts: it takes the place of an earlier one
    /// that still waits.
    void runLatest(Kind kind, Job job)
    {
        dropWaiting(kind);
        add({std::move(job), kind});
    }

    /// What was asked for meanwhile no longer makes sense.
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
