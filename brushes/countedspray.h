#pragma once

#include "discchain.h"
#include "discshape.h"
#include "repeatedpass.h"

#include <QColor>
#include <QRect>

#include <vector>

class QBrush;
class QPainter;

/// Lays chains of discs on top of each other with dither patterns of one colour, for pixels that look different after
/// each disc: below a half-transparent colour, and below the holes of a pattern when they are half-transparent
/// themselves. All discs of a chain do the same to a pixel, so that it only counts how many there are.
class countedspray {
public:
    /// For a picture with plain pixels.
    countedspray(QPainter* painter, const QColor& color);

    /// Lays each disc of the chain with a brush that has the colour and one of the toolkit's dither patterns.
    /// So many neighbours in the chain, together, are laid in the place of the first.
    void draw(const QBrush& pattern, const discshape& shape, const discchain& chain, int together = 1);

private:
    void count(int left, int right, int times);
    void paintRow(int row, const std::vector<bool>& colored);
    bool isSettled(int row);

    QRect picture;
    QRgb* pixels;
    qptrdiff stride; ///< from row to row, in pixels
    repeatedpass pass;
    repeatedpass holePass;
    /// How many discs lie on each pixel of a row; while counting, by how much each differs from the one before it.
    std::vector<int> counts;
    int leftmost;
    int rightmost = 0;
    /// Which pixels take the colour in one of the patterns at least.
    std::vector<bool> everColored;
    /// Pixels to be painted in a row until it is looked at, and until the look after that; whether a look found that no
    /// more discs change it.
    struct rowstate {
        qint64 untilLook;
        qint64 nextLook;
        bool settled;
    };
    std::vector<rowstate> rows;
};
