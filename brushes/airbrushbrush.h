#pragma once

#include "brush.h"

/// The airbrush: a chain of dithered discs between two positions, with a pattern that each participant draws by lot.
/// Canvases therefore differ after airbrush strokes, and nothing tries to bring them together.
class airbrushbrush : public brush {
public:
    bool mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint) override;
    bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                   bool* recordPoint) override;
    bool mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint) override;
    void replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points) override;
    void drawPreview(QPainter* painter, QColor color, qreal thick) override;

private:
    QPoint lastPoint;
};
