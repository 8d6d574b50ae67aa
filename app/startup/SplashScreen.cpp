#include "app/startup/SplashScreen.h"

#include <QApplication>
#include <QPainter>

namespace KOLT {

namespace {

constexpr QSize splashSize(480, 240);
constexpr QColor background(0x1f, 0x2a, 0x36);
constexpr QColor accent(0xc3, 0xab, 0x63);
constexpr QColor paleText(0xe6, 0xea, 0xee);

QPixmap paintSplash()
{
    const qreal ratio = qApp->devicePixelRatio();
    QPixmap pixmap(splashSize * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(background);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setPixelSize(72);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(paleText);
    painter.drawText(QRect(QPoint(36, 40), QSize(408, 80)), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("KOLT"));
    font.setPixelSize(16);
    font.setBold(false);
    painter.setFont(font);
    painter.drawText(QRect(QPoint(40, 132), QSize(404, 24)), Qt::AlignLeft | Qt::AlignVCenter,
                     QApplication::translate("KOLT::SplashScreen", "Engine recording debriefing"));
    painter.fillRect(QRect(QPoint(40, 124), QSize(120, 3)), accent);
    return pixmap;
}

} // namespace

SplashScreen::SplashScreen()
    : QSplashScreen(paintSplash())
{
}

void SplashScreen::showStep(const QString& message)
{
    showMessage(message, Qt::AlignLeft | Qt::AlignBottom, paleText);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace KOLT
