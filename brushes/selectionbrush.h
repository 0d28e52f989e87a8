#pragma once

#include "cutout.h"
#include "strokes.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QPoint>
#include <QRect>

/// The selection: a rubber band, and the moving of the pixels in it by a second drag that begins inside. The band stays
/// private; a completed move is four points on the wire. Arguments and results are those of brush; colour and width are
/// not looked at. opaque is false when the canvas lies over a background.
class selectionbrush {
public:
    /// Drops the selection.
    void reset();
    /// The band, with both corners in it and not normalised; the null rectangle when there is none.
    QRect selection() const;

    /// image is the picture that painter is open on. *clearPoints asks the canvas to empty its pending points first.
    bool mousePress(const QImage& image, QPainter* painter, int button, QPoint pos, QColor color, qreal thick,
                    bool* recordPoint, bool* clearPoints);
    bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                   bool* recordPoint);
    /// points are the canvas's pending points, which a completed move replaces; *flushPoints asks to send them.
    bool mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool opaque,
                      bool* recordPoint, bool* flushPoints, QList<QPoint>* points);
    void drawPreview(QPainter* painter, QColor color, qreal thick, bool opaque);
    /// A peer's move: both corners, where it was grabbed, where it was dropped. Any other list paints nothing.
    void replay(const QImage& image, QPainter* painter, QList<QPoint> points, bool opaque);

private:
    bool exists() const;

    QPoint startPoint = unsetPoint;
    QPoint endPoint = unsetPoint;
    QPoint grabPoint = unsetPoint;
    QPoint dragPoint = unsetPoint;
    cutout selectedImage;
    bool moving = false;
};
