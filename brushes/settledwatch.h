#pragma once

#include <QImage>
#include <QRegion>
#include <QtGlobal>

class QPainter;

/// Spares painting during a long stroke where more of it changes nothing: keeps the painter's clip off those parts, and
/// tells when nothing is left. It looks at pixels only after so much painting that looking costs little beside it, and
/// less and less often.
class settledwatch {
public:
    /// So many times the picture's pixels are painted before the first look, which costs about as much as two of them.
    static constexpr int firstLook = 6;

    /// Watches the picture that the painter is open on; the painter's pen and mode must stay what they are.
    explicit settledwatch(QPainter* painter);
    /// Takes the clip away again.
    ~settledwatch();
    settledwatch(const settledwatch&) = delete;
    settledwatch& operator=(const settledwatch&) = delete;

    /// To be called after painting that may have touched this many pixels.
    bool settledAfter(qint64 pixels);

private:
    bool clipToUnsettled();
    bool isSettled(const QRect& part) const;
    bool staysAsItIs(const QRect& part) const;
    bool treatsPlacesAlike() const;
    /// The picture, all of it painted over in spans of this length.
    QImage fillSpans(QImage picture, int length) const;

    QPainter* painter;
    const QImage* picture; ///< null when it is not looked at
    QRect area; ///< of the picture, what painting can change
    qint64 painted = 0;
    qint64 lookAt;
    bool looked = false;
    QRegion settled;
};
