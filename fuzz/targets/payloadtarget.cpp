#include "payloadtarget.h"

#include "must.h"
#include "protocol/messagereader.h"

#include <cstdlib>

namespace {

void paint(paintscene& canvas, const QByteArray& text)
{
    const QSize size = canvas.picture().size();
    if (text.startsWith(static_cast<char>(messagekind::draw))) {
        if (const auto message = wire::readDraw(text.constData())) {
            QColor color;
            color.setNamedColor(message->color);
            canvas.applyDraw(message->tool, color, message->thick, message->points);
        }
    } else if (text.startsWith(static_cast<char>(messagekind::extendedDraw))) {
        if (const auto message = wire::readExtendedDraw(text.constData()))
            canvas.applyExtendedDraw(message->tool, message->data);
    }
    must(canvas.picture().size() == size, "a canvas has changed its size");
    must(size.isEmpty() || canvas.picture().format() == QImage::Format_ARGB32, "a canvas has changed its format");
}

} // namespace

payloadtarget::payloadtarget()
{
    addCanvas(64, 48);
    addCanvas(1, 1);
    addCanvas(200, 3);
    addCanvas(-1, 0);
    addCanvas(64, 48);
    QImage picture(50, 60, QImage::Format_ARGB32);
    picture.fill(0x80336699);
    const QString path = directory.filePath(QString::fromLatin1("background.png"));
    must(picture.save(path), "no background for the canvas");
    canvases.back()->setImage(path, true);
}

void payloadtarget::addCanvas(int width, int height)
{
    canvases.push_back(std::make_unique<paintscene>(width, height, nullptr));
    canvases.back()->setImage(QString(), false);
}

void payloadtarget::run(const QByteArray& input)
{
    if (input.isEmpty())
        return;
    std::srand(1);
    paintscene& canvas = *canvases[static_cast<uchar>(input.at(0)) % canvases.size()];
    const QList<QByteArray> messages = input.mid(1).split('\0');
    const QImage before = canvas.picture();
    for (const QByteArray& message : messages)
        paint(canvas, message);
    painted += canvas.picture() != before ? 1 : 0;
    canvas.grab(QRect(3, 2, 40, 40));
    canvas.applyDraw(static_cast<char>(kelvortool::clear), QColor(), 1, {});
}
