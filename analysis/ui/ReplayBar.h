#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

class QBoxLayout;
class QDoubleSpinBox;
class QGridLayout;
class QLCDNumber;
class QSlider;
class QTime;
class QTimeEdit;
class QToolButton;

namespace KOLT {

class PositionSlider;
class RecordingStrip;
class Replay;
struct DataSet;
struct RecordingTrust;

/// The displays of the current time and the controls of the replay.
///
/// Shows a replay that somebody else owns, and reports what the user does. Nothing is reported when
/// the controls are changed by program.
class ReplayBar : public QWidget
{
    Q_OBJECT

public:
    /// A single row has only the date and the buttons.
    enum class Extent { Full, SingleRow };

    /// The replay must outlive the bar.
    ReplayBar(const Replay& replay, Extent extent, QWidget* parent = nullptr);

    /// Null disables the controls. To be followed by showTime().
    void setData(const DataSet* dataSet);

    /// What is found in the data; null until it is known.
    void setTrust(std::shared_ptr<const RecordingTrust> trust);

    /// To be called when the replay's time has changed.
    void showTime();

    /// To be called when the replay's state or speed has changed.
    void showState();

    /// With icons only on the buttons.
    QSize minimumSizeHint() const override;

signals:
    void signalMode(); ///< start, pause or resume
    void signalStop();
    void signalPosition(int position);
    void signalClockTime(const QTime& time);
    void signalSpeed(int percent);
    void signalSpeed(double speed);
    /// The strip was clicked: at a finding, by its index, or elsewhere (-1).
    void signalFinding(int finding);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QBoxLayout* createDisplays();
    QGridLayout* createControls();
    void createPosition();
    void createButtons();
    void createTimeEdit();
    void createSpeedControls();
    void fitWidths();
    void fitButtons();
    void reduceToRow();

    const Replay& m_replay;
    const DataSet* m_dataSet = nullptr;
    bool m_isWriting = false; ///< the controls are changed by program
    QLayout* m_displays = nullptr;
    QLayout* m_controls = nullptr;
    QLCDNumber* m_dateDisplay = nullptr;
    QLCDNumber* m_timeDisplay = nullptr;
    QToolButton* m_startButton = nullptr;
    QToolButton* m_stopButton = nullptr;
    int m_startWidth = 0; ///< of the start button with its longest text
    int m_textRoom = 0;   ///< that both buttons need for their texts
    bool m_isIconOnly = false;
    RecordingStrip* m_strip = nullptr;
    PositionSlider* m_slider = nullptr;
    QTimeEdit* m_timeEdit = nullptr;
    QTimer m_typing; ///< runs while a time is typed
    QSlider* m_speedSlider = nullptr;
    QDoubleSpinBox* m_speedBox = nullptr;
};

} // namespace KOLT
