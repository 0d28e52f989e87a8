#include "literalscene.h"

#include "literalpixels.h"
#include "tests/brushes/literalbrushes.h"

#include <utility>

namespace {

const QPoint unset(-1, -1);

QString textOf(const QPoint& point) { return QString("%1|%2").arg(point.x()).arg(point.y()); }

} // namespace

bool operator==(const sentpaint& a, const sentpaint& b)
{
    return a.extended == b.extended && a.tool == b.tool && a.points == b.points && a.data == b.data;
}

literalscene::literalscene(const QSize& size)
    : size(size)
    , canvas(size, QImage::Format_ARGB32)
{
    setTool(kelvortool::notool);
}

void literalscene::setImage(const QImage& file, bool asBackground)
{
    canvas.fill(asBackground ? 0x00ffffff : 0xffffffff);
    hasBackground = asBackground;
    if (!file.isNull()) {
        QImage& layer = asBackground ? background : canvas;
        layer = file.convertToFormat(QImage::Format_ARGB32);
        literal::normalise(layer);
    }
}

QList<sentpaint> literalscene::takeSent() { return std::exchange(sent, {}); }

QRect literalscene::selected() const { return band.areSet() ? band.rect() : QRect(); }

void literalscene::setTool(kelvortool newTool)
{
    tool = newTool;
    band.start = band.end = grabPoint = dragPoint = unset;
    moving = false;
}

/// Of the tools that keep two corners and are drawn at the release.
literalscene::corners* literalscene::cornersOfTool()
{
    switch (tool) {
    case kelvortool::line:
        return &line;
    case kelvortool::rect:
        return &rect;
    case kelvortool::ellipse:
        return &ellipse;
    default:
        return nullptr;
    }
}

void literalscene::press(Qt::MouseButton button, const QPoint& pos, Qt::KeyboardModifiers modifiers)
{
    if (tool == kelvortool::fill) {
        literal::floodFill(canvas, pos, color.rgb());
        sent.append({true, tool, {}, color.name() + ' ' + textOf(pos)});
    }
    if (button != Qt::LeftButton || tool == kelvortool::fill || tool == kelvortool::notool) {
        return;
    }
    if (corners* shape = cornersOfTool()) {
        *shape = {pos, unset, modifiers.testFlag(Qt::ShiftModifier)};
    } else if (tool == kelvortool::select) {
        pressSelection(pos);
    } else {
        QPainter painter(&canvas);
        if (tool == kelvortool::text) {
            pressText(painter, pos);
        } else if (tool == kelvortool::pencil) {
            literal::pencil(&painter, color, thickness, {pos});
            pencilLast = pos;
        } else if (tool == kelvortool::eraser) {
            literal::eraser(&painter, thickness, {pos}, !hasBackground);
            eraserLast = pos;
        } else {
            airbrushLast = pos;
        }
    }
    deliverText();
    points.append(pos);
}

void literalscene::drawText(QPainter& painter, const QPen& pen, const QRect& box, const QString& text)
{
    painter.setPen(pen);
    painter.drawText(box, Qt::AlignCenter, text);
}

void literalscene::pressText(QPainter& painter, const QPoint& pos)
{
    if (editing) {
        QPen pen = literal::strokePen(color, thickness);
        pen.setStyle(Qt::DotLine);
        drawText(painter, pen, box.rect(), text);
        finished = text;
    }
    box = {pos, unset};
    editing = false;
    text.clear();
}

void literalscene::pressSelection(const QPoint& pos)
{
    if (band.areSet() && band.rect().contains(pos)) {
        moving = true;
        selectedImage = canvas.copy(band.rect());
        grabPoint = pos;
        return;
    }
    band = {pos, unset};
    grabPoint = dragPoint = unset;
    moving = false;
    points.clear();
}

void literalscene::move(Qt::MouseButtons buttons, const QPoint& pos, Qt::KeyboardModifiers modifiers)
{
    if (!buttons.testFlag(Qt::LeftButton) || tool == kelvortool::notool || tool == kelvortool::fill) {
        return;
    }
    if (corners* shape = cornersOfTool()) {
        shape->end = pos;
        shape->shiftHeld = modifiers.testFlag(Qt::ShiftModifier);
    } else if (tool == kelvortool::text) {
        box.end = pos;
    } else if (tool == kelvortool::select) {
        (moving ? dragPoint : band.end) = pos;
    } else {
        QPainter painter(&canvas);
        paintStep(painter, pos);
        (tool == kelvortool::pencil ? pencilLast : tool == kelvortool::eraser ? eraserLast : airbrushLast) = pos;
        points.append(pos);
        if (points.size() == 20) {
            sendStroke();
            points.append(pos);
        }
    }
}

/// One step of a path, from where it stood.
void literalscene::paintStep(QPainter& painter, const QPoint& pos)
{
    if (tool == kelvortool::airbrush) {
        literal::spraySegment(&painter, color, thickness, airbrushLast, pos);
        return;
    }
    const bool draws = tool == kelvortool::pencil;
    if (draws) {
        painter.setPen(literal::strokePen(color, thickness));
    } else {
        literal::setEraserPen(&painter, thickness, !hasBackground);
    }
    painter.drawPoints(&pos, 1);
    const QLine step = draws ? QLine(pencilLast, pos) : QLine(pos, eraserLast);
    painter.drawLines(&step, 1);
}

void literalscene::release(Qt::MouseButton button, const QPoint& pos, Qt::KeyboardModifiers modifiers)
{
    if (button != Qt::LeftButton || tool == kelvortool::notool || tool == kelvortool::fill) {
        return;
    }
    const bool regular = tool != kelvortool::line && modifiers.testFlag(Qt::ShiftModifier);
    QPainter painter(&canvas);
    if (tool == kelvortool::select) {
        if (!releaseSelection(painter, pos)) {
            points.append(pos);
            return;
        }
    } else {
        if (corners* shape = cornersOfTool()) {
            paintShape(painter, shape->start, pos, regular);
            shape->start = shape->end = unset;
        } else if (tool == kelvortool::text) {
            editing = true;
            box.end = pos;
        } else {
            paintStep(painter, pos);
        }
        points.append(pos);
        if (cornersOfTool() && regular) {
            points.append(unset);
        }
    }
    if (tool != kelvortool::text) {
        sendStroke();
    }
}

void literalscene::paintShape(QPainter& painter, const QPoint& from, const QPoint& to, bool regular) const
{
    if (tool == kelvortool::line) {
        literal::line(&painter, color, thickness, from, to);
    } else if (tool == kelvortool::rect) {
        literal::rect(&painter, color, thickness, from, to, regular);
    } else {
        literal::ellipse(&painter, color, thickness, from, to, regular);
    }
}

/// Whether a move was completed.
bool literalscene::releaseSelection(QPainter& painter, const QPoint& pos)
{
    if (!moving) {
        if (pos == band.start) {
            setTool(tool);
        } else {
            band.end = pos;
        }
        return false;
    }
    literal::eraseArea(&painter, band.start, band.end, !hasBackground);
    points = {band.start, band.end, grabPoint, pos};
    band.start = pos - (grabPoint - band.start);
    painter.drawImage(band.start, selectedImage);
    band.end = band.start + QPoint(selectedImage.width(), selectedImage.height());
    grabPoint = dragPoint = unset;
    moving = false;
    return true;
}

void literalscene::keyDown(int key, Qt::KeyboardModifiers modifiers)
{
    if (tool == kelvortool::select && key == Qt::Key_Delete) {
        clear();
    } else if ((tool == kelvortool::rect || tool == kelvortool::ellipse) && key == Qt::Key_Shift) {
        cornersOfTool()->shiftHeld = true;
    }
    if (tool != kelvortool::text || !editing) {
        return;
    }
    const bool isLetter = key >= Qt::Key_A && key <= Qt::Key_Z;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        loseFocus();
    } else if (key == Qt::Key_Backspace) {
        text.chop(1);
    } else if (key > 0 && key <= 0xff) {
        text.append(QChar(isLetter && !modifiers.testFlag(Qt::ShiftModifier) ? key + 0x20 : key));
    }
}

void literalscene::keyUp(int key)
{
    if ((tool == kelvortool::rect || tool == kelvortool::ellipse) && key == Qt::Key_Shift) {
        cornersOfTool()->shiftHeld = false;
    }
}

void literalscene::loseFocus()
{
    if (tool != kelvortool::text || !editing) {
        return;
    }
    QPainter painter(&canvas);
    drawText(painter, literal::strokePen(color, thickness), box.rect(), text);
    finished = text;
    box = {unset, unset};
    editing = false;
    text.clear();
    deliverText();
}

void literalscene::deliverText()
{
    if (finished && points.size() == 2) {
        const QString width = QString("%1").arg(thickness, 0, 'g', -1);
        const QStringList parts{color.name(), width, textOf(points.at(0)), textOf(points.at(1)), *finished};
        sent.append({true, kelvortool::text, {}, parts.join(' ')});
        points.clear();
    }
    finished.reset();
}

void literalscene::sendStroke()
{
    sent.append({false, tool, points, QString()});
    points.clear();
}
