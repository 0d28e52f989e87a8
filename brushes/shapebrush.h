#pragma once

#include <QColor>
#include <QList>
#include <QPainter>
#include <QPoint>
#include <QRect>

/// What the rectangle and the ellipse have in common, which is everything but the drawing call. The outline is painted
/// on release; during the drag it is only previewed. The points start at (0, 0), which counts as set, so that the
/// preview shows a zero-sized shape at the top left until the first stroke; this is kept on purpose.
///
/// Arguments and results are those of brush, with the modifier keys of the event added.
class shapebrush {
public:
    /// True asks the canvas to repaint: the preview turned regular or plain.
    bool keyPress(int key);
    bool keyRelease(int key);

    bool mousePress(QPainter* painter, int button, Qt::KeyboardModifiers modifiers, QPoint pos, QColor color,
                    qreal thick, bool* recordPoint);
    bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, QPoint pos,
                   QColor color, qreal thick, bool* recordPoint);
    bool mouseRelease(QPainter* painter, int button, Qt::KeyboardModifiers modifiers, QPoint pos, QColor color,
                      qreal thick, bool* recordPoint);
    void drawPreview(QPainter* painter, QColor color, qreal thick);
    /// Two points are a plain shape; a third one of (-1, -1) makes it regular. Any other list paints nothing.
    void replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points);

protected:
    using drawing = void (*)(QPainter* painter, const QRect& shape);
    explicit shapebrush(drawing draw);
    ~shapebrush() = default;

private:
    void drawShape(QPainter* painter, const QColor& color, qreal thick, QPoint from, QPoint to, bool regular);

    drawing draw;
    QPoint startPoint;
    QPoint endPoint;
    bool shiftHeld = false;
};
