#include "screenshot.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace screenshot {

QSize screenSize() { return QGuiApplication::primaryScreen()->availableSize(); }

QImage ofScreen() { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); }

QImage ofWindow(QWidget* window)
{
    QScreen* const screen = QGuiApplication::primaryScreen();
    QImage picture;
    // Only an X screen can be read; elsewhere the toolkit warns and gives nothing.
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        const QRect frame = window->frameGeometry().intersected(screen->geometry());
        picture = screen->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height()).toImage();
    }
    return picture.isNull() ? window->grab().toImage() : picture;
}

} // namespace screenshot
