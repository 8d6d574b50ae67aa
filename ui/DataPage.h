#pragma once

#include <QFlags>

#include <utility>

namespace KOLT {

struct DataSet;

/// Interface of the pages of the data window: each takes a data set and the current time.
///
/// Work for a hidden page is deferred until it is shown; only dropData() is called at once, as the
/// data set may be gone afterwards. setTime() never makes a page report a time.
class DataPage
{
public:
    /// What a page may have to show again.
    enum class Change {
        Data = 1,      ///< another data set or none; the profile may have been loaded again too
        Selection = 2, ///< the selected parameters, or their order
        Units = 4,
        Font = 8
    };
    Q_DECLARE_FLAGS(Changes, Change)

    DataPage() = default;
    DataPage(const DataPage&) = delete;
    DataPage& operator=(const DataPage&) = delete;
    virtual ~DataPage() = default;

    /// Sets the data set, which must live until the next call or clear(). Null: none.
    void setData(const DataSet* dataSet)
    {
        dropData();
        m_dataSet = dataSet;
        refresh(Change::Data);
    }

    void clear() { setData(nullptr); }

    /// Tells the page what has changed; it catches up at once if it is visible.
    void refresh(Changes changes)
    {
        m_changes |= changes;
        m_isTimePending = true;
        catchUp();
    }

    /// Seconds of the unit's counter, as in the data set.
    void setTime(double seconds)
    {
        m_seconds = seconds;
        m_isTimePending = true;
        catchUp();
    }

    const DataSet* dataSet() const { return m_dataSet; }

    double time() const { return m_seconds; }

    /// Whether the page is visible; initially hidden.
    void setShown(bool isShown)
    {
        m_isShown = isShown;
        catchUp();
    }

protected:
    /// Forgets all pointers into the data set and the profile.
    virtual void dropData() = 0;
    /// Shows what follows from the changes since the last call. The data set may be null.
    virtual void showData(Changes changes) = 0;
    /// Goes to time(). Called after showData() too.
    virtual void showTime() = 0;

    /// The page itself went to this time.
    void keepTime(double seconds) { m_seconds = seconds; }

private:
    void catchUp()
    {
        if (!m_isShown)
            return;
        if (m_changes != Changes())
            showData(std::exchange(m_changes, {}));
        if (std::exchange(m_isTimePending, false))
            showTime();
    }

    const DataSet* m_dataSet = nullptr;
    double m_seconds = 0.0;
    bool m_isShown = false;
    Changes m_changes; ///< not shown yet
    bool m_isTimePending = false;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(DataPage::Changes)

} // namespace KOLT
