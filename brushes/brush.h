#pragma once

#include <QColor>
#include <QList>
#include <QPainter>
#include <QPoint>

/// A freehand tool of the canvas. The canvas owns one object of each kind for its whole life and drives it from its
/// mouse events and from what peers send; the painter is open on the canvas picture and belongs to the caller. A brush
/// remembers no more than what it needs between two mouse events of one stroke, and a replay changes nothing of that.
///
/// Positions are canvas pixels, thick is the width in pixels and may be any number, also NaN. The mouse operations
/// return false when the event was not for the tool (not the left button); then nothing was painted or changed and
/// *recordPoint was not written. Otherwise *recordPoint tells whether the position belongs on the wire.
class brush {
public:
    virtual ~brush() = default;

    virtual bool mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick,
                            bool* recordPoint) = 0;
    virtual bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                           bool* recordPoint) = 0;
    virtual bool mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick,
                              bool* recordPoint) = 0;
    /// Paints the whole point list of a peer; a list of the wrong length paints nothing.
    virtual void replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points) = 0;
    /// Paints the provisional shape of a running stroke over the picture.
    virtual void drawPreview(QPainter* painter, QColor color, qreal thick) = 0;
};
