#pragma once

namespace KOLT {

struct DataSet;

/// Interface of the pages of the data window: each takes a data set and the current time.
///
/// Work for a hidden page is deferred until it is shown; only dropData() is called at once, as the
/// data set may be gone afterwards. setTime() never makes a page report a time.
class DataPage
{
public:
    DataPage() = default;
    DataPage(const DataPage&) = delete;
    DataPage& operator=(const DataPage&) = delete;
    virtual ~DataPage() = default;

    /// Sets the data set, which must live until the next call or clear(). Null: none.
    void setData(const DataSet* dataSet)
    {
        dropData();
        m_dataSet = dataSet;
        refresh();
    }

    void clear() { setData(nullptr); }

    /// The selected parameters or the units have changed.
    void refresh()
    {
        m_isDataPending = true;
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
    /// Drops all pointers into the data set and the profile.
    virtual void dropData() = 0;
    /// Shows the data set, which may be null, with the current selection and units.
    virtual void showData() = 0;
    /// Moves to time(); also called after showData().
    virtual void showTime() = 0;

    /// The page itself moved to this time and shows it already.
    void keepTime(double seconds) { m_seconds = seconds; }

private:
    void catchUp()
    {
        if (!m_isShown)
            return;
        if (m_isDataPending) {
            m_isDataPending = false;
            showData();
        }
        if (m_isTimePending) {
            m_isTimePending = false;
            showTime();
        }
    }

    const DataSet* m_dataSet = nullptr;
    double m_seconds = 0.0;
    bool m_isShown = false;
    bool m_isDataPending = false;
    bool m_isTimePending = false;
};

} // namespace KOLT
