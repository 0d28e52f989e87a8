#pragma once

#include "paintscene.h"

#include <QCursor>
#include <QMouseEvent>

class QPainter;

/// The canvas pixel under the pointer. Where a pixel of the canvas is several of the screen (HiDPI), the toolkit rounds
/// the pointer's fraction of a pixel to the nearest one, which is the next one in the second half of each.
inline QPoint pixelUnder(const QMouseEvent& event)
{
    const QPointF pointer = event.windowPos();
    return {event.pos().x() - (pointer.x() < qRound(pointer.x()) ? 1 : 0),
            event.pos().y() - (pointer.y() < qRound(pointer.y()) ? 1 : 0)};
}

/// A mouse event on its way to a tool, and what the tool asks of the canvas in return.
struct paintscene::toolevent {
    explicit toolevent(const QMouseEvent& event)
        : button(static_cast<int>(event.button()))
        , buttons(event.buttons())
        , modifiers(event.modifiers())
        , pos(pixelUnder(event))
    {
    }

    QPainter* painter = nullptr; ///< open on the canvas while the tool is called
    int button;
    Qt::MouseButtons buttons;
    Qt::KeyboardModifiers modifiers;
    QPoint pos;
    bool recordPoint = false;
    bool clearPoints = false;
    bool flushPoints = true;
    QString* finished = nullptr; ///< a finished text, which the canvas deletes
};

/// Whether the tool paints from position to position and has no overlay, so that what it touched is known.
inline bool isPath(kelvortool tool)
{
    return tool == kelvortool::pencil || tool == kelvortool::eraser || tool == kelvortool::airbrush;
}

/// What the canvas does for one value of kelvortool. A null entry stands for nothing to do.
struct paintscene::toolrow {
    using mousecall = bool (*)(paintscene& scene, toolevent& event);

    kelvortool tool;
    QCursor (*cursor)(qreal thickness); ///< without one the cursor of the tool before stays
    mousecall press;
    mousecall move;
    mousecall release;
    void (*overlay)(paintscene& scene, QPainter* painter);
    void (*replay)(paintscene& scene, QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points);
};
