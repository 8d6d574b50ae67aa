#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>

class QProgressBar;
class QStatusBar;

namespace KOLT {

/// The progress of a long work in the status bar. While it goes on, the window is drawn and the
/// user's clicks and keys are handled: whoever works must be ready for that.
class ProgressDisplay
{
public:
    explicit ProgressDisplay(QStatusBar& statusBar);
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

    /// Shows the text and a bar that moves without an end.
    void begin(const QString& text);
    /// The work goes on; handles events if it has been a while.
    void tick();
    /// The same with the part that is done, 0..100.
    void setPercent(int percent);
    /// Takes the text away at once, and the bar a moment later.
    void end();

private:
    QStatusBar& m_statusBar;
    QProgressBar* m_bar;
    QElapsedTimer m_sinceEvents;
    QTimer m_lingering;
};

} // namespace KOLT
