#include "literalscene.h"

#include "literalpixels.h"
#include "tests/brushes/literalbrushes.h"

#include <QStringList>

namespace {

QString textOf(const QRect& rect)
{
    return QString("%1|%2 %3|%4").arg(rect.left()).arg(rect.top()).arg(rect.right()).arg(rect.bottom());
}

QPoint pointIn(const QString& text) { return QPoint(text.section('|', 0, 0).toInt(), text.section('|', 1, 1).toInt()); }

QRect rectIn(const QStringList& parts) { return QRect(pointIn(parts.at(0)), pointIn(parts.at(1))); }

QColor colorIn(const QString& name)
{
    QColor color;
    color.setNamedColor(name);
    return color;
}

QPen greyDots() { return QPen(QBrush(QColor("grey")), 1.0, Qt::DotLine, Qt::RoundCap, Qt::RoundJoin); }

/// Of one of the five tools that stand for an effect.
effects::effect effectOf(kelvortool tool)
{
    return static_cast<effects::effect>(static_cast<char>(tool) - static_cast<char>(kelvortool::fliphorizontally));
}

bool isEffect(kelvortool tool) { return tool >= kelvortool::fliphorizontally && tool <= kelvortool::grayscale; }

} // namespace

void literalscene::clear()
{
    const QRect region = selected();
    if (region.isValid()) {
        literal::clearRegion(canvas, region, !hasBackground);
        sent.append({true, kelvortool::clearselection, {}, textOf(region)});
    } else {
        canvas.fill(hasBackground ? 0x00ffffff : 0xffffffff);
        sent.append({false, kelvortool::clear, {}, QString()});
    }
}

void literalscene::apply(kelvortool effect)
{
    const QRect region = selected();
    if (region.isValid()) {
        literal::applyRegion(canvas, effectOf(effect), region);
    } else {
        literal::applyWhole(canvas, effectOf(effect));
    }
    sent.append({true, effect, {}, region.isValid() ? textOf(region) : QString("full")});
}

void literalscene::applyDraw(kelvortool painted, const QColor& strokeColor, qreal thick, const QList<QPoint>& path)
{
    const bool isMarked = path.size() == 3 && path.at(2) == QPoint(-1, -1);
    const bool isShape = path.size() == 2 || isMarked;
    if (painted == kelvortool::clear) {
        canvas.fill(hasBackground ? 0x00ffffff : 0xffffffff);
    } else if (painted == kelvortool::select && path.size() == 4) {
        literal::moveArea(&canvas, path.at(0), path.at(1), path.at(2), path.at(3), !hasBackground);
    }
    if (path.isEmpty()) {
        return;
    }
    QPainter painter(&canvas);
    if (painted == kelvortool::pencil) {
        literal::pencil(&painter, strokeColor, thick, path);
    } else if (painted == kelvortool::eraser) {
        literal::eraser(&painter, thick, path, !hasBackground);
    } else if (painted == kelvortool::airbrush) {
        literal::airbrush(&painter, strokeColor, thick, path);
    } else if (painted == kelvortool::line && path.size() == 2) {
        literal::line(&painter, strokeColor, thick, path.at(0), path.at(1));
    } else if (painted == kelvortool::rect && isShape) {
        literal::rect(&painter, strokeColor, thick, path.at(0), path.at(1), isMarked);
    } else if (painted == kelvortool::ellipse && isShape) {
        literal::ellipse(&painter, strokeColor, thick, path.at(0), path.at(1), isMarked);
    }
}

void literalscene::applyExtendedDraw(kelvortool painted, const QString& data)
{
    const QStringList parts = data.split(' ');
    if (painted == kelvortool::text && parts.size() == 5) {
        QPainter painter(&canvas);
        const QPen pen = literal::strokePen(colorIn(parts.at(0)), parts.at(1).toDouble());
        drawText(painter, pen, rectIn(parts.mid(2)), parts.at(4));
    } else if (isEffect(painted) && data == "full") {
        literal::applyWhole(canvas, effectOf(painted));
    } else if (parts.size() != 2) {
        return;
    } else if (painted == kelvortool::fill) {
        literal::floodFill(canvas, pointIn(parts.at(1)), colorIn(parts.at(0)).rgb());
    } else if (painted == kelvortool::clearselection) {
        literal::clearRegion(canvas, rectIn(parts), !hasBackground);
    } else if (isEffect(painted)) {
        literal::applyRegion(canvas, effectOf(painted), rectIn(parts));
    }
}

QImage literalscene::shown() const
{
    if (!hasBackground) {
        // The overlay lies on the pixels as the canvas has them, so that it looks as it will be painted.
        QImage screen = literal::shown(size, QImage(), canvas).convertToFormat(QImage::Format_ARGB32);
        QPainter painter(&screen);
        drawOverlay(painter);
        painter.end();
        return screen.convertToFormat(QImage::Format_RGB32);
    }
    QImage both(canvas.size(), QImage::Format_ARGB32);
    both.fill(Qt::transparent);
    QPainter painter(&both);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, background);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawImage(0, 0, canvas);
    drawOverlay(painter);
    painter.end();
    return literal::shown(size, QImage(), both);
}

void literalscene::drawOverlay(QPainter& painter) const
{
    const corners& shape = tool == kelvortool::line ? line : tool == kelvortool::rect ? rect : ellipse;
    if (tool == kelvortool::select) {
        drawSelection(painter);
    } else if (tool == kelvortool::text && box.areSet()) {
        painter.setPen(greyDots());
        painter.drawRect(box.rect());
        drawText(painter, literal::strokePen(color, thickness), box.rect(), text);
    } else if ((tool == kelvortool::line || tool == kelvortool::rect || tool == kelvortool::ellipse)
               && shape.areSet()) {
        paintShape(painter, shape.start, shape.end, shape.shiftHeld);
    }
}

void literalscene::drawSelection(QPainter& painter) const
{
    if (!band.areSet()) {
        return;
    }
    QRect frame = band.rect();
    if (moving && grabPoint != QPoint(-1, -1) && dragPoint != QPoint(-1, -1)) {
        const QPoint place = dragPoint - (grabPoint - band.start);
        literal::eraseArea(&painter, band.start, band.end, true);
        painter.drawImage(place, selectedImage);
        frame = QRect(place, place + QPoint(selectedImage.width(), selectedImage.height()));
    }
    painter.setPen(greyDots());
    painter.drawRect(frame);
}
