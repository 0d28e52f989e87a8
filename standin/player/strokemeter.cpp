#include "strokemeter.h"

#include "canvashand.h"

#include <QEvent>
#include <QImage>

#include <chrono>

namespace {

// The place of a stroke in pixels. Twenty positions would leave as a message of their own, before the release.
constexpr int placeWidth = 10;
constexpr int placeHeight = 2;
constexpr int positions = 19;

qint64 now()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

QPoint placeOf(int number, const QWidget& canvas)
{
    const int columns = qMax(1, canvas.width() / placeWidth);
    return {number % columns * placeWidth, number / columns * placeHeight};
}

// To the right, and back one line below.
QPoint positionOf(int index, const QPoint& place)
{
    const bool back = index >= placeWidth;
    return place + QPoint(back ? positions - index : index, back ? 1 : 0);
}

} // namespace

strokepainter::strokepainter(QWidget* canvas, const strokeseries& series, double pace, QObject* parent)
    : QObject(parent)
    , canvas(canvas)
    , series(series)
    , pace(pace)
    , begin(now())
{
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &strokepainter::paintDue);
    timer.start(1);
}

void strokepainter::paintDue()
{
    while (canvas && !isDone()) {
        const qint64 next = begin + qint64(due.size() * 1e9 / pace);
        if (next > now())
            return;
        paint(series.number(due.size()));
        due.append(next);
    }
    timer.stop();
}

void strokepainter::paint(int number)
{
    const canvashand hand;
    const QPoint place = placeOf(number, *canvas);
    hand.press(canvas, positionOf(0, place));
    for (int i = 1; i < positions - 1; ++i)
        hand.move(canvas, positionOf(i, place));
    hand.release(canvas, positionOf(positions - 1, place));
}

strokewatcher::strokewatcher(QWidget* canvas, const strokeseries& series, QObject* parent)
    : QObject(parent)
    , canvas(canvas)
    , series(series)
{
    canvas->installEventFilter(this);
}

bool strokewatcher::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && !looking && !lookWaits) {
        // Behind the repaint, when the window has its pixels.
        lookWaits = true;
        QMetaObject::invokeMethod(this, &strokewatcher::look, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void strokewatcher::look()
{
    lookWaits = false;
    looking = true;
    QImage pixel(1, 1, QImage::Format_RGB32);
    while (canvas && !isDone()) {
        const QPoint start = placeOf(series.number(seen.size()), *canvas);
        canvas->render(&pixel, QPoint(), QRect(start, pixel.size()), QWidget::RenderFlags());
        if (pixel.pixelColor(0, 0) == QColor(Qt::white))
            break;
        seen.append(now());
    }
    looking = false;
}
