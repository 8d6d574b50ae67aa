#include "ui/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace KOLT {

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_action(new QPushButton(this))
{
    setObjectName(QStringLiteral("noticeBar"));
    m_text->setTextFormat(Qt::PlainText); // engine types come from files
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const close = new QToolButton(this);
    close->setObjectName(QStringLiteral("closeNotice"));
    close->setAutoRaise(true);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolTip(tr("Close"));
    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action);
    layout->addWidget(close);
    hide();
    connect(m_action, &QPushButton::clicked, this, &NoticeBar::signalAction);
    connect(close, &QToolButton::clicked, this, [this] {
        hide();
        emit signalClosed();
    });
}

void NoticeBar::showNotice(const QString& text, const QString& action)
{
    m_text->setText(text);
    m_action->setText(action);
    m_action->setVisible(!action.isEmpty());
    setVisible(!text.isEmpty());
}

} // namespace KOLT
