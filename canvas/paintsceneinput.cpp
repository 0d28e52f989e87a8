#include "brushes/ellipsebrush.h"
#include "brushes/rectbrush.h"
#include "brushes/strokes.h"
#include "brushes/textbrush.h"
#include "paintscenetools.h"
#include "payloads.h"
#include "strokebounds.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

/// A stroke leaves for the peers each time so many points stand.
constexpr int batchSize = 20;

} // namespace

bool paintscene::callTool(bool (*toolrow::*operation)(paintscene&, toolevent&), toolevent& event)
{
    const toolrow* row = rowOf(tool);
    if (!row || !(row->*operation) || canvas.isNull()) {
        return false;
    }
    QPainter painter(&canvas);
    event.painter = &painter;
    return (row->*operation)(*this, event);
}

void paintscene::mousePressEvent(QMouseEvent* event)
{
    emit clicked();
    if (tool == kelvortool::fill) {
        // On any button, unlike all other tools.
        pressFill(pixelUnder(*event));
        return;
    }
    toolevent press(*event);
    if (!callTool(&toolrow::press, press)) {
        return;
    }
    updateAfter(*event);
    deliverText(std::unique_ptr<QString>(press.finished));
    if (press.clearPoints) {
        points.clear();
    }
    record(press);
}

void paintscene::pressFill(const QPoint& pos)
{
    if (fillRunning || canvas.isNull()) {
        return;
    }
    fillRunning = true;
    floodFill(pos, color);
    fillRunning = false;
    update();
    // Sent also when nothing changed here: a peer's canvas may differ.
    emit extendedPaintDataAvailable(kelvortool::fill, payloads::fillData(color, pos));
}

void paintscene::mouseMoveEvent(QMouseEvent* event)
{
    toolevent move(*event);
    if (!callTool(&toolrow::move, move)) {
        return;
    }
    updateAfter(*event);
    record(move);
    // Exactly, not at least: leftovers of texts that could not be sent may have taken the list beyond, and then it all
    // goes at the release.
    if (move.recordPoint && points.size() == batchSize) {
        sendPoints();
        // A replay paints one batch at a time; the point that both share closes the joint.
        points.append(move.pos);
    }
}

void paintscene::mouseReleaseEvent(QMouseEvent* event)
{
    toolevent release(*event);
    if (!callTool(&toolrow::release, release)) {
        return;
    }
    updateAfter(*event);
    record(release);
    const bool isShape = tool == kelvortool::rect || tool == kelvortool::ellipse;
    if (release.recordPoint && isShape && release.modifiers.testFlag(Qt::ShiftModifier)) {
        points.append(unsetPoint);
    }
    if (release.flushPoints && !points.isEmpty() && tool != kelvortool::text) {
        sendPoints();
    }
}

void paintscene::keyPressEvent(QKeyEvent* event)
{
    switch (tool) {
    case kelvortool::text: {
        if (canvas.isNull()) {
            return;
        }
        QString* finished = nullptr;
        {
            QPainter painter(&canvas);
            if (!text->keyPress(&painter, color, thickness, event->key(), event->modifiers(), &finished)) {
                return;
            }
        }
        update();
        deliverText(std::unique_ptr<QString>(finished));
        break;
    }
    case kelvortool::rect:
        if (rect->keyPress(event->key())) {
            update();
        }
        break;
    case kelvortool::ellipse:
        if (ellipse->keyPress(event->key())) {
            update();
        }
        break;
    case kelvortool::select:
        if (event->key() == Qt::Key_Delete) {
            clearCanvas(true);
        }
        break;
    default:
        break;
    }
}

void paintscene::keyReleaseEvent(QKeyEvent* event)
{
    const bool changed = (tool == kelvortool::rect && rect->keyRelease(event->key()))
        || (tool == kelvortool::ellipse && ellipse->keyRelease(event->key()));
    if (changed) {
        update();
    }
}

void paintscene::focusOutEvent(QFocusEvent*)
{
    if (tool != kelvortool::text || canvas.isNull()) {
        return;
    }
    QString* finished = nullptr;
    {
        QPainter painter(&canvas);
        if (!text->finish(&painter, color, thickness, &finished)) {
            return;
        }
    }
    update();
    deliverText(std::unique_ptr<QString>(finished));
}

void paintscene::record(const toolevent& event)
{
    if (event.recordPoint) {
        points.append(event.pos);
    }
}

void paintscene::sendPoints()
{
    emit paintDataAvailable(tool, points);
    points.clear();
}

void paintscene::deliverText(std::unique_ptr<QString> finished)
{
    // Any other number of points is left over from something else; such a text stays the author's own.
    if (!finished || points.size() != 2) {
        return;
    }
    emit extendedPaintDataAvailable(kelvortool::text,
                                    payloads::textData(color, thickness, points.at(0), points.at(1), *finished));
    points.clear();
}

void paintscene::updateAfter(const QMouseEvent& event)
{
    if (!isPath(tool)) {
        // Overlays are drawn all over.
        update();
        return;
    }
    const bool isPress = event.type() == QEvent::MouseButtonPress;
    const QPoint pos = pixelUnder(event);
    if (isPress || pathTool == tool) {
        update(strokeBounds({isPress ? pos : pathEnd, pos}, thickness, canvas.rect()));
    } else {
        // The tool goes on from where it once stood, which is not known here.
        update();
    }
    if (event.type() != QEvent::MouseButtonRelease) {
        pathTool = tool;
        pathEnd = pos;
    }
}
