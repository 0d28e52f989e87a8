#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

/// The pixels within limits that a path of dots, lines or sprayed discs of this width can touch; never too few. The
/// positions and the width may be any numbers.
QRect strokeBounds(const QList<QPoint>& path, qreal thickness, const QRect& limits);
