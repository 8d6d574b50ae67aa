#pragma once

#include "analysis/Replay.h"
#include "ui/DataPage.h"

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

class DialogEventList;
class Profile;
struct DataSet;
struct ListSettings;

/// Shown where there is no time.
constexpr QLatin1String noDate{"--.--.---- --:--:--"};
constexpr QLatin1String noTime{"--:--:--.---"};

/// Date and clock time, rounded to a second; noDate if the recording has no date.
QString dateTimeText(const QDateTime& start, double seconds);

/// The time on the counter as a time of day, to a millisecond.
QString counterText(double seconds);

/// The analysis area: seven pages behind tabs, the map beside them, and the replay.
///
/// Owns the current time of the data set. Pages and controls report the time that the user picks;
/// this window passes it on to the other pages and to its controls.
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
        Map ///< has no tab: it lies beside or below the others
    };

    static constexpr std::size_t pageCount = 8;

    /// Returns wall-clock seconds, for the replay.
    using Clock = std::function<double()>;

    /// A page of another room. The window takes ownership of the widget.
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

    static constexpr int speedSteps = 100; ///< speed slider steps for a factor of 1

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
    bool m_isWriting = false; ///< the controls change by program
    QTimer* m_timer = nullptr;
    std::array<HostedPage, pageCount> m_pages;
    std::array<DialogEventList*, 2> m_lists{}; ///< exceedances, and lamps
    QTabBar* m_tabs = nullptr;
    QButtonGroup* m_mapButtons = nullptr;
    QSplitter* m_splitter = nullptr;
    QStackedWidget* m_stack = nullptr;
    QLabel* m_loading = nullptr; ///< last in the stack, after the seven pages
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
