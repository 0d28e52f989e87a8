#pragma once

#include "scenehand.h"

#include <QRandomGenerator>

/// A user who does anything that the canvas and its window offer, from a seed, except for what is known to look
/// different at the peers: no airbrush, no blank in a text, no stroke or text while points of something else are
/// pending, no other colour or width within a stroke, and no pen below one pixel for a stroke of several batches.
class randomuser {
public:
    randomuser(paintscene& scene, const QSize& size, quint32 seed);

    /// One deed: a whole stroke, a text with all its keys, a selection with its moves, an effect.
    void act();
    /// A deed that paints a path or a shape and nothing else.
    void stroke();
    QList<paintmessage> takeMessages() { return user.takeMessages(); }
    scenehand& hand() { return user; }

private:
    void takeTool(kelvortool tool);
    void drawPath();
    void drawShape();
    void writeText();
    void select();
    void moveSelection(QPoint corner, QPoint grab);
    void fill();
    void useEffect();
    void press(const QPoint& pos, Qt::KeyboardModifiers modifiers = {});
    void distract(const QPoint& pos);

    int upTo(int bound) { return random.bounded(bound); }
    bool now() { return upTo(2) == 0; }
    bool seldom() { return upTo(8) == 0; }
    QPoint place();
    QColor anyColor();
    qreal anyWidth();
    Qt::KeyboardModifiers anyKeys() { return now() ? Qt::ShiftModifier : Qt::NoModifier; }

    paintscene& scene;
    scenehand user;
    QSize size;
    QRandomGenerator random;
};
