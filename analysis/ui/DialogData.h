#pragma once

#include "analysis/GraphTarget.h"
#include "analysis/PageSettings.h"
#include "analysis/Replay.h"
#include "analysis/ui/DataPages.h"

#include <QMap>
#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>
#include <initializer_list>
#include <memory>

class QBoxLayout;
class QButtonGroup;
class QLabel;
class QStackedLayout;
class QStackedWidget;
class QTime;
class QToolButton;

namespace KOLT {

class DialogDataStatistic;
class DialogDataTable;
class DialogEventList;
class EpisodeView;
class MapSplitter;
class PageTabs;
class Profile;
class WidgetTimeTable;
class ReplayBar;
class WidgetFaultMatrix;
struct ListSettings;
struct RecordingTrust;

/// The analysis area: seven pages behind tabs, the map beside them, and the replay.
///
/// Owns the current time of the data set. Pages and controls report the time that the user picks;
/// this window passes it on to the other pages and to its controls.
class DialogData : public QWidget
{
    Q_OBJECT

public:
    using Page = DataPages::Page;
    using HostedPage = DataPages::Hosted;

    static constexpr std::size_t pageCount = DataPages::count;

    /// Returns wall-clock seconds, for the replay.
    using Clock = std::function<double()>;

    template <typename Widget>
    static HostedPage hosted(Widget* widget)
    {
        return {widget, widget};
    }

    /// A card below a list, as both of what it is.
    struct HostedCard
    {
        EpisodeView* view = nullptr;
        QWidget* widget = nullptr;
    };

    /// The pages and cards of other rooms. The window takes ownership of the widgets.
    struct HostedPages
    {
        HostedPage graph;
        HostedPage emuView;
        HostedPage map;
        std::array<HostedCard, 2> cards{}; ///< below the exceedances and below the lamps; or none
    };

    /// EmuOnly shows only the instruments, the date and the replay buttons.
    enum class Display { Full, EmuOnly };

    DialogData(const Profile& profile, const HostedPages& pages, Display display = Display::Full,
               QWidget* parent = nullptr, Clock clock = {});

    /// Shows a data set from its start. It must stay valid until clear() or the next call.
    void setData(const DataSet& dataSet);
    /// Drops the data on every page. To be called before data set or profile are deleted.
    void clear();
    /// Like clear(), and shows the text in place of the pages until setData() or clear().
    void beginLoading(const QString& text);
    /// To be called after such a change.
    void refresh(DataPage::Changes changes);
    void setListSettings(const ListSettings& settings);
    void setPageSettings(const PageSettings& settings);
    /// Shows what is found in the data set, until other data are set.
    void setTrust(const std::shared_ptr<const RecordingTrust>& trust);
    /// Goes to a moment of the data set.
    void setTime(double seconds);

    /// How the user has arranged page and map.
    struct Arrangement
    {
        Page page = Page::Table;
        int map = 1;                ///< as for slotMapType()
        QList<int> sizes;           ///< of page and map, as proportions; empty: the first ones
        QMap<QString, int> columns; ///< chosen widths in the data table, by name
    };

    Arrangement arrangement() const;
    void arrange(const Arrangement& arrangement);

    const DataPage& page(Page page) const { return m_pages[page]; }

    double time() const { return m_replay.time(); }

    /// Shows a page, also in place of the front.
    void setCurrentPage(Page page);

    /// Like setCurrentPage(), and gives the page the focus if a page had it.
    void goToPage(Page page);

    /// Starts, pauses or resumes the replay, if there are data.
    void toggleReplay();

    /// Moves the time, within the data.
    void stepTime(double seconds);

    /// Takes a bar that is shown above the pages, below the tabs. The window takes ownership.
    void addBar(QWidget* bar);

    /// Takes a widget that can be shown in front of pages and map, by the user with a button beside
    /// the tabs. The window takes ownership.
    void setFront(QWidget* front);

    /// Shows the front, or the pages. The pages also come back when a tab is clicked, or data are
    /// loaded.
    void showFront(bool isShown);

signals:
    /// The user wants to see what is found: a finding by its index, or all (-1).
    void signalFinding(int finding);
    /// The user has changed the arrangement.
    void signalArranged();
    /// A hidden map is shown again, or the map has changed sides.
    void signalMapPlaced();
    /// The user wants to see an exceedance, lamp or fault in the graph.
    void signalShowInGraph(const KOLT::GraphTarget& target);
    /// The user changed them.
    void signalPageSettings(const KOLT::PageSettings& settings);

public slots:
    // In the order of their senders: controls, hosted pages, own pages.
    void slotTimeoutReplay();
    void slotReplayMode();
    void slotReplayStop();
    void slotMapType(int type);
    void slotSlider(int position);
    void slotReplaySpeed(int percent);
    void slotReplaySpeed(double speed);
    void slotValue(const QTime& time);
    void slotCursor(float seconds, double value);
    void slotTableTime(double seconds);
    void slotLimitTime(double seconds);
    void slotWarningTime(double seconds);
    void slotMapTime(double seconds);
    void slotFaultTime(double seconds);

protected:
    void changeEvent(QEvent* event) override;

private:
    QBoxLayout* createTopRow();
    QToolButton* createMapButton(int type, const QString& icon, const QString& tip);
    void createPages(const Profile& profile, const HostedPages& pages);
    void connectPages();
    void createReplayBar(Display display);
    bool hasData() const;
    void dropData();
    void createFrontButton(QBoxLayout& row);
    void showCurrentPage();
    void moveTo(double seconds, std::initializer_list<Page> except = {});

    Clock m_clock;
    Replay m_replay;
    QTimer m_timer;
    DataPages m_pages;
    std::array<DialogEventList*, 2> m_lists{}; ///< exceedances, and lamps
    PageSettings m_pageSettings;
    DialogDataTable* m_table = nullptr;
    WidgetFaultMatrix* m_faults = nullptr;
    DialogDataStatistic* m_statistic = nullptr;
    WidgetTimeTable* m_columns = nullptr; ///< the data table's view
    PageTabs* m_tabs = nullptr;
    QButtonGroup* m_mapButtons = nullptr;
    MapSplitter* m_splitter = nullptr;
    QStackedWidget* m_stack = nullptr;
    QLabel* m_loading = nullptr; ///< last in the stack, after the seven pages
    ReplayBar* m_bar = nullptr;
    QStackedLayout* m_area = nullptr; ///< pages and map, and the front if there is one
    QToolButton* m_frontButton = nullptr;
};

} // namespace KOLT
