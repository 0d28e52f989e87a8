#pragma once

#include "strokestamps.h"

#include <QColor>
#include <QList>
#include <QPainter>
#include <QPoint>

/// The eraser: the path of the pencil, in white on an opaque canvas, and to full transparency on one that lies over a
/// background (opaque false). Arguments and results are those of brush; the colour is not looked at.
class eraserbrush {
public:
    bool mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool opaque,
                    bool* recordPoint);
    bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick, bool opaque,
                   bool* recordPoint);
    bool mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool opaque,
                      bool* recordPoint);
    void replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points, bool opaque);

private:
    QPoint lastPoint;
    strokestamps stamps;
};
