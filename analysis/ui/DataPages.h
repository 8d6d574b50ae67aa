#pragma once

#include "ui/DataPage.h"

#include <QObject>

#include <array>
#include <initializer_list>

class QWidget;

namespace KOLT {

/// The pages of the data window. Passes data, changes and times to them, and tells each when it is
/// shown or hidden.
class DataPages : public QObject
{
public:
    enum class Page {
        Table,
        Graph,
        FaultMatrix,
        Limit,
        WarningLamps,
        Statistic,
        EmuView,
        Map ///< has no tab: it lies beside or below the others
    };

    static constexpr std::size_t count = 8;

    /// A page as both of what it is.
    struct Hosted
    {
        DataPage* page = nullptr;
        QWidget* widget = nullptr;
    };

    /// Adopts the page's widget and returns the widget to show: itself, or a note if it needs
    /// OpenGL and there is none.
    QWidget* add(Page page, const Hosted& hosted, QWidget* parent);

    const DataPage& operator[](Page page) const { return *m_pages[index(page)].page; }

    /// Null drops the data.
    void setData(const DataSet* dataSet);
    void refresh(DataPage::Changes changes);
    void setTime(double seconds, std::initializer_list<Page> except);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static std::size_t index(Page page) { return static_cast<std::size_t>(page); }

    std::array<Hosted, count> m_pages;
};

} // namespace KOLT
