#pragma once

#include <QFrame>

class QLabel;
class QPushButton;
class QToolButton;

namespace KOLT {

/// A line above the pages that says something about what they show, with one thing to do about it.
/// Hidden until it has a text.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows a plain text. Without the text of an action there is no button.
    void showNotice(const QString& text, const QString& action = {});

signals:
    void signalAction();
    /// The user does not want to see it; the bar is hidden already.
    void signalClosed();

private:
    QLabel* m_text;
    QPushButton* m_action;
};

} // namespace KOLT
