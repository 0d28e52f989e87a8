#pragma once

#include <QPoint>
#include <Qt>

class QWidget;

/// A hand with a mouse on a canvas.
struct canvashand {
    Qt::MouseButton button = Qt::LeftButton;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;

    // In pixels of the picture. What these set off happens when the event loop comes to it.
    void press(QWidget* canvas, const QPoint& point) const;
    void move(QWidget* canvas, const QPoint& point) const;
    void release(QWidget* canvas, const QPoint& point) const;
};
