#pragma once

#include "discchain.h"
#include "discshape.h"

#include <QRect>
#include <QVector>

#include <vector>

/// The pixels of a picture that chains of equal discs cover, however often. In one opaque colour and one pattern that
/// is all that can be seen of them.
class spraycoverage {
public:
    /// Looks at this part of the picture only.
    explicit spraycoverage(const QRect& area);

    /// Of so many neighbours in the chain, together, one is looked at, and the last of all.
    void add(const discshape& shape, const discchain& chain, int together = 1);
    /// Rectangles without overlap, one row high, that make up what is covered.
    QVector<QRect> rectangles();

private:
    struct span {
        int row;
        int left;
        int right; ///< behind the last pixel
    };

    void widen(const discshape& shape, const QRect& box);
    bool isFull() const;
    void append(int row, int left, int right);
    void keep(const span& finished);
    void merge();
    std::size_t index(int row) const { return static_cast<std::size_t>(row - area.top()); }

    QRect area;
    bool full = false;
    /// The span that one chain covers in each row of the area.
    std::vector<int> lefts;
    std::vector<int> rights;
    /// The span of each row that the next one most likely widens.
    std::vector<span> newest;
    /// All others.
    std::vector<span> spans;
    std::size_t mergeAt;
};
