#pragma once

#include <QSplashScreen>

namespace KOLT {

/// The picture that is shown while the program starts, with a line that says what it is doing.
class SplashScreen : public QSplashScreen
{
    Q_OBJECT

public:
    SplashScreen();

    /// Shows the message at once, although no event loop runs yet.
    void showStep(const QString& message);
};

} // namespace KOLT
