#include "brushes/selectionbrush.h"
#include "brushes/strokes.h"
#include "floodfill.h"
#include "paintscenetools.h"
#include "payloads.h"

#include <QPainter>

using effects::effect;

void paintscene::clearCanvas(bool send)
{
    if (canvas.isNull()) {
        return;
    }
    const QRect region = send ? selection->selection() : QRect();
    if (region.isValid()) {
        {
            QPainter painter(&canvas);
            strokes::eraseArea(&painter, region, !hasBackground);
        }
        emit extendedPaintDataAvailable(kelvortool::clearselection, payloads::regionData(region));
    } else {
        canvas.fill(hasBackground ? QRgb{0x00ffffff} : QRgb{0xffffffff});
        if (send) {
            emit paintDataAvailable(kelvortool::clear, {});
        }
    }
    update();
}

void paintscene::applyEffect(effect kind, kelvortool message, bool send, const QString& data)
{
    if (canvas.isNull()) {
        return;
    }
    if (send) {
        // A band that was dragged up or to the left is not valid and stands for everything, here and at the peers.
        const QRect region = selection->selection();
        if (region.isValid()) {
            effects::apply(canvas, kind, region);
            emit extendedPaintDataAvailable(message, payloads::regionData(region));
        } else {
            effects::apply(canvas, kind);
            emit extendedPaintDataAvailable(message, payloads::wholeCanvas());
        }
        update();
        return;
    }
    if (data == payloads::wholeCanvas()) {
        effects::apply(canvas, kind);
    } else if (const auto region = payloads::readRegion(data)) {
        effects::apply(canvas, kind, *region);
    }
}

void paintscene::flipHorizontally(bool send, const QString& data)
{
    applyEffect(effect::flipHorizontally, kelvortool::fliphorizontally, send, data);
}

void paintscene::flipVertically(bool send, const QString& data)
{
    applyEffect(effect::flipVertically, kelvortool::flipvertically, send, data);
}

void paintscene::swapChannels(bool send, const QString& data)
{
    applyEffect(effect::swapChannels, kelvortool::swap, send, data);
}

void paintscene::invertColors(bool send, const QString& data)
{
    applyEffect(effect::invertColors, kelvortool::invert, send, data);
}

void paintscene::grayscale(bool send, const QString& data)
{
    applyEffect(effect::grayscale, kelvortool::grayscale, send, data);
}

void paintscene::floodFill(const QPoint& pos, const QColor& fillColor) { ::floodFill(canvas, pos, fillColor.rgb()); }
