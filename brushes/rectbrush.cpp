#include "rectbrush.h"

rectbrush::rectbrush()
    : shapebrush([](QPainter* painter, const QRect& shape) { painter->drawRect(shape); })
{
}
