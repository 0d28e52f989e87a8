#include "randomuser.h"

#include "brushes/strokes.h"
#include "randompictures.h"

namespace {

// What a stroke records at most while it still goes out in one batch: press, moves and release.
constexpr int oneBatch = 19;

} // namespace

randomuser::randomuser(paintscene& scene, const QSize& size, quint32 seed)
    : scene(scene)
    , user(scene)
    , size(size)
    , random(seed)
{
}

void randomuser::act()
{
    switch (upTo(7)) {
    case 0:
    case 1:
        drawPath();
        break;
    case 2:
        drawShape();
        break;
    case 3:
        writeText();
        break;
    case 4:
        select();
        break;
    case 5:
        fill();
        break;
    default:
        useEffect();
        break;
    }
}

void randomuser::stroke()
{
    if (now())
        drawPath();
    else
        drawShape();
}

QPoint randomuser::place() { return randompictures::point(random, size); }

QColor randomuser::anyColor()
{
    // A few colours come up often, so that fills find what they look for.
    const QColor usual[] = {Qt::black, Qt::white, Qt::red, QColor("#123456")};
    return now() ? usual[upTo(4)] : QColor::fromRgb(random.generate());
}

qreal randomuser::anyWidth() { return seldom() ? (1 + upTo(2000)) / 10.0 : (1 + upTo(80)) / 10.0; }

void randomuser::takeTool(kelvortool tool)
{
    if (seldom()) {
        user.take(kelvortool::notool, anyColor(), anyWidth());
        user.drag({place(), place()});
    }
    user.take(tool, anyColor(), anyWidth());
}

void randomuser::press(const QPoint& pos, Qt::KeyboardModifiers modifiers)
{
    user.press(pos, Qt::LeftButton, modifiers);
    if (seldom()) {
        distract(pos);
    }
}

/// What is not for the tool, in the middle of a drag.
void randomuser::distract(const QPoint& pos)
{
    user.press(pos, Qt::RightButton);
    user.release(pos, Qt::RightButton);
    user.keyDown(Qt::Key_Shift);
    user.keyUp(Qt::Key_Shift);
    user.keyDown(Qt::Key_A);
}

void randomuser::drawPath()
{
    takeTool(now() ? kelvortool::pencil : kelvortool::eraser);
    const qreal width = anyWidth();
    user.setThickness(width);
    const int positions = 1 + upTo(width < 1 ? oneBatch - 1 : 70);
    QPoint pos = place();
    press(pos);
    for (int i = 1; i < positions; ++i) {
        pos += QPoint(random.bounded(-12, 13), random.bounded(-12, 13));
        user.move(pos);
    }
    user.release(now() ? pos : place());
}

void randomuser::drawShape()
{
    const kelvortool shapes[] = {kelvortool::line, kelvortool::rect, kelvortool::ellipse};
    takeTool(shapes[upTo(3)]);
    press(place(), anyKeys());
    for (int moves = upTo(30); moves > 0; --moves) {
        user.move(place(), anyKeys());
    }
    user.release(place(), Qt::LeftButton, anyKeys());
}

void randomuser::writeText()
{
    takeTool(kelvortool::text);
    for (bool again = true; again; again = now()) {
        press(place());
        user.move(place());
        user.release(place());
        for (int keys = upTo(12); keys > 0; --keys) {
            const int key = 0x21 + upTo(0xff - 0x21);
            user.keyDown(seldom() ? int(Qt::Key_Backspace) : key, anyKeys());
        }
        if (seldom()) {
            user.setColor(anyColor());
            user.setThickness(anyWidth());
            user.keyDown(Qt::Key_Escape);
        }
    }
    if (now()) {
        user.keyDown(now() ? Qt::Key_Return : Qt::Key_Enter);
    } else {
        user.loseFocus();
    }
}

void randomuser::select()
{
    takeTool(kelvortool::select);
    QPoint corner = place();
    QPoint opposite = place();
    // Large enough to have something inside in whatever direction it was dragged.
    while (qAbs(opposite.x() - corner.x()) < 4 || qAbs(opposite.y() - corner.y()) < 4 || isUnset(corner)
           || isUnset(opposite)) {
        corner = place();
        opposite = place();
    }
    if (seldom()) {
        user.drag({place()});
    }
    press(corner);
    user.move(place());
    user.release(opposite);
    if (now()) {
        user.keyDown(Qt::Key_Delete);
    }
    useEffect();
    moveSelection(corner, (corner + opposite) / 2);
}

void randomuser::moveSelection(QPoint corner, QPoint grab)
{
    // Only a completed move leaves nothing pending.
    do {
        QPoint drop = place();
        while (isUnset(drop - (grab - corner))) {
            drop = place();
        }
        press(grab);
        user.move(place());
        user.release(drop);
        corner = drop - (grab - corner);
        grab = corner;
        useEffect();
    } while (now());
}

void randomuser::fill()
{
    takeTool(kelvortool::fill);
    user.press(place(), now() ? Qt::LeftButton : Qt::RightButton);
    user.move(place());
    user.release(place(), Qt::LeftButton);
}

void randomuser::useEffect()
{
    switch (upTo(12)) {
    case 0:
        scene.flipHorizontally(true, QString());
        break;
    case 1:
        scene.flipVertically(true, QString());
        break;
    case 2:
        scene.swapChannels(true, QString());
        break;
    case 3:
        scene.invertColors(true, QString());
        break;
    case 4:
        scene.grayscale(true, QString());
        break;
    case 5:
        scene.clearCanvas(true);
        break;
    default:
        break;
    }
}
