#pragma once

#include <QImage>
#include <QSize>

/// Pictures to measure on, made from fixed seeds, so that they are the same in every run. All are opaque and of
/// Format_ARGB32; in those with walls the corridors are white and one pixel wide, and (0, 0) lies in one.
namespace pictures {

/// The length of a side in the table's rows.
constexpr int side = 2000;
constexpr QSize size(side, side);

QImage blank(const QSize& size);
/// One way from each place to each other.
QImage maze(const QSize& size);
/// Corridors from top to bottom that meet in the first row.
QImage comb(const QSize& size);
/// A single corridor.
QImage spiral(const QSize& size);
/// 65 % of the pixels are white, so that most of them hang together in every thinkable shape.
QImage noise(const QSize& size);
/// Patches of many colours, like a picture that has been painted on.
QImage painted(const QSize& size);
/// Patches on transparent white: the canvas over a background.
QImage paintedOver(const QSize& size);

} // namespace pictures
