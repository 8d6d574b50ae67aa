#pragma once

#include "analysis/Replay.h"

#include <QIcon>
#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>
#include <initializer_list>

class QBoxLayout;
class QButtonGroup;
class QDateTime;
class QDoubleSpinBox;
class QGridLayout;
class QLCDNumber;
class QLabel;
class QSlider;
class QSplitter;
class QStackedWidget;
class QTabBar;
class QTime;
class QTimeEdit;
class QToolButton;

namespace KOLT {

class DataPage;
class DialogEventList;
class Profile;
struct DataSet;
struct ListSettings;

/// Of a time that there is not.
constexpr QLatin1String noDate{"--.--.---- --:--:--"};
constexpr QLatin1String noTime{"--:--:--.---"};

/// The date and time of a moment, to a second; dashes where the recording has none.
QString dateTimeText(const QDateTime& start, double seconds);

/// The time on the unit's counter, to a millisecond.
QString counterText(double seconds);

/// The analysis area: seven pages behind tabs, the map beside them, and the replay.
///
/// Owns the one current time of the data set. Whatever moves it, a page or a control, only reports
/// the time; this window passes it on to the others and writes its own controls.
class DialogData : public QWidget
{
    Q_OBJECT

public:
    enum class Page {
        Table,
        Graph,
        FaultMatrix,
        Limit,
        WarningLamps,
        Statistic,
        EmuView,
        Map ///< beside the others, without a tab
    };

    static constexpr std::size_t pageCount = 8;

    /// Wall-clock seconds, for the replay.
    using Clock = std::function<double()>;

    /// A page of another room. The window takes the widget over.
    struct HostedPage
    {
        DataPage* page = nullptr;
        QWidget* widget = nullptr;
    };

    template <typename Widget>
    static HostedPage hosted(Widget* widget)
    {
        return {widget, widget};
    }

    struct HostedPages
    {
        HostedPage graph;
        HostedPage emuView;
        HostedPage map;
    };

    /// EmuOnly: nothing but the instruments, the date and the replay's buttons.
    enum class Display { Full, EmuOnly };

    DialogData(const Profile& profile, const HostedPages& pages, Display display = Display::Full,
               QWidget* parent = nullptr, Clock clock = {});

    /// Data were loaded: shows them from their start. They must stay until clear() or the next
    /// load.
    void setData(const DataSet& dataSet);
    /// Drops the data on every page; before data set or profile go.
    void clear();
    /// The same, and shows the text in place of the pages until setData() or clear().
    void beginLoading(const QString& text);
    /// Other parameters are chosen, or other units.
    void refresh();
    void setListSettings(const ListSettings& settings);
    /// Goes to a moment of the data set.
    void setTime(double seconds);

    const DataPage& page(Page page) const { return *m_pages[static_cast<std::size_t>(page)].page; }

    double time() const { return m_replay.time(); }

    void setCurrentPage(Page page);

public slots:
    // In the order of their sources: controls, hosted pages and own pages.
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
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum MapType { hideMap, mapBeside, mapBelow };

    static constexpr int speedSteps = 100; ///< of the speed slider for a factor of 1

    static QIcon icon(const QString& name);

    void createPages(const HostedPages& pages);
    void stripToDisplay();
    void dropData();
    void showCurrentPage();
    void addPage(Page page, HostedPage hosted);
    QBoxLayout* createTopRow();
    QToolButton* createMapButton(int type, const QString& icon, const QString& tip);
    QBoxLayout* createDisplays();
    QGridLayout* createControls();
    QToolButton* createReplayButton();
    void createSpeedControls(QGridLayout* grid);
    void moveTo(double seconds, std::initializer_list<Page> except = {});
    void passTime(std::initializer_list<Page> except = {});
    void refreshDisplays();
    void updateButtons();

    const Profile& m_profile;
    Clock m_clock;
    Replay m_replay;
    const DataSet* m_dataSet = nullptr;
    bool m_isWriting = false; ///< the window writes its own controls
    QTimer* m_timer = nullptr;
    std::array<HostedPage, pageCount> m_pages;
    std::array<DialogEventList*, 2> m_lists{}; ///< of exceedances, and of lamps
    QTabBar* m_tabs = nullptr;
    QButtonGroup* m_mapButtons = nullptr;
    QSplitter* m_splitter = nullptr;
    QStackedWidget* m_stack = nullptr;
    QLabel* m_loading = nullptr; ///< behind the seven pages of the stack
    QLCDNumber* m_dateDisplay = nullptr;
    QLCDNumber* m_timeDisplay = nullptr;
    QToolButton* m_startButton = nullptr;
    QToolButton* m_stopButton = nullptr;
    QSlider* m_slider = nullptr;
    QTimeEdit* m_timeEdit = nullptr;
    QTimer m_typing; ///< runs while a time is typed
    QSlider* m_speedSlider = nullptr;
    QDoubleSpinBox* m_speedBox = nullptr;
};

} // namespace KOLT
