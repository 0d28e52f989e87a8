#include "canvashand.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace {

void post(QWidget* canvas, QEvent::Type type, const QPoint& point, Qt::MouseButton changed, Qt::MouseButtons down,
          Qt::KeyboardModifiers modifiers)
{
    QApplication::postEvent(canvas,
                            new QMouseEvent(type, point, canvas->mapTo(canvas->window(), point),
                                            canvas->mapToGlobal(point), changed, down, modifiers));
}

} // namespace

void canvashand::press(QWidget* canvas, const QPoint& point) const
{
    post(canvas, QEvent::MouseButtonPress, point, button, button, modifiers);
}

void canvashand::move(QWidget* canvas, const QPoint& point) const
{
    post(canvas, QEvent::MouseMove, point, Qt::NoButton, button, modifiers);
}

void canvashand::release(QWidget* canvas, const QPoint& point) const
{
    post(canvas, QEvent::MouseButtonRelease, point, button, Qt::NoButton, modifiers);
}
