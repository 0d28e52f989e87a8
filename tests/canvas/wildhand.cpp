#include "wildhand.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cstdlib>

namespace {

QString pointText(const QPoint& point) { return QString("%1|%2").arg(point.x()).arg(point.y()); }

} // namespace

wildhand::wildhand(paintscene& real, literalscene& oracle, quint32 seed)
    : real(real)
    , oracle(oracle)
    , size(real.size())
    , random(seed)
{
    connect(&real, &paintscene::paintDataAvailable, this, [this](kelvortool tool, const QList<QPoint>& points) {
        sent.append({false, tool, points, QString()});
    });
    connect(&real, &paintscene::extendedPaintDataAvailable, this, [this](kelvortool tool, const QString& data) {
        sent.append({true, tool, {}, data});
    });
}

void wildhand::both(const std::function<void()>& onReal, const std::function<void()>& onOracle)
{
    // The airbrush draws its patterns by lot.
    const unsigned int lot = random.generate();
    std::srand(lot);
    onReal();
    std::srand(lot);
    onOracle();
}

void wildhand::act()
{
    const int deed = upTo(100);
    if (deed < 8) {
        prepare();
    } else if (deed < 20) {
        press();
    } else if (deed < 62) {
        move();
    } else if (deed < 74) {
        release();
    } else if (deed < 87) {
        key();
    } else if (deed < 91) {
        useEffect();
    } else if (deed < 96) {
        hearStroke();
    } else {
        hearString();
    }
}

QColor wildhand::anyColor()
{
    // A few colours come up often, so that fills find what they look for.
    const QColor usual[] = {Qt::black, Qt::white, Qt::red, QColor("#123456")};
    return upTo(2) == 0 ? usual[upTo(4)] : QColor::fromRgb(random.generate());
}

QPoint wildhand::place()
{
    // A click is two events in one place; the mark of regular shapes is a place as well.
    if (!seldom()) {
        lastPlace = upTo(20) == 0 ? QPoint(-1, -1) : randompictures::point(random, size);
    }
    return lastPlace;
}

void wildhand::mouse(QEvent::Type type, Qt::MouseButton button, const QPoint& pos, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, pos, real.mapToGlobal(pos), button, held, modifiers);
    QCoreApplication::sendEvent(&real, &event);
}

void wildhand::prepare()
{
    const kelvortool tools[] = {kelvortool::notool, kelvortool::pencil,   kelvortool::line, kelvortool::rect,
                                kelvortool::eraser, kelvortool::airbrush, kelvortool::text, kelvortool::ellipse,
                                kelvortool::select, kelvortool::select,   kelvortool::fill, kelvortool::text};
    const kelvortool tool = tools[upTo(12)];
    const QColor color = anyColor();
    const qreal width = anyWidth();
    switch (upTo(4)) {
    case 0:
        both([&] { real.setColor(color); }, [&] { oracle.setColor(color); });
        break;
    case 1:
        both([&] { real.setThickness(width); }, [&] { oracle.setThickness(width); });
        break;
    default:
        both([&] { real.setTool(tool); }, [&] { oracle.setTool(tool); });
        break;
    }
}

void wildhand::press()
{
    const QPoint pos = upTo(2) == 0 && oracle.selected().isValid() ? oracle.selected().center() : place();
    const Qt::MouseButton button = anyButton();
    const Qt::KeyboardModifiers modifiers = anyKeys();
    const QEvent::Type type = seldom() ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
    held |= button;
    both([&] { mouse(type, button, pos, modifiers); }, [&] { oracle.press(button, pos, modifiers); });
}

void wildhand::move()
{
    const QPoint pos = place();
    const Qt::KeyboardModifiers modifiers = anyKeys();
    both([&] { mouse(QEvent::MouseMove, Qt::NoButton, pos, modifiers); }, [&] { oracle.move(held, pos, modifiers); });
}

void wildhand::release()
{
    const QPoint pos = place();
    const Qt::MouseButton button = anyButton();
    const Qt::KeyboardModifiers modifiers = anyKeys();
    held &= ~Qt::MouseButtons(button);
    both([&] { mouse(QEvent::MouseButtonRelease, button, pos, modifiers); },
         [&] { oracle.release(button, pos, modifiers); });
}

void wildhand::key()
{
    const int special[] = {
        Qt::Key_Shift, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Shift, Qt::Key_Backspace, Qt::Key_Escape, 0,
        Qt::Key_Delete};
    const int typed = upTo(2) == 0 ? Qt::Key_A + upTo(26) : 0x20 + upTo(0xe0);
    const int code = upTo(3) == 0 ? special[upTo(8)] : typed;
    const Qt::KeyboardModifiers modifiers = anyKeys();
    const int kind = upTo(10);
    QKeyEvent down(QEvent::KeyPress, code, modifiers);
    QKeyEvent up(QEvent::KeyRelease, code, modifiers);
    QFocusEvent out(QEvent::FocusOut, Qt::OtherFocusReason);
    if (kind == 0) {
        both([&] { QCoreApplication::sendEvent(&real, &out); }, [&] { oracle.loseFocus(); });
    } else if (kind == 1) {
        both([&] { QCoreApplication::sendEvent(&real, &up); }, [&] { oracle.keyUp(code); });
    } else {
        both([&] { QCoreApplication::sendEvent(&real, &down); }, [&] { oracle.keyDown(code, modifiers); });
    }
}

void wildhand::useEffect()
{
    constexpr void (paintscene::*operations[])(bool, const QString&) = {
        &paintscene::flipHorizontally, &paintscene::flipVertically, &paintscene::swapChannels,
        &paintscene::invertColors, &paintscene::grayscale};
    const int number = upTo(5);
    // Not through this object: the sanitizers of GCC 12 take a call by a member pointer in a lambda for a fault.
    const auto effect = [&scene = real, operation = operations[number]] { (scene.*operation)(true, QString()); };
    const auto message = static_cast<kelvortool>(static_cast<char>(kelvortool::fliphorizontally) + number);
    if (upTo(10) == 0) {
        both([&] { real.clearCanvas(true); }, [&] { oracle.clear(); });
    } else {
        both(effect, [&] { oracle.apply(message); });
    }
}

void wildhand::hearStroke()
{
    const auto tool = static_cast<kelvortool>(static_cast<char>(upTo(18)));
    if (tool == kelvortool::clear && !seldom()) {
        return;
    }
    QList<QPoint> path;
    for (int count = seldom() ? upTo(50) : upTo(6); count > 0; --count) {
        path.append(place());
    }
    if (path.size() == 2 && upTo(2) == 0) {
        path.append(QPoint(-1, -1));
    }
    const QColor color = seldom() ? QColor() : anyColor();
    const qreal width = anyWidth();
    both([&] { real.applyDraw(static_cast<char>(tool), color, width, path); },
         [&] { oracle.applyDraw(tool, color, width, path); });
}

void wildhand::hearString()
{
    const auto tool = static_cast<kelvortool>(static_cast<char>(upTo(18)));
    const QString color = seldom() ? QString("transparent") : anyColor().name();
    const QString region = pointText(place()) + ' ' + pointText(place());
    QString data = region;
    if (tool == kelvortool::text) {
        data = QString("%1 %2 %3 text").arg(color).arg(anyWidth()).arg(region);
    } else if (tool == kelvortool::fill) {
        data = color + ' ' + pointText(place());
    } else if (seldom()) {
        data = seldom() ? "Full" : "full";
    }
    if (seldom()) {
        data += seldom() ? " " : "x y";
    }
    both([&] { real.applyExtendedDraw(static_cast<char>(tool), data); }, [&] { oracle.applyExtendedDraw(tool, data); });
}
