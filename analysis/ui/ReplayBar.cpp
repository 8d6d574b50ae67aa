#include "analysis/ui/ReplayBar.h"

#include "analysis/MomentText.h"
#include "analysis/Replay.h"
#include "analysis/ui/PositionSlider.h"
#include "analysis/ui/RecordingStrip.h"
#include "analysis/ui/TimeField.h"
#include "record/ClockTime.h"
#include "ui/PaintedIcon.h"

#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLCDNumber>
#include <QLineEdit>
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
constexpr int spacing = 6;
constexpr int singleRowHeight = 44;
constexpr int speedSteps = 100;          ///< of the speed slider for a factor of 1
constexpr int typingMilliseconds = 3000; ///< after the last key

QIcon icon(const QString& name)
{
    return lookIcon(name);
}

QLCDNumber* createDisplay(QLatin1String text, const QString& tip, QWidget* parent)
{
    auto* const display = new QLCDNumber(static_cast<int>(text.size()), parent);
    display->setSegmentStyle(QLCDNumber::Filled);
    display->setMinimumSize(displaySize);
    display->display(QString(text));
    display->setToolTip(tip);
    display->setAccessibleName(tip);
    return display;
}

QToolButton* createButton(const QString& tip, QWidget* parent)
{
    auto* const button = new QToolButton(parent);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize(buttonIconSize);
    button->setAutoRaise(true);
    button->setToolTip(tip);
    return button;
}

} // namespace

ReplayBar::ReplayBar(const Replay& replay, Extent extent, QWidget* parent)
    : QWidget(parent)
    , m_replay(replay)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QBoxLayout* const displays = createDisplays();
    layout->addLayout(displays);
    m_displays = displays;
    QGridLayout* const controls = createControls();
    if (extent == Extent::Full)
        m_controls = controls;
    if (extent == Extent::SingleRow) {
        displays->insertLayout(0, controls);
        reduceToRow();
    } else {
        layout->addLayout(controls);
    }
    setData(nullptr);
}

QBoxLayout* ReplayBar::createDisplays()
{
    m_dateDisplay = createDisplay(noDate, tr("Date and time of the current moment"), this);
    m_timeDisplay =
        createDisplay(noTime, tr("Time since the recording unit was switched on"), this);
    auto* const row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addWidget(m_dateDisplay, dateStretch);
    row->addWidget(m_timeDisplay, timeStretch);
    return row;
}

QGridLayout* ReplayBar::createControls()
{
    createButtons();
    createPosition();
    createTimeEdit();
    createSpeedControls();
    fitWidths();
    auto* const timeRow = new QHBoxLayout;
    timeRow->addWidget(m_timeEdit);
    timeRow->addStretch();

    auto* const grid = new QGridLayout;
    grid->setContentsMargins(spacing, 0, spacing, spacing);
    grid->addWidget(m_startButton, 0, 0, 2, 1);
    grid->addWidget(m_stopButton, 0, 1, 2, 1);
    auto* const position = new QVBoxLayout;
    position->setSpacing(0);
    position->addWidget(m_strip);
    position->addWidget(m_slider);
    grid->addLayout(position, 0, 2);
    grid->addLayout(timeRow, 1, 2);
    grid->addWidget(m_speedSlider, 0, 3);
    grid->addWidget(m_speedBox, 1, 3);
    grid->setColumnStretch(2, 1);
    return grid;
}

void ReplayBar::createPosition()
{
    m_slider = new PositionSlider(this);
    m_slider->setRange(0, Replay::positions);
    m_slider->setToolTip(tr("Position within the loaded data"));
    connect(m_slider, &QSlider::valueChanged, this, [this](int position) {
        if (!m_isWriting)
            emit signalPosition(position);
    });
    m_strip = new RecordingStrip(*m_slider, this);
    connect(m_strip, &RecordingStrip::signalClicked, this, &ReplayBar::signalFinding);
}

void ReplayBar::createButtons()
{
    m_startButton = createButton(tr("Start or pause the replay"), this);
    connect(m_startButton, &QToolButton::clicked, this, &ReplayBar::signalMode);
    m_stopButton = createButton(tr("Stop the replay and go back to the start"), this);
    m_stopButton->setText(tr("Replay Stop"));
    m_stopButton->setIcon(icon(QStringLiteral("replay-stop")));
    connect(m_stopButton, &QToolButton::clicked, this, &ReplayBar::signalStop);
}

void ReplayBar::createTimeEdit()
{
    m_timeEdit = new TimeField(this);
    m_timeEdit->setToolTip(tr("Go to a time since the recording unit was switched on"));
    connect(m_timeEdit, &QTimeEdit::timeChanged, this, [this](const QTime& time) {
        if (!m_isWriting)
            emit signalClockTime(time);
    });
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingMilliseconds);
    connect(m_timeEdit->findChild<QLineEdit*>(), &QLineEdit::textEdited, &m_typing,
            qOverload<>(&QTimer::start));
    connect(m_timeEdit, &QTimeEdit::editingFinished, &m_typing, &QTimer::stop);
}

void ReplayBar::createSpeedControls()
{
    m_speedSlider = new QSlider(Qt::Horizontal, this);
    m_speedSlider->setRange(static_cast<int>(Replay::minSpeed) * speedSteps,
                            static_cast<int>(Replay::maxSpeed) * speedSteps);
    connect(m_speedSlider, &QSlider::valueChanged, this, [this](int percent) {
        if (!m_isWriting)
            emit signalSpeed(percent);
    });
    m_speedBox = new QDoubleSpinBox(this);
    m_speedBox->setRange(Replay::minSpeed, Replay::maxSpeed);
    m_speedBox->setPrefix(tr("Speed "));
    connect(m_speedBox, &QDoubleSpinBox::valueChanged, this, [this](double speed) {
        if (!m_isWriting)
            emit signalSpeed(speed);
    });
    for (QWidget* control : std::initializer_list<QWidget*>{m_speedSlider, m_speedBox}) {
        control->setToolTip(tr("Speed of the replay"));
    }
}

void ReplayBar::fitWidths()
{
    // A constant width for all its texts keeps the slider beside it in place.
    const QString shown = m_startButton->text();
    const Qt::ToolButtonStyle style = m_startButton->toolButtonStyle();
    for (QToolButton* button : {m_startButton, m_stopButton}) {
        button->setMinimumWidth(0);
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    }
    int width = 0;
    for (const QString& text : {tr("Replay Start"), tr("Replay Pause"), tr("Replay Run")}) {
        m_startButton->setText(text);
        width = std::max(width, m_startButton->sizeHint().width());
    }
    m_startButton->setText(shown);
    m_startWidth = width;
    m_textRoom = width + m_stopButton->sizeHint().width();
    for (QToolButton* button : {m_startButton, m_stopButton}) {
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        m_textRoom -= button->sizeHint().width();
        button->setToolButtonStyle(style);
    }
    m_startButton->setMinimumWidth(m_isIconOnly ? 0 : m_startWidth);
    m_timeEdit->setFixedWidth(std::max(controlWidth, m_timeEdit->sizeHint().width()));
    const int speedWidth = std::max(controlWidth, m_speedBox->sizeHint().width());
    m_speedSlider->setFixedWidth(speedWidth);
    m_speedBox->setFixedWidth(speedWidth);
}

QSize ReplayBar::minimumSizeHint() const
{
    QSize size = QWidget::minimumSizeHint();
    if (m_controls != nullptr && !m_isIconOnly)
        size.setWidth(std::max(m_displays->minimumSize().width(),
                               m_controls->minimumSize().width() - m_textRoom));
    return size;
}

/// Large texts on the buttons would push the end of the bar out of a narrow window.
void ReplayBar::fitButtons()
{
    if (m_controls == nullptr)
        return;
    const int iconWidth = m_controls->minimumSize().width() - (m_isIconOnly ? 0 : m_textRoom);
    const bool isIconOnly = width() < iconWidth + m_textRoom;
    if (isIconOnly == m_isIconOnly)
        return;
    m_isIconOnly = isIconOnly;
    for (QToolButton* button : {m_startButton, m_stopButton})
        button->setToolButtonStyle(isIconOnly ? Qt::ToolButtonIconOnly
                                              : Qt::ToolButtonTextUnderIcon);
    m_startButton->setMinimumWidth(isIconOnly ? 0 : m_startWidth);
}

void ReplayBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitButtons();
}

void ReplayBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange || m_speedBox == nullptr) // still being made
        return;
    fitWidths();
    fitButtons();
}

void ReplayBar::reduceToRow()
{
    for (QWidget* widget :
         std::initializer_list<QWidget*>{m_timeDisplay, m_strip, m_slider, m_timeEdit})
        widget->hide();
    m_dateDisplay->setFixedHeight(singleRowHeight);
    for (QToolButton* button : {m_startButton, m_stopButton})
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

void ReplayBar::setData(const DataSet* dataSet)
{
    m_dataSet = dataSet;
    for (QWidget* control : std::initializer_list<QWidget*>{m_startButton, m_slider, m_timeEdit})
        control->setEnabled(dataSet != nullptr);
    m_strip->setTrust(nullptr);
    m_strip->setSpan(m_replay.first(), m_replay.last());
    showState();
}

void ReplayBar::setTrust(std::shared_ptr<const RecordingTrust> trust)
{
    m_strip->setTrust(std::move(trust));
}

void ReplayBar::showTime()
{
    const double seconds = m_replay.time();
    m_dateDisplay->display(m_dataSet != nullptr ? dateTimeText(m_dataSet->dateTime, seconds)
                                                : QString(noDate));
    m_timeDisplay->display(m_dataSet != nullptr ? counterText(seconds) : QString(noTime));
    m_isWriting = true;
    // The replay must not overwrite a time that is being typed.
    if (m_replay.state() != Replay::State::Running || !m_typing.isActive())
        m_timeEdit->setTime(clockTime(seconds));
    m_slider->setValue(m_replay.position());
    m_isWriting = false;
}

void ReplayBar::showState()
{
    const Replay::State state = m_replay.state();
    const bool isRunning = state == Replay::State::Running;
    m_startButton->setText(isRunning                        ? tr("Replay Pause")
                           : state == Replay::State::Paused ? tr("Replay Run")
                                                            : tr("Replay Start"));
    m_startButton->setIcon(
        icon(isRunning ? QStringLiteral("replay-pause") : QStringLiteral("replay-start")));
    m_stopButton->setEnabled(state != Replay::State::Stopped);
    m_isWriting = true;
    m_speedSlider->setValue(static_cast<int>(m_replay.speed() * speedSteps));
    if (m_speedBox->value() != m_replay.speed()) // setting it reformats the text being typed
        m_speedBox->setValue(m_replay.speed());
    m_isWriting = false;
}

} // namespace KOLT
