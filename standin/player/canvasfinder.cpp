#include "canvasfinder.h"

#include "windowfinder.h"

#include <QWidget>

namespace {

QString& chosen()
{
    static QString name = QStringLiteral("whiteboard");
    return name;
}

} // namespace

namespace canvasfinder {

void choose(const QString& window) { chosen() = window; }

QWidget* window() { return windowfinder::window(chosen()); }

QWidget* canvas() { return windowfinder::descendant(window(), "paintscene"); }

QImage picture(QWidget* canvas)
{
    QImage image(canvas->size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    canvas->render(&image);
    return image;
}

} // namespace canvasfinder
