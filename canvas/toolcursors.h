#pragma once

#include <QCursor>

/// The cursors of the tools, each made for the current pen width.
namespace toolcursors {

QCursor arrow(qreal thickness);
QCursor cross(qreal thickness);
QCursor pencil(qreal thickness);
QCursor fill(qreal thickness);
/// A disc of the eraser's size. A width below one pixel has no such picture, and one beyond any screen is not drawn:
/// both give the arrow.
QCursor eraser(qreal thickness);

} // namespace toolcursors
