#pragma once

#include <QColor>
#include <QtGlobal>

class QImage;
class QPainter;

/// Tells during a long stroke when the picture has become one colour that more painting with the same pen leaves as it
/// is, so that the rest of the stroke can be spared. It looks at pixels only after so much painting that looking costs
/// little beside it, and less and less often.
class settledwatch {
public:
    /// Watches the picture that the painter is open on; the painter's pen and mode must stay what they are.
    explicit settledwatch(QPainter* painter);

    /// To be called after painting that may have touched this many pixels.
    bool settledAfter(qint64 pixels);

private:
    bool isSettled() const;

    QPainter* painter;
    const QImage* picture;
    qint64 painted = 0;
    qint64 lookAt;
};
