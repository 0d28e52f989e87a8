#pragma once

#include "brush.h"
#include "strokestamps.h"

/// The freehand line: a dot at each position and a line between neighbours, with no smoothing.
class pencilbrush : public brush {
public:
    bool mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint) override;
    bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                   bool* recordPoint) override;
    bool mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint) override;
    void replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points) override;
    void drawPreview(QPainter* painter, QColor color, qreal thick) override;

private:
    QPoint lastPoint;
    strokestamps stamps;
};
