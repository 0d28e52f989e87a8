#include "eraserbrush.h"

#include "strokepath.h"
#include "strokes.h"

namespace {

/// The mode is not put back: the painter lives for the current event only.
void prepare(QPainter* painter, qreal thick, bool opaque)
{
    if (opaque) {
        strokes::setPen(painter, QColor(Qt::white), thick);
    } else {
        strokes::setPen(painter, QBrush(Qt::transparent, Qt::SolidPattern), thick);
        painter->setCompositionMode(QPainter::CompositionMode_Clear);
    }
}

} // namespace

bool eraserbrush::mousePress(QPainter* painter, int button, QPoint pos, QColor, qreal thick, bool opaque,
                             bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    prepare(painter, thick, opaque);
    strokepath::drawDot(painter, pos);
    lastPoint = pos;
    *recordPoint = true;
    return true;
}

bool eraserbrush::mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                            bool opaque, bool* recordPoint)
{
    if (!(buttons & Qt::LeftButton))
        return false;
    const bool painted = mouseRelease(painter, Qt::LeftButton, pos, color, thick, opaque, recordPoint);
    lastPoint = pos;
    return painted;
}

bool eraserbrush::mouseRelease(QPainter* painter, int button, QPoint pos, QColor, qreal thick, bool opaque,
                               bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    prepare(painter, thick, opaque);
    // From the pointer backwards, unlike the pencil.
    strokepath::drawStep(painter, pos, QLine(pos, lastPoint));
    *recordPoint = true;
    return true;
}

void eraserbrush::replay(QPainter* painter, QColor, qreal thick, QList<QPoint> points, bool opaque)
{
    if (points.isEmpty())
        return;
    prepare(painter, thick, opaque);
    strokepath::drawPath(painter, points, &stamps);
}
