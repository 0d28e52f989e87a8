#include "screenshot.h"

#include "windowfinder.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace screenshot {

QSize screenSize() { return QGuiApplication::primaryScreen()->availableSize(); }

bool canReadScreen() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

QImage ofScreen(const QRect& part)
{
    const QImage whole = canReadScreen() ? QGuiApplication::primaryScreen()->grabWindow(0).toImage() : QImage();
    const QImage picture = part.isNull() ? whole : whole.copy(part);
    QWidget* const front = windowfinder::window(QStringLiteral("QWidget"));
    return picture.isNull() && front ? ofWindow(front) : picture;
}

QImage ofWindow(QWidget* window)
{
    QScreen* const screen = QGuiApplication::primaryScreen();
    QImage picture;
    if (canReadScreen()) {
        // The widget itself may know nothing of its frame yet, when the window manager framed it in its place.
        const QRect frame = window->windowHandle()->frameGeometry().intersected(screen->geometry());
        picture = screen->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height()).toImage();
    }
    return picture.isNull() ? window->grab().toImage() : picture;
}

} // namespace screenshot
