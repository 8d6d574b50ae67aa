#pragma once

namespace KOLT {

struct DataSet;

/// What every page of the data window can do: take a data set, drop it, and take the current time.
///
/// Work is put off while a page is hidden and done once when it appears; only dropping happens at
/// once, as the data set is gone afterwards. Telling a page a time never makes it report one.
class DataPage
{
public:
    DataPage() = default;
    DataPage(const DataPage&) = delete;
    DataPage& operator=(const DataPage&) = delete;
    virtual ~DataPage() = default;

    /// Takes the loaded data set, which must stay until the next call or clear(). Null: none.
    void setData(const DataSet* dataSet)
    {
        dropData();
        m_dataSet = dataSet;
        refresh();
    }

    void clear() { setData(nullptr); }

    /// Shows the same data anew: other parameters are chosen, or other units.
    void refresh()
    {
        m_isDataPending = true;
        m_isTimePending = true;
        catchUp();
    }

    /// Seconds on the scale of the data set.
    void setTime(double seconds)
    {
        m_seconds = seconds;
        m_isTimePending = true;
        catchUp();
    }

    const DataSet* dataSet() const { return m_dataSet; }

    double time() const { return m_seconds; }

    /// Whether the page can be seen; it starts hidden.
    void setShown(bool isShown)
    {
        m_isShown = isShown;
        catchUp();
    }

protected:
    /// Forgets everything that points into the data set or the profile.
    virtual void dropData() = 0;
    /// Shows the data set with the parameters and units of now; it may be null.
    virtual void showData() = 0;
    /// Moves to time(); called after showData() too.
    virtual void showTime() = 0;

    /// The page itself moved to this time, and shows it.
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
