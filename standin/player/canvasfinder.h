#pragma once

#include <QImage>
#include <QString>

class QWidget;

/// The drawing window and its canvas. Which window is meant when several are open is chosen once and holds until it is
/// chosen anew.
namespace canvasfinder {

/// A window as windowfinder knows it, or "rows:TEXT" for the drawing window with such a row in its list.
void choose(const QString& window);
QWidget* window();
/// Null while there is none.
QWidget* canvas();
/// The canvas as it paints itself, with the overlay of a running tool.
QImage picture(QWidget* canvas);

} // namespace canvasfinder
