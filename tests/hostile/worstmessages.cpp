// Measures how long single messages take a window away whose canvas has 4 megapixels, and prints the slowest of each
// sort as a table. A measurement and no test: the times are the machine's. With an argument only the sorts with that
// text in their names are tried.

#include "messagesorts.h"

#include "canvas/paintscene.h"
#include "protocol/messagereader.h"

#include <QApplication>
#include <QScrollArea>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>
#include <random>

namespace {

constexpr int side = messagesort::side;
constexpr int tries = 3; ///< messages of a sort
constexpr int repeats = 2; ///< of each, on a new canvas; the shortest time counts

// A whiteboard's canvas behind its scroll bars, repainted as far as it is seen.
class shownCanvas {
public:
    shownCanvas(const QString& picture, bool asBackground)
        : canvas(new paintscene(side, side, nullptr))
    {
        canvas->setImage(picture, asBackground);
        area.setWidget(canvas);
        area.resize(1000, 800);
        area.show();
        QCoreApplication::processEvents();
    }

    // Milliseconds from the arrival of the message to the repainted window, of the processor: others on the machine do
    // not count.
    double play(const QByteArray& text)
    {
        const std::clock_t begin = std::clock();
        if (text.startsWith(static_cast<char>(messagekind::draw))) {
            const auto message = wire::readDraw(text.constData());
            QColor color;
            color.setNamedColor(message->color);
            canvas->applyDraw(message->tool, color, message->thick, message->points);
        } else {
            const auto message = wire::readExtendedDraw(text.constData());
            canvas->applyExtendedDraw(message->tool, message->data);
        }
        QCoreApplication::processEvents();
        return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
    }

private:
    QScrollArea area;
    paintscene* canvas;
};

// Corridors one pixel wide that wind through the whole picture, walls one pixel wide between them.
QImage maze()
{
    QImage picture(side, side, QImage::Format_ARGB32);
    picture.fill(Qt::white);
    for (int x = 1; x < side; x += 2) {
        for (int y = 0; y < side; ++y) {
            const int gap = x % 4 == 1 ? side - 1 : 0;
            if (y != gap)
                picture.setPixel(x, y, 0xff000000);
        }
    }
    return picture;
}

QImage noise()
{
    std::mt19937 random(1);
    QImage picture(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            picture.setPixel(x, y, static_cast<QRgb>(random()));
    }
    return picture;
}

QString save(const QTemporaryDir& directory, const char* name, const QImage& picture)
{
    const QString path = directory.filePath(QString::fromLatin1(name));
    picture.save(path, "PNG");
    return path;
}

double worst(const messagesort& which, const QString& picture, bool asBackground)
{
    double slowest = 0;
    for (int message = 0; message < tries; ++message) {
        double shortest = std::numeric_limits<double>::max();
        for (int repeat = 0; repeat < repeats; ++repeat) {
            shownCanvas canvas(picture, asBackground);
            messagedice dice(message, message * repeats + repeat);
            shortest = std::min(shortest, canvas.play(which.make(dice)));
        }
        slowest = std::max(slowest, shortest);
    }
    return slowest;
}

} // namespace

int main(int count, char* arguments[])
{
    const QApplication application(count, arguments);
    const QTemporaryDir directory;
    const QString noisePath = save(directory, "noise.png", noise());
    // In the order of messagesort::picture.
    const std::array<QString, 3> paths{QString(), noisePath, save(directory, "maze.png", maze())};
    std::printf("| Message | Plain canvas, ms | Over a background, ms |\n|---|---|---|\n");
    for (const messagesort& which : costlySorts()) {
        if (count > 1 && !std::strstr(which.name, arguments[1]))
            continue;
        const QString& picture = paths[static_cast<std::size_t>(which.on)];
        std::printf("| %s | %.1f | %.1f |\n", which.name, worst(which, picture, false), worst(which, noisePath, true));
        std::fflush(stdout);
    }
    return 0;
}
