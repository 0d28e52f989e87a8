#include "scenehand.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

paintmessage overTheWire(const paintmessage& message)
{
    paintmessage arrived = message;
    arrived.color = QColor();
    arrived.color.setNamedColor(message.color.name());
    arrived.thickness = QString("%1").arg(message.thickness, 0, 'g', -1).toDouble();
    arrived.points.clear();
    for (const QPoint& point : message.points) {
        const QString text = QString(" %1|%2").arg(point.x()).arg(point.y());
        arrived.points.append(QPoint(text.section('|', 0, 0).toInt(), text.section('|', 1, 1).toInt()));
    }
    arrived.data = QString::fromLatin1(message.data.toLatin1());
    return arrived;
}

void deliver(const paintmessage& message, paintscene& scene)
{
    const char tool = static_cast<char>(message.tool);
    if (message.extended) {
        scene.applyExtendedDraw(tool, message.data);
    } else {
        scene.applyDraw(tool, message.color, message.thickness, message.points);
    }
}

scenehand::scenehand(paintscene& scene)
    : scene(scene)
{
    connect(&scene, &paintscene::paintDataAvailable, this, [this](kelvortool tool, const QList<QPoint>& points) {
        messages.append({false, tool, color, thickness, points, QString()});
    });
    connect(&scene, &paintscene::extendedPaintDataAvailable, this, [this](kelvortool tool, const QString& data) {
        messages.append({true, tool, QColor(), 0, {}, data});
    });
    connect(&scene, &paintscene::clicked, this, [this] { ++clicks; });
}

void scenehand::take(kelvortool tool, const QColor& newColor, qreal newThickness)
{
    scene.setTool(tool);
    setColor(newColor);
    setThickness(newThickness);
}

void scenehand::setColor(const QColor& newColor)
{
    color = chooseColor ? chooseColor(newColor) : newColor;
    scene.setColor(color);
}

void scenehand::setThickness(qreal newThickness)
{
    thickness = chooseThickness ? chooseThickness(newThickness) : newThickness;
    scene.setThickness(thickness);
}

void scenehand::press(const QPoint& pos, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    held |= button;
    mouse(QEvent::MouseButtonPress, pos, button, modifiers);
}

void scenehand::move(const QPoint& pos, Qt::KeyboardModifiers modifiers)
{
    mouse(QEvent::MouseMove, pos, Qt::NoButton, modifiers);
}

void scenehand::release(const QPoint& pos, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    held &= ~Qt::MouseButtons(button);
    mouse(QEvent::MouseButtonRelease, pos, button, modifiers);
}

void scenehand::drag(const QList<QPoint>& path, Qt::KeyboardModifiers modifiers)
{
    press(path.first(), Qt::LeftButton, modifiers);
    for (int i = 1; i < path.size(); ++i) {
        move(path.at(i), modifiers);
    }
    release(path.last(), Qt::LeftButton, modifiers);
}

void scenehand::keyDown(int key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(&scene, &event);
}

void scenehand::keyUp(int key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent event(QEvent::KeyRelease, key, modifiers);
    QCoreApplication::sendEvent(&scene, &event);
}

void scenehand::type(const QString& text)
{
    for (const QChar character : text) {
        const Qt::KeyboardModifiers modifiers = character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
        keyDown(character.toUpper().unicode(), modifiers);
        keyUp(character.toUpper().unicode(), modifiers);
    }
}

void scenehand::loseFocus()
{
    QFocusEvent event(QEvent::FocusOut, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(&scene, &event);
}

QList<paintmessage> scenehand::takeMessages()
{
    const QList<paintmessage> taken = messages;
    messages.clear();
    return taken;
}

paintmessage scenehand::takeOnlyMessage()
{
    const QList<paintmessage> taken = takeMessages();
    return taken.size() == 1 ? taken.first() : paintmessage();
}

void scenehand::mouse(QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, pos, scene.mapToGlobal(pos), button, held, modifiers);
    QCoreApplication::sendEvent(&scene, &event);
}
