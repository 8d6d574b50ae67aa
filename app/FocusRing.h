#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace KOLT {

/// A frame around the widget that has the focus, while the user works with the keyboard. It is the
/// same for all widgets of a window, as styles mark the focus of some hardly or not at all.
class FocusRing : public QObject
{
public:
    /// The window must outlive this.
    explicit FocusRing(QWidget& window);

    /// Null when there is no frame.
    const QWidget* marked() const { return m_ring->isVisible() ? m_focus : nullptr; }

protected:
    /// Watches the application: the widget is moved by any of its parents too.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget& m_window;
    QWidget* m_ring;
    QPointer<QWidget> m_focus;
    bool m_isKeyUsed = false; ///< since the last click
};

} // namespace KOLT
