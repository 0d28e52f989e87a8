#pragma once

#include "canvas/paintscene.h"

#include <QColor>
#include <QEvent>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QPoint>
#include <QString>

#include <functional>

Q_DECLARE_METATYPE(kelvortool)

/// A paint message as the window would put it on the wire: a stroke with the colour and the width that the window has
/// at that moment, or a tool with its string.
struct paintmessage {
    bool extended = false;
    kelvortool tool = kelvortool::notool;
    QColor color;
    qreal thickness = 0;
    QList<QPoint> points;
    QString data;
};

/// The message after its way through the text forms of the wire.
paintmessage overTheWire(const paintmessage& message);
/// Hands a message to a canvas as the window of a peer does.
void deliver(const paintmessage& message, paintscene& scene);

/// A user's hand on a canvas: real mouse and key events, and the window's part around them. What the canvas sends is
/// kept in order.
class scenehand : public QObject {
public:
    explicit scenehand(paintscene& scene);

    void take(kelvortool tool, const QColor& color = Qt::black, qreal thickness = 1);
    void setColor(const QColor& color);
    void setThickness(qreal thickness);

    void press(const QPoint& pos, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {});
    void move(const QPoint& pos, Qt::KeyboardModifiers modifiers = {});
    void release(const QPoint& pos, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {});
    /// Press at the first position, moves to all others, release at the last.
    void drag(const QList<QPoint>& path, Qt::KeyboardModifiers modifiers = {});
    void keyDown(int key, Qt::KeyboardModifiers modifiers = {});
    void keyUp(int key, Qt::KeyboardModifiers modifiers = {});
    /// Keys as a keyboard gives them: capitals with Shift.
    void type(const QString& text);
    void loseFocus();

    QList<paintmessage> takeMessages();
    paintmessage takeOnlyMessage(); ///< an empty message when there is none, or more than one

    int clicks = 0;
    /// Where a window stands around the canvas, colours and widths are chosen in it: takes what is wished for, and
    /// returns what the window has then.
    std::function<QColor(const QColor&)> chooseColor;
    std::function<qreal(qreal)> chooseThickness;

private:
    void mouse(QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

    paintscene& scene;
    QColor color = Qt::black;
    qreal thickness = 1;
    Qt::MouseButtons held;
    QList<paintmessage> messages;
};
