#include "tools/screenshots/Camera.h"

#include "app/DialogMain.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace Screenshots {

namespace {

constexpr int waitMilliseconds = 30'000;
constexpr int pollMilliseconds = 50;

} // namespace

Camera::Camera(QString directory)
    : m_directory(std::move(directory))
{
}

void Camera::take(QWidget& window, const QString& name)
{
    QCoreApplication::processEvents();
    const QString path = QStringLiteral("%1/%2.png").arg(m_directory, name);
    m_isGood = window.grab().save(path) && m_isGood;
    std::printf("%s\n", qUtf8Printable(path));
}

bool waitFor(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, waitMilliseconds);
}

void trigger(const KOLT::DialogMain& window, int command)
{
    for (QAction* action : window.actions()) {
        if (action->data().toInt() == command)
            action->trigger();
    }
}

void takeModal(Camera& camera, const QString& name, const std::function<void()>& open,
               const std::function<void(QWidget&)>& inside)
{
    QWidget* const before = QApplication::activeModalWidget();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == before || !dialog->isVisible())
            return;
        poll.stop();
        camera.take(*dialog, name);
        if (inside)
            inside(*dialog);
        dialog->reject();
    });
    poll.start(pollMilliseconds);
    open();
}

} // namespace Screenshots
