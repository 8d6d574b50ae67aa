// Construction of the data window's controls.

#include "analysis/ui/DialogData.h"

#include <QButtonGroup>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLCDNumber>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>
#include <QStackedWidget>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QTimeEdit>
#include <QToolButton>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int controlWidth = 120;
constexpr QSize displaySize(220, 60);
constexpr int dateStretch = 3;
constexpr int timeStretch = 2;
constexpr QSize buttonIconSize(24, 24);
constexpr QSize tabIconSize(16, 16);
constexpr int spacing = 6;
constexpr int emuRowHeight = 44;
constexpr int typingMilliseconds = 3000; ///< after the last key

/// A slider that jumps to where it is clicked and can be dragged on from there.
class PositionSlider : public QSlider
{
public:
    using QSlider::QSlider;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const auto part = [&](QStyle::SubControl control) {
            return style()->subControlRect(QStyle::CC_Slider, &option, control, this);
        };
        const QRect handle = part(QStyle::SC_SliderHandle);
        const QPoint place = event->position().toPoint();
        if (event->button() == Qt::LeftButton && !handle.contains(place)) {
            const QRect groove = part(QStyle::SC_SliderGroove);
            const int first = groove.left() + handle.width() / 2;
            setSliderPosition(QStyle::sliderValueFromPosition(
                minimum(), maximum(), place.x() - first, groove.width() - handle.width()));
        }
        QSlider::mousePressEvent(event); // the handle is below the pointer now
    }
};

QLCDNumber* createDisplay(int digits, const QString& text, QWidget* parent)
{
    auto* const display = new QLCDNumber(digits, parent);
    display->setSegmentStyle(QLCDNumber::Filled);
    display->setMinimumSize(displaySize);
    display->display(text);
    return display;
}

} // namespace

QIcon DialogData::icon(const QString& name)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name));
}

void DialogData::stripToDisplay()
{
    for (QWidget* widget :
         std::initializer_list<QWidget*>{m_timeDisplay, m_slider, m_timeEdit, m_tabs,
                                         m_pages[static_cast<std::size_t>(Page::Map)].widget})
        widget->hide();
    for (QAbstractButton* button : m_mapButtons->buttons())
        button->hide();
    // The remaining controls form one low row below the instruments.
    m_dateDisplay->setMinimumHeight(emuRowHeight);
    m_dateDisplay->setMaximumHeight(emuRowHeight);
    for (QToolButton* button : {m_startButton, m_stopButton})
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

QBoxLayout* DialogData::createTopRow()
{
    m_tabs = new QTabBar(this);
    m_tabs->setIconSize(tabIconSize);
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->setUsesScrollButtons(false); // no tab may scroll out of a narrow window; texts are cut
    m_tabs->setElideMode(Qt::ElideRight);
    m_tabs->addTab(icon(QStringLiteral("tab-data")), tr("Data"));
    m_tabs->addTab(icon(QStringLiteral("tab-graph")), tr("Graph"));
    m_tabs->addTab(icon(QStringLiteral("tab-fault-matrix")), tr("Fault Matrix"));
    m_tabs->addTab(icon(QStringLiteral("tab-limit")), tr("Limit/Warning"));
    m_tabs->addTab(icon(QStringLiteral("tab-warning-lamps")), tr("Warning Lamps"));
    m_tabs->addTab(icon(QStringLiteral("tab-statistic")), tr("Tow Statistic"));
    m_tabs->addTab(icon(QStringLiteral("tab-emu-view")), tr("EMU View"));
    for (int i = 0; i < m_tabs->count(); ++i) {
        m_tabs->setTabData(i, m_tabs->tabIcon(i));
        m_tabs->setTabToolTip(i, m_tabs->tabText(i)); // for a text that is cut
    }
    connect(m_tabs, &QTabBar::currentChanged, this, [this] {
        if (m_stack->currentWidget() != m_loading)
            showCurrentPage();
    });

    m_mapButtons = new QButtonGroup(this);
    m_mapButtons->setExclusive(true);
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_tabs, 1);
    row->addWidget(createMapButton(hideMap, QStringLiteral("map-hide"), tr("Hide Map Display")));
    row->addWidget(createMapButton(mapBeside, QStringLiteral("map-horizontal"),
                                   tr("Tile Map Display Horizontally")));
    row->addWidget(createMapButton(mapBelow, QStringLiteral("map-vertical"),
                                   tr("Tile Map Display Vertically")));
    m_mapButtons->button(mapBeside)->setChecked(true);
    connect(m_mapButtons, &QButtonGroup::idClicked, this, &DialogData::slotMapType);
    return row;
}

QToolButton* DialogData::createMapButton(int type, const QString& iconName, const QString& tip)
{
    auto* const button = new QToolButton(this);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setIcon(icon(iconName));
    button->setToolTip(tip);
    m_mapButtons->addButton(button, type);
    return button;
}

QBoxLayout* DialogData::createDisplays()
{
    m_dateDisplay = createDisplay(static_cast<int>(noDate.size()), noDate, this);
    m_dateDisplay->setToolTip(tr("Date and time of the current moment"));
    m_timeDisplay = createDisplay(static_cast<int>(noTime.size()), noTime, this);
    m_timeDisplay->setToolTip(tr("Time since the recording unit was switched on"));
    auto* const row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addWidget(m_dateDisplay, dateStretch);
    row->addWidget(m_timeDisplay, timeStretch);
    return row;
}

QToolButton* DialogData::createReplayButton()
{
    auto* const button = new QToolButton(this);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize(buttonIconSize);
    button->setAutoRaise(true);
    return button;
}

QGridLayout* DialogData::createControls()
{
    auto* const grid = new QGridLayout;
    grid->setContentsMargins(spacing, 0, spacing, spacing);
    m_startButton = createReplayButton();
    m_startButton->setToolTip(tr("Start or pause the replay"));
    // A constant width for all its texts keeps the slider beside it in place.
    int width = 0;
    for (const QString& text : {tr("Replay Start"), tr("Replay Pause"), tr("Replay Run")}) {
        m_startButton->setText(text);
        width = std::max(width, m_startButton->sizeHint().width());
    }
    m_startButton->setMinimumWidth(width);
    connect(m_startButton, &QToolButton::clicked, this, &DialogData::slotReplayMode);
    m_stopButton = createReplayButton();
    m_stopButton->setText(tr("Replay Stop"));
    m_stopButton->setIcon(icon(QStringLiteral("replay-stop")));
    m_stopButton->setToolTip(tr("Stop the replay and go back to the start"));
    connect(m_stopButton, &QToolButton::clicked, this, &DialogData::slotReplayStop);

    m_slider = new PositionSlider(Qt::Horizontal, this);
    m_slider->setRange(0, Replay::positions);
    m_slider->setToolTip(tr("Position within the loaded data"));
    connect(m_slider, &QSlider::valueChanged, this, &DialogData::slotSlider);
    m_timeEdit = new QTimeEdit(this);
    m_timeEdit->setDisplayFormat(QStringLiteral("hh:mm:ss"));
    m_timeEdit->setFixedWidth(controlWidth);
    m_timeEdit->setToolTip(tr("Go to a time since the recording unit was switched on"));
    connect(m_timeEdit, &QTimeEdit::timeChanged, this, &DialogData::slotValue);
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingMilliseconds);
    connect(m_timeEdit->findChild<QLineEdit*>(), &QLineEdit::textEdited, &m_typing,
            qOverload<>(&QTimer::start));
    connect(m_timeEdit, &QTimeEdit::editingFinished, &m_typing, &QTimer::stop);
    auto* const timeRow = new QHBoxLayout;
    timeRow->addWidget(m_timeEdit);
    timeRow->addStretch();

    grid->addWidget(m_startButton, 0, 0, 2, 1);
    grid->addWidget(m_stopButton, 0, 1, 2, 1);
    grid->addWidget(m_slider, 0, 2);
    grid->addLayout(timeRow, 1, 2);
    createSpeedControls(grid);
    grid->setColumnStretch(2, 1);
    return grid;
}

void DialogData::createSpeedControls(QGridLayout* grid)
{
    m_speedSlider = new QSlider(Qt::Horizontal, this);
    m_speedSlider->setRange(static_cast<int>(Replay::minSpeed) * speedSteps,
                            static_cast<int>(Replay::maxSpeed) * speedSteps);
    m_speedSlider->setFixedWidth(controlWidth);
    m_speedSlider->setToolTip(tr("Speed of the replay"));
    connect(m_speedSlider, &QSlider::valueChanged, this,
            qOverload<int>(&DialogData::slotReplaySpeed));
    m_speedBox = new QDoubleSpinBox(this);
    m_speedBox->setRange(Replay::minSpeed, Replay::maxSpeed);
    m_speedBox->setPrefix(tr("Speed "));
    m_speedBox->setFixedWidth(controlWidth);
    m_speedBox->setToolTip(tr("Speed of the replay"));
    connect(m_speedBox, &QDoubleSpinBox::valueChanged, this,
            qOverload<double>(&DialogData::slotReplaySpeed));
    grid->addWidget(m_speedSlider, 0, 3);
    grid->addWidget(m_speedBox, 1, 3);
}

} // namespace KOLT
