#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace KOLT {

/// A drop-down list of the tool bar. Reports what the user picks, and nothing that the program
/// sets.
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
    /// Scrolling past it changes nothing.
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
