#include "brushes/strokes.h"
#include "brushes/textbrush.h"
#include "paintscenetools.h"
#include "payloads.h"
#include "strokebounds.h"

#include <QPainter>

void paintscene::applyDraw(char toolValue, const QColor& strokeColor, qreal thick, QList<QPoint> path)
{
    const auto painted = static_cast<kelvortool>(toolValue);
    if (canvas.isNull()) {
        return;
    }
    if (painted == kelvortool::clear) {
        clearCanvas(false);
        return;
    }
    const toolrow* row = rowOf(painted);
    if (!row || !row->replay) {
        return;
    }
    {
        QPainter painter(&canvas);
        row->replay(*this, &painter, strokeColor, thick, path);
    }
    if (isPath(painted) && !hasOverlay()) {
        update(strokeBounds(path, thick, canvas.rect()));
    } else {
        // An overlay is repainted as a whole, or a thin line in it would show where it was cut.
        update();
    }
}

void paintscene::applyExtendedDraw(char toolValue, const QString& data)
{
    if (canvas.isNull()) {
        return;
    }
    switch (static_cast<kelvortool>(toolValue)) {
    case kelvortool::text: {
        QPainter painter(&canvas);
        text->replay(&painter, data);
        break;
    }
    case kelvortool::fill: {
        const auto seed = payloads::readFill(data);
        if (!seed) {
            return;
        }
        floodFill(seed->pos, seed->color);
        break;
    }
    case kelvortool::clearselection: {
        const auto region = payloads::readRegion(data);
        if (!region) {
            return;
        }
        QPainter painter(&canvas);
        strokes::eraseArea(&painter, *region, !hasBackground);
        break;
    }
    case kelvortool::fliphorizontally:
        flipHorizontally(false, data);
        break;
    case kelvortool::flipvertically:
        flipVertically(false, data);
        break;
    case kelvortool::swap:
        swapChannels(false, data);
        break;
    case kelvortool::invert:
        invertColors(false, data);
        break;
    case kelvortool::grayscale:
        grayscale(false, data);
        break;
    default:
        return;
    }
    update();
}
