#include "canvasfinder.h"

#include "rowfinder.h"
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

QWidget* window()
{
    const QString row = chosen().section(QStringLiteral("rows:"), 1);
    if (row.isEmpty())
        return windowfinder::window(chosen());
    const QWidgetList windows = windowfinder::windows(QStringLiteral("whiteboard"));
    for (QWidget* one : windows) {
        if (findRow(row, *one))
            return one;
    }
    return nullptr;
}

QWidget* canvas() { return windowfinder::descendant(window(), "paintscene"); }

QImage picture(QWidget* canvas)
{
    QImage image(canvas->size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    canvas->render(&image);
    return image;
}

} // namespace canvasfinder
