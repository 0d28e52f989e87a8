#include "ellipsebrush.h"

ellipsebrush::ellipsebrush()
    : shapebrush([](QPainter* painter, const QRect& shape) { painter->drawEllipse(shape); })
{
}
