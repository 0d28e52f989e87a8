#pragma once

#include <QImage>

class QWidget;

/// Pictures of what really stands on the screen: a widget's own rendering would look right also where the window system
/// shows something else.
namespace screenshot {

QSize screenSize();
/// Only an X screen can be read: elsewhere the toolkit gives nothing, and windows paint themselves for the pictures.
bool canReadScreen();
/// A part of the screen, or with a null one the whole. Where the screen cannot be read, the window in front.
QImage ofScreen(const QRect& part);
/// With the window manager's frame. Where the screen cannot be read, the window's own rendering.
QImage ofWindow(QWidget* window);

} // namespace screenshot
