#pragma once

#include "literalscene.h"
#include "randompictures.h"

#include <QEvent>
#include <QObject>
#include <QRandomGenerator>

#include <functional>
#include <utility>

/// A hand that knows no rules, and peers who know none either: presses without releases, other buttons, tools that
/// change in the middle of a stroke, keys at any time, messages of every kind and length. All of it is done to the real
/// canvas and to the literal one.
class wildhand : public QObject {
public:
    /// Both have to be open on the same picture, and outlive the hand.
    wildhand(paintscene& real, literalscene& oracle, quint32 seed);

    /// One event or message.
    void act();
    /// What the real canvas sent since this was asked last.
    QList<sentpaint> takeSent() { return std::exchange(sent, {}); }

private:
    void both(const std::function<void()>& onReal, const std::function<void()>& onOracle);
    void mouse(QEvent::Type type, Qt::MouseButton button, const QPoint& pos, Qt::KeyboardModifiers modifiers);
    void prepare();
    void press();
    void move();
    void release();
    void key();
    void useEffect();
    void hearStroke();
    void hearString();

    int upTo(int bound) { return random.bounded(bound); }
    bool seldom() { return upTo(6) == 0; }
    QPoint place();
    QColor anyColor();
    qreal anyWidth() { return seldom() ? (1 + upTo(1200)) / 10.0 : (1 + upTo(80)) / 10.0; }
    Qt::MouseButton anyButton() { return seldom() ? (seldom() ? Qt::MiddleButton : Qt::RightButton) : Qt::LeftButton; }
    Qt::KeyboardModifiers anyKeys() { return upTo(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier; }

    paintscene& real;
    literalscene& oracle;
    QSize size;
    QRandomGenerator random;
    QPoint lastPlace;
    Qt::MouseButtons held;
    QList<sentpaint> sent;
};
