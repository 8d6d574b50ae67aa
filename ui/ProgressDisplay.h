#pragma once

#include "ui/EventPump.h"

#include <QString>
#include <QTimer>

class QProgressBar;
class QStatusBar;

namespace KOLT {

/// The progress of a long job in the status bar. It processes events, including the user's clicks
/// and keys: the job must be prepared for that.
class ProgressDisplay
{
public:
    explicit ProgressDisplay(QStatusBar& statusBar);
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

    /// Shows the text and a busy indicator.
    void begin(const QString& text);
    /// Shows the percentage, 0..100.
    void setPercent(int percent);
    /// Removes the text at once and the bar a moment later.
    void end();

private:
    QStatusBar& m_statusBar;
    QProgressBar* m_bar;
    EventPump m_events;
    QTimer m_lingering;
};

} // namespace KOLT
