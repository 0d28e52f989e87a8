// Commands that act on the canvas as a hand does: mouse and keys, in coordinates of the picture.
#include "canvasfinder.h"
#include "canvashand.h"
#include "playverb.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <optional>

namespace {

std::optional<QPoint> readPoint(const QString& text)
{
    bool readableX = false;
    bool readableY = false;
    const QPoint point(text.section(QLatin1Char(','), 0, 0).toInt(&readableX),
                       text.section(QLatin1Char(','), 1).toInt(&readableY));
    return readableX && readableY ? std::optional<QPoint>(point) : std::nullopt;
}

/// The points of a command and what is held meanwhile.
struct gesture {
    QVector<QPoint> points;
    canvashand hand;
};

// [right] [shift] X,Y ...
std::optional<gesture> readGesture(const QStringList& words)
{
    gesture read;
    for (const QString& word : words) {
        if (word == QLatin1String("right"))
            read.hand.button = Qt::RightButton;
        else if (word == QLatin1String("shift"))
            read.hand.modifiers |= Qt::ShiftModifier;
        else if (const std::optional<QPoint> point = readPoint(word))
            read.points.append(*point);
        else
            return std::nullopt;
    }
    return read.points.isEmpty() ? std::nullopt : std::optional<gesture>(read);
}

playoutcome mouse(const playrequest& request, bool press, bool release)
{
    const std::optional<gesture> held = readGesture(request.words);
    if (!held)
        return playFailed(QStringLiteral("%1 takes points, as in 10,20").arg(request.verb));
    QWidget* const canvas = canvasfinder::canvas();
    if (!canvas)
        return playWaiting(QStringLiteral("no canvas is open"));
    if (press)
        held->hand.press(canvas, held->points.first());
    for (int i = press ? 1 : 0; i < held->points.size(); ++i) {
        if (request.verb != QLatin1String("release"))
            held->hand.move(canvas, held->points.at(i));
    }
    if (release)
        held->hand.release(canvas, held->points.last());
    return playActed();
}

void postKey(QWidget* target, int key, const QString& text)
{
    const bool capital = !text.isEmpty() && text.at(0).isUpper();
    const Qt::KeyboardModifiers held = capital ? Qt::ShiftModifier : Qt::NoModifier;
    QApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, held, text));
    QApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, held, text));
}

// type TEXT
playoutcome type(playrequest& request)
{
    QWidget* const canvas = canvasfinder::canvas();
    if (!canvas)
        return playWaiting(QStringLiteral("no canvas is open"));
    const QString text = request.rest(0);
    for (const QChar letter : text)
        postKey(canvas, letter.toUpper().unicode(), QString(letter));
    return playActed();
}

// key NAME
playoutcome key(playrequest& request)
{
    static const QHash<QString, int> keys = {
        {QStringLiteral("Return"), Qt::Key_Return},       {QStringLiteral("Enter"), Qt::Key_Enter},
        {QStringLiteral("Delete"), Qt::Key_Delete},       {QStringLiteral("Escape"), Qt::Key_Escape},
        {QStringLiteral("Backspace"), Qt::Key_Backspace}, {QStringLiteral("Shift"), Qt::Key_Shift},
    };
    if (!keys.contains(request.word(0)))
        return playFailed(QStringLiteral("unknown key '%1'").arg(request.word(0)));
    QWidget* const canvas = canvasfinder::canvas();
    if (!canvas)
        return playWaiting(QStringLiteral("no canvas is open"));
    const int code = keys.value(request.word(0));
    const bool returns = code == Qt::Key_Return || code == Qt::Key_Enter;
    postKey(canvas, code, returns ? QStringLiteral("\r") : QString());
    return playActed();
}

// picture FILE: what stands on the canvas, as a PNG file.
playoutcome picture(playrequest& request)
{
    QWidget* const canvas = canvasfinder::canvas();
    if (!canvas)
        return playWaiting(QStringLiteral("no canvas is open"));
    return canvasfinder::picture(canvas).save(request.rest(0), "PNG")
        ? playDone()
        : playFailed(QStringLiteral("cannot write '%1'").arg(request.rest(0)));
}

// pixel X,Y: its colour
playoutcome pixel(playrequest& request)
{
    const std::optional<QPoint> point = readPoint(request.word(0));
    QWidget* const canvas = canvasfinder::canvas();
    if (!canvas)
        return playWaiting(QStringLiteral("no canvas is open"));
    if (!point || !canvas->rect().contains(*point))
        return playFailed(QStringLiteral("'%1' is no point of the canvas").arg(request.word(0)));
    return playDone(canvasfinder::picture(canvas).pixelColor(*point).name());
}

} // namespace

void addCanvasVerbs(verbtable* verbs)
{
    verbs->insert(QStringLiteral("canvas"), [](playrequest& request) {
        canvasfinder::choose(request.rest(0));
        return playDone();
    });
    verbs->insert(QStringLiteral("press"), [](playrequest& request) { return mouse(request, true, false); });
    verbs->insert(QStringLiteral("move"), [](playrequest& request) { return mouse(request, false, false); });
    verbs->insert(QStringLiteral("release"), [](playrequest& request) { return mouse(request, false, true); });
    verbs->insert(QStringLiteral("drag"), [](playrequest& request) { return mouse(request, true, true); });
    verbs->insert(QStringLiteral("type"), type);
    verbs->insert(QStringLiteral("key"), key);
    verbs->insert(QStringLiteral("picture"), picture);
    verbs->insert(QStringLiteral("pixel"), pixel);
}
