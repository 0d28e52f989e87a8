#include "strokes.h"

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QTransform>

#include <algorithm>
#include <limits>

namespace {

/// Beyond any picture, and small enough for the toolkit to compute extents in 32 bits.
constexpr double farAway = 1 << 29;

double near(double coordinate) { return std::clamp(coordinate, -farAway, farAway); }

} // namespace

namespace strokes {

QPen pen(const QBrush& brush, qreal thick, Qt::PenStyle style)
{
    return QPen(brush, thick, style, Qt::RoundCap, Qt::RoundJoin);
}

void setPen(QPainter* painter, const QBrush& brush, qreal thick)
{
    const bool paints = thick < std::numeric_limits<qreal>::infinity();
    painter->setPen(paints ? pen(brush, thick) : QPen(Qt::NoPen));
}

// The name, for Qt::gray is another grey.
QPen bandPen() { return pen(QColor(QLatin1String("grey")), 1.0, Qt::DotLine); }

void eraseArea(QPainter* painter, const QRect& area, bool opaque)
{
    const double left = near(area.left());
    const double top = near(area.top());
    const double right = near(area.right() + 1.0);
    const double bottom = near(area.bottom() + 1.0);
    const QPainter::CompositionMode mode = painter->compositionMode();
    // Clear, not white: on a canvas over a background the background must show again.
    if (!opaque)
        painter->setCompositionMode(QPainter::CompositionMode_Clear);
    painter->eraseRect(QRectF(left, top, right - left, bottom - top));
    painter->setCompositionMode(mode);
}

QRect pictureRect(const QPainter* painter)
{
    const QRect device(0, 0, painter->device()->width(), painter->device()->height());
    return painter->deviceTransform().inverted().mapRect(device);
}

QRect paintableRect(const QPainter* painter)
{
    const int reached = std::numeric_limits<short>::max();
    return pictureRect(painter).intersected(QRect(0, 0, reached, reached));
}

const QImage* pictureOf(const QPainter* painter)
{
    const auto* picture = dynamic_cast<const QImage*>(painter->device());
    return picture && picture->depth() == 32 ? picture : nullptr;
}

QRgb* plainPixels(const QPainter* painter)
{
    const QImage* picture = pictureOf(painter);
    const bool plain = picture && picture->format() == QImage::Format_ARGB32 && painter->deviceTransform().isIdentity()
        && !painter->hasClipping() && painter->opacity() == 1.0 && !(painter->renderHints() & QPainter::Antialiasing);
    // Past the sharing of pictures: a copy made here would not be the one that the painter is open on.
    return plain ? const_cast<QRgb*>(reinterpret_cast<const QRgb*>(picture->constBits())) : nullptr;
}

int saturated(qint64 value)
{
    return static_cast<int>(
        std::clamp<qint64>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace strokes
