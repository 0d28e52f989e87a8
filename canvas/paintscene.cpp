#include "paintscene.h"

#include "brushes/airbrushbrush.h"
#include "brushes/ellipsebrush.h"
#include "brushes/eraserbrush.h"
#include "brushes/linebrush.h"
#include "brushes/pencilbrush.h"
#include "brushes/picturefile.h"
#include "brushes/rectbrush.h"
#include "brushes/selectionbrush.h"
#include "brushes/textbrush.h"
#include "layers.h"
#include "paintscenetools.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

namespace {

constexpr QRgb paper = 0xffffffff;
constexpr QRgb unpainted = 0x00ffffff;

QImage makeLayer(const QSize& size, QRgb value)
{
    QImage layer(size, QImage::Format_ARGB32);
    layer.fill(value);
    return layer;
}

bool isHeld(int width, int height) { return width > 0 && height > 0 && qint64{width} * height <= mostPixels; }

/// Writes over a file in place, without making it shorter before all is written: when the disk is full, the old bytes
/// still have their room and are put back.
void writeOver(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!QFileInfo(path).isFile()
        || !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        return;
    }
    const QByteArray old = file.readAll();
    const auto put = [&file](const QByteArray& content) {
        return file.seek(0) && file.write(content) == content.size() && file.resize(content.size());
    };
    if (!put(bytes)) {
        put(old);
    }
}

} // namespace

paintscene::paintscene(int width, int height, QWidget* parent)
    : QWidget(parent)
    , canvas(isHeld(width, height) ? makeLayer(QSize(width, height), paper) : QImage())
    , pencil(std::make_unique<pencilbrush>())
    , line(std::make_unique<linebrush>())
    , rect(std::make_unique<rectbrush>())
    , ellipse(std::make_unique<ellipsebrush>())
    , eraser(std::make_unique<eraserbrush>())
    , airbrush(std::make_unique<airbrushbrush>())
    , text(std::make_unique<textbrush>())
    , selection(std::make_unique<selectionbrush>())
    , color(QString::fromLatin1("black"))
{
    setStyleSheet(QString::fromLatin1("background-color: white"));
    // Not WA_PaintOnScreen, although the canvas paints all of itself: with it Qt 5 never calls paintEvent.
    setAttribute(Qt::WA_StaticContents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(canvas.size());
    selection->reset();
}

paintscene::~paintscene() = default;

void paintscene::setImage(const QString& path, bool asBackground)
{
    if (canvas.isNull()) {
        return;
    }
    const bool isFirst = !opened;
    opened = true;
    if (path.isEmpty()) {
        canvas.fill(paper);
        return;
    }
    const QSize size = canvas.size();
    if (asBackground) {
        canvas.fill(unpainted);
        loadLayer(background, path, size);
        backgroundCovers = layers::covers(background, canvas.rect());
    } else {
        if (isFirst) {
            // Nothing is lost with the blank layer, and a session then never holds two pictures.
            canvas = QImage();
        }
        loadLayer(canvas, path, size);
    }
    hasBackground = asBackground;
}

void paintscene::loadLayer(QImage& layer, const QString& path, const QSize& size)
{
    QImage picture = readPicture(path);
    if (!picture.isNull()) {
        layer = std::move(picture).convertToFormat(QImage::Format_ARGB32);
    } else if (layer.isNull()) {
        layer = makeLayer(size, paper);
    }
    layers::normalise(layer);
}

void paintscene::savePicture(const QString& path)
{
    if (canvas.isNull()) {
        return;
    }
    QBuffer encoded;
    encoded.open(QIODevice::WriteOnly);
    const bool isEncoded = (hasBackground ? layers::merged(background, canvas) : canvas).save(&encoded, "PNG", -1);
    if (!isEncoded) {
        return;
    }
    // Written beside the file and put in its place at the end: an export that breaks off must not take an older one
    // with it. Where no file may be made beside it the older one is written over.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        writeOver(path, encoded.data());
    } else if (file.write(encoded.data()) == encoded.size()) {
        file.commit();
    }
}

void paintscene::setTool(kelvortool newTool)
{
    tool = newTool;
    selection->reset();
    update();
    updateCursor();
}

void paintscene::setThickness(qreal newThickness)
{
    thickness = newThickness;
    updateCursor();
}

void paintscene::setColor(const QColor& newColor) { color = newColor; }

void paintscene::updateCursor()
{
    const toolrow* row = rowOf(tool);
    // The airbrush has no cursor of its own and keeps the one of the tool before it.
    if (!row || !row->cursor) {
        return;
    }
    const bool dependsOnThickness = tool == kelvortool::eraser;
    if (cursorTool == tool && (!dependsOnThickness || cursorThickness == thickness)) {
        return;
    }
    setCursor(row->cursor(thickness));
    cursorTool = tool;
    cursorThickness = thickness;
}
