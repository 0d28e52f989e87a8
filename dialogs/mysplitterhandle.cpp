#include "mysplitterhandle.h"

#include <QApplication>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QSplitter>

mysplitterhandle::mysplitterhandle(Qt::Orientation orientation, QSplitter* parent)
    : QSplitterHandle(orientation, parent)
{
}

void mysplitterhandle::mousePressEvent(QMouseEvent* event)
{
    dragged = false;
    pressPosition = event->pos();
    QSplitterHandle::mousePressEvent(event);
}

// The end of a double click is dropped below, so what moves before it must not reach the base either: without opaque
// resize the rubber band that it shows would stay on the screen.
void mysplitterhandle::mouseMoveEvent(QMouseEvent* event)
{
    if (ignoreRelease)
        return;
    dragged = dragged || isDrag(event->pos());
    const QSignalBlocker quiet(dragged ? nullptr : splitter());
    QSplitterHandle::mouseMoveEvent(event);
}

// The base reports a move also where nothing moved: without opaque resize at every release, with it at every tremble.
// From the first click of a double click that would save the sizes with the pane folded, and the pane would never come
// back; so until a press has become a drag, the splitter reports nothing.
void mysplitterhandle::mouseReleaseEvent(QMouseEvent* event)
{
    if (ignoreRelease) {
        ignoreRelease = false;
        return;
    }
    const QSignalBlocker quiet(dragged ? nullptr : splitter());
    QSplitterHandle::mouseReleaseEvent(event);
}

void mysplitterhandle::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = splitter()->indexOf(this);
    if (index == -1)
        return;
    ignoreRelease = true;
    emit doubleClicked(index);
    QWidget::mouseDoubleClickEvent(event);
}

// A hand that trembles during a click is no drag as long as the handle would stay where it is.
bool mysplitterhandle::isDrag(const QPoint& position)
{
    const QPoint way = position - pressPosition;
    if (way.manhattanLength() >= QApplication::startDragDistance())
        return true;
    const bool horizontal = orientation() == Qt::Horizontal;
    const int place = horizontal ? x() : y();
    return closestLegalPosition(place + (horizontal ? way.x() : way.y())) != place;
}
