#include "layers.h"
#include "paintscenetools.h"

#include <QPaintEvent>
#include <QPainter>

void paintscene::paintEvent(QPaintEvent* event)
{
    QPainter screen(this);
    for (const QRect& exposed : event->region()) {
        paintExposed(screen, exposed);
    }
}

void paintscene::paintExposed(QPainter& screen, const QRect& exposed)
{
    const bool overlaid = hasOverlay();
    // A band at a time, so that a repaint of everything needs no second picture. 1 MiB stays in the processor's cache.
    // With an overlay the bands are larger: where a band cuts a line one pixel wide, the toolkit may shift its pixels.
    const int bandPixels = 1 << (overlaid ? 20 : 18);
    const int rows = qBound(1, bandPixels / exposed.width(), exposed.height());
    // Overlays are painted in the canvas's own pixels and format, so that what is previewed is what will be painted, on
    // scaled screens too.
    const bool seeThrough = hasBackground && !backgroundCovers;
    QImage band(exposed.width(), rows, seeThrough ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int top = exposed.top(); top <= exposed.bottom(); top += rows) {
        const QRect part(exposed.left(), top, exposed.width(), qMin(rows, exposed.bottom() - top + 1));
        QImage slice(band.bits(), part.width(), part.height(), band.bytesPerLine(), band.format());
        layers::compose(slice, part.topLeft(), background, canvas);
        if (overlaid) {
            drawOverlay(slice, part.topLeft());
        }
        if (seeThrough) {
            // The toolkit leaves the widget's own background out for a widget that paints all of itself.
            screen.fillRect(part, Qt::white);
        }
        screen.drawImage(part.topLeft(), slice);
    }
}

bool paintscene::hasOverlay() const
{
    const toolrow* row = rowOf(tool);
    return row && row->overlay && !canvas.isNull();
}

void paintscene::drawOverlay(QImage& slice, const QPoint& origin)
{
    QRect part(origin, slice.size());
    if (hasBackground) {
        // Beyond the canvas there is no picture to preview on. Cut out, not clipped: the toolkit draws thin lines a
        // little differently under a clip.
        part &= canvas.rect();
    }
    if (part.isEmpty()) {
        return;
    }
    QRgb* pixels = reinterpret_cast<QRgb*>(slice.scanLine(part.top() - origin.y())) + (part.left() - origin.x());
    QImage view(reinterpret_cast<uchar*>(pixels), part.width(), part.height(), slice.bytesPerLine(),
                QImage::Format_ARGB32);
    QPainter painter(&view);
    painter.translate(-part.topLeft());
    rowOf(tool)->overlay(*this, &painter);
}
