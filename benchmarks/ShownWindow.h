#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWidget>
#include <QWindow>

#include <cstdlib>

namespace KOLT::Bench {

/// Handles events until the condition holds; false when it does not within seconds.
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

/// Shows a window and waits until the display has it: before, nothing of it is drawn at all, and a
/// benchmark would time that.
inline void showAndWait(QWidget& window)
{
    window.show();
    if (!waitUntil([&] { return window.windowHandle()->isExposed(); }))
        std::abort();
    QCoreApplication::processEvents();
}

} // namespace KOLT::Bench
