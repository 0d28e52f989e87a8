#include "textbrush.h"

#include "pointtext.h"
#include "strokes.h"

#include <QRect>

namespace {

/// The font stays the painter's own; nothing is wrapped.
void drawInBox(QPainter* painter, const QPen& pen, const QRect& box, const QString& text)
{
    painter->setPen(pen);
    painter->drawText(box, Qt::AlignCenter, text);
}

} // namespace

bool textbrush::mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint,
                           QString** finished)
{
    if (button != Qt::LeftButton)
        return false;
    if (editing) {
        drawInBox(painter, strokes::pen(color, thick, Qt::DotLine), QRect(startPoint, endPoint), text);
        takeText(finished);
    }
    startPoint = pos;
    endPoint = unsetPoint;
    editing = false;
    text.clear();
    *recordPoint = true;
    return true;
}

bool textbrush::mouseMove(QPainter*, Qt::MouseButtons buttons, QPoint pos, QColor, qreal, bool* recordPoint)
{
    if (!(buttons & Qt::LeftButton))
        return false;
    endPoint = pos;
    *recordPoint = false;
    return true;
}

bool textbrush::mouseRelease(QPainter*, int button, QPoint pos, QColor, qreal, bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    editing = true;
    endPoint = pos;
    *recordPoint = true;
    return true;
}

bool textbrush::keyPress(QPainter* painter, QColor color, qreal thick, int key, Qt::KeyboardModifiers modifiers,
                         QString** finished)
{
    if (!editing)
        return false;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return finish(painter, color, thick, finished);
    if (key == Qt::Key_Backspace) {
        text.chop(1);
        return true;
    }
    if (key > 0xff)
        return false;
    // By key code and not by the event's text, so that every participant types the same characters.
    int code = key & 0xff;
    if (code >= Qt::Key_A && code <= Qt::Key_Z && !(modifiers & Qt::ShiftModifier))
        code += 0x20;
    if (code == 0)
        return false;
    text.append(QChar(code));
    return true;
}

bool textbrush::finish(QPainter* painter, QColor color, qreal thick, QString** finished)
{
    if (!editing)
        return false;
    drawInBox(painter, strokes::pen(color, thick), QRect(startPoint, endPoint), text);
    startPoint = unsetPoint;
    endPoint = unsetPoint;
    takeText(finished);
    editing = false;
    return true;
}

void textbrush::drawPreview(QPainter* painter, QColor color, qreal thick)
{
    if (isUnset(startPoint) || isUnset(endPoint))
        return;
    const QRect box(startPoint, endPoint);
    painter->setPen(strokes::bandPen());
    painter->drawRect(box);
    drawInBox(painter, strokes::pen(color, thick), box, text);
}

void textbrush::replay(QPainter* painter, QString data)
{
    const QLatin1Char blank(' ');
    if (data.count(blank) != 4)
        return;
    QColor color;
    color.setNamedColor(data.section(blank, 0, 0));
    const qreal thick = data.section(blank, 1, 1).toDouble();
    const QRect box(readPoint(data.section(blank, 2, 2)), readPoint(data.section(blank, 3, 3)));
    drawInBox(painter, strokes::pen(color, thick), box, data.section(blank, 4, 4));
}

/// Hands the text over to the caller and begins an empty one.
void textbrush::takeText(QString** finished)
{
    *finished = new QString(text);
    text.clear();
}
