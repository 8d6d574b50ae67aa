#pragma once

#include <QSplashScreen>

namespace KOLT {

/// The splash screen, with a line that tells the current step of the start-up.
class SplashScreen : public QSplashScreen
{
    Q_OBJECT

public:
    SplashScreen();

    /// Shows the message at once, before the event loop runs.
    void showStep(const QString& message);
};

} // namespace KOLT
