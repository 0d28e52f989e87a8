#pragma once

#include "brush.h"

/// The straight line: a rubber line during the drag, painted on release. The points start at (0, 0), which counts as
/// set, so that the preview shows a dot at the top left until the first stroke; this is kept on purpose.
class linebrush : public brush {
public:
    bool mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint) override;
    bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                   bool* recordPoint) override;
    bool mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint) override;
    void replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points) override;
    void drawPreview(QPainter* painter, QColor color, qreal thick) override;

private:
    QPoint startPoint;
    QPoint endPoint;
};
