#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWidget>
#include <QWindow>

#include <cstdlib>

namespace KOLT::Bench {

/// Processes events until the condition holds; false when it does not within 5 s.
template <typename Condition>
bool waitUntil(Condition&& condition)
{
    constexpr int patience = 5000;
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > patience)
            return false;
        QCoreApplication::processEvents();
    }
    return true;
}

/// Shows a window and waits until the display shows it. Before that nothing is drawn, and a
/// benchmark would time nothing.
inline void showAndWait(QWidget& window)
{
    window.show();
    if (!waitUntil([&] { return window.windowHandle()->isExposed(); }))
        std::abort();
    QCoreApplication::processEvents();
}

} // namespace KOLT::Bench
