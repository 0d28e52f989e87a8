// Commands that measure: series of strokes, when they were due here and when they came to the canvas there.
#include "canvasfinder.h"
#include "playverb.h"
#include "strokemeter.h"

#include "standin/client/voiceclient.h"

namespace {

/// What a client measures at the moment; the client's own, so that it ends before the plugin does.
template <typename Meter> QPointer<Meter>& running()
{
    static QPointer<Meter> meter;
    return meter;
}

QString listed(const QVector<qint64>& times)
{
    QStringList texts;
    for (const qint64 time : times)
        texts.append(QString::number(time));
    return texts.join(QLatin1Char(' '));
}

// FIRST STEP COUNT
strokeseries seriesOf(const playrequest& request)
{
    return {request.word(1).toInt(), request.word(2).toInt(), request.word(3).toInt()};
}

// strokes paint FIRST STEP COUNT PACE
playoutcome paintSeries(const playrequest& request, QWidget* canvas)
{
    const double pace = request.word(4).toDouble();
    if (!(pace > 0))
        return playFailed(QStringLiteral("'%1' is no pace").arg(request.word(4)));
    delete running<strokepainter>();
    running<strokepainter>() = new strokepainter(canvas, seriesOf(request), pace, request.client);
    return playDone();
}

// strokes watch FIRST STEP COUNT
playoutcome watchSeries(const playrequest& request, QWidget* canvas)
{
    delete running<strokewatcher>();
    running<strokewatcher>() = new strokewatcher(canvas, seriesOf(request), request.client);
    return playDone();
}

// strokes due|seen: the times, when the series is complete
template <typename Meter> playoutcome timesOf(const Meter* meter)
{
    if (!meter)
        return playFailed(QStringLiteral("nothing is measured"));
    return meter->isDone() ? playDone(listed(meter->times()))
                           : playWaiting(QStringLiteral("%1 strokes so far").arg(meter->times().size()));
}

playoutcome strokes(playrequest& request)
{
    const QString what = request.word(0);
    if (what == QLatin1String("due"))
        return timesOf(running<strokepainter>().data());
    if (what == QLatin1String("seen"))
        return timesOf(running<strokewatcher>().data());
    QWidget* const canvas = canvasfinder::canvas();
    if (!canvas)
        return playWaiting(QStringLiteral("no canvas is open"));
    if (what == QLatin1String("paint"))
        return paintSeries(request, canvas);
    if (what == QLatin1String("watch"))
        return watchSeries(request, canvas);
    return playFailed(QStringLiteral("strokes are painted, watched, due or seen"));
}

} // namespace

void addStrokeVerbs(verbtable* verbs) { verbs->insert(QStringLiteral("strokes"), strokes); }
