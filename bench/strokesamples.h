#pragma once

#include "protocol/messages.h"

#include <QColor>
#include <QList>
#include <QPoint>

/// What participants paint, from a fixed seed.
namespace strokesamples {

/// Positions in a batch, as a participant's window sends it.
constexpr int batch = 20;

/// A hand's way over a picture of 2000 by 2000, some pixels from position to position.
QList<QPoint> points(int count = batch);
inline QColor color() { return QColor(255, 128, 0); }
/// A batch of the pencil, from client 2.
drawmessage message(qreal thick);

} // namespace strokesamples
