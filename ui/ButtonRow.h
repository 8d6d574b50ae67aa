#pragma once

#include <QHBoxLayout>
#include <QToolButton>
#include <QWidget>

namespace KOLT {

/// A row of tool buttons that lose their texts where there is no room for all of them, so that a
/// long translation or a large font does not widen the page.
class ButtonRow : public QWidget
{
public:
    explicit ButtonRow(QWidget* parent)
        : QWidget(parent)
        , m_row(new QHBoxLayout(this))
    {
        m_row->setContentsMargins(0, 0, 0, 0);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

    QToolButton* add(QAction* action)
    {
        auto* const button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        m_row->addWidget(button);
        return button;
    }

    void addStretch() { m_row->addStretch(); }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QWidget::resizeEvent(event);
        setStyles(Qt::ToolButtonTextBesideIcon);
        if (m_row->sizeHint().width() > width())
            setStyles(Qt::ToolButtonIconOnly);
    }

private:
    void setStyles(Qt::ToolButtonStyle style)
    {
        for (auto* button : findChildren<QToolButton*>())
            button->setToolButtonStyle(style);
        m_row->invalidate();
    }

    QHBoxLayout* m_row;
};

} // namespace KOLT
