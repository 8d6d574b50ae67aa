#pragma once

#include "ui/ProgressDisplay.h"

#include <QStatusBar>

class QLabel;

namespace KOLT {

/// The status bar: messages, the progress of long jobs, and on the right what is loaded.
class StatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent);

    ProgressDisplay& progress() { return m_progress; }

    /// Shows what is loaded.
    void showData(const QString& text);

    /// Shows a menu entry's status tip; an empty one restores the message that it replaced.
    void showTip(const QString& tip);

    /// Shows a message about a page that repeatNotice() shows once more.
    void showNotice(const QString& message);
    void repeatNotice();

private:
    ProgressDisplay m_progress;
    QLabel* m_data;
    QString m_tip;
    QString m_messageBehindTip;
    QString m_notice;
};

} // namespace KOLT
