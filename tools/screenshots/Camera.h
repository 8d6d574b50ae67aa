#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace KOLT {
class DialogMain;
}

namespace Screenshots {

/// Saves pictures of windows.
class Camera
{
public:
    explicit Camera(QString directory);

    /// False once a picture could not be saved.
    bool isGood() const { return m_isGood; }

    /// Saves "name.png".
    void take(QWidget& window, const QString& name);

private:
    QString m_directory;
    bool m_isGood = true;
};

/// Half a minute at most. False if the condition did not come true.
bool waitFor(const std::function<bool()>& condition);

/// Triggers the window's command of that number.
void trigger(const KOLT::DialogMain& window, int command);

/// Opens a modal window, which returns only when that is closed again; so the picture is taken from
/// within its event loop, then the window is rejected. `inside` may do more before that.
void takeModal(Camera& camera, const QString& name, const std::function<void()>& open,
               const std::function<void(QWidget&)>& inside = {});

} // namespace Screenshots
