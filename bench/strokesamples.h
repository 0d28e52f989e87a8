#pragma once

#include "protocol/messages.h"

#include <QColor>
#include <QList>
#include <QPoint>

#include <vector>

/// What participants paint, from a fixed seed.
namespace strokesamples {

/// Positions in a batch, as a participant's window sends it.
constexpr int batch = 20;

/// A hand's way over a picture of 2000 by 2000, some pixels from position to position.
QList<QPoint> points(int count = batch);
inline QColor color() { return QColor(255, 128, 0); }
/// A hand that goes on and on over the picture, batch after batch, in steps of up to 10 pixels each way. It comes back
/// to its beginning after so many batches.
class hand {
public:
    static constexpr std::size_t batches = 200;

    hand();
    const QList<QPoint>& nextBatch() { return way[next++ % batches]; }

private:
    std::vector<QList<QPoint>> way;
    std::size_t next = 0;
};

/// A batch of the pencil, from client 2.
drawmessage message(qreal thick);

} // namespace strokesamples
