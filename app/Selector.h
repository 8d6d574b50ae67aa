#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace KOLT {

/// A combo box in the tool bar. Reports choices of the user, not those made by the program.
class Selector : public QComboBox
{
    Q_OBJECT

public:
    explicit Selector(QWidget* parent = nullptr)
        : QComboBox(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
        setSizeAdjustPolicy(QComboBox::AdjustToContents);
        connect(this, &QComboBox::activated, this, [this](int index) {
            emit signalActivated(index);
            emit signalActivated(itemText(index));
        });
    }

protected:
    /// Without the focus the wheel changes nothing: the user may just be scrolling past.
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }

signals:
    void signalActivated(int index);
    void signalActivated(const QString& text);
};

} // namespace KOLT
