#include "clientplayer.h"

#include "standin/client/voiceclient.h"
#include "standin/common/words.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>

namespace {

const QEvent::Type actionDelivered = QEvent::Type(QEvent::registerEventType());
const QEvent::Type nextAttempt = QEvent::Type(QEvent::registerEventType());

constexpr int retryInterval = 10; // milliseconds

} // namespace

clientplayer::clientplayer(voiceclient* client)
    : QObject(client)
    , client(client)
{
    addWindowVerbs(&verbs);
    addCanvasVerbs(&verbs);
    addPaintVerbs(&verbs);
    addRowVerbs(&verbs);
    addDialogVerbs(&verbs);
    addWaitVerbs(&verbs);
    addServerVerbs(&verbs);
    addHostVerbs(&verbs);
    addPeerVerbs(&verbs);
    addPointerVerbs(&verbs);
    addStrokeVerbs(&verbs);
    retryTimer.setSingleShot(true);
    connect(&retryTimer, &QTimer::timeout, this, &clientplayer::attempt);
    connect(&input, &linereader::lineRead, this, &clientplayer::receive);
    connect(&input, &linereader::closed, client, [client] { client->end(0); });
}

// Everything that a command sets off is posted, and this object's own event behind it: when that arrives, what was set
// off has been delivered, if need be inside the nested loop that it opened.
bool clientplayer::event(QEvent* event)
{
    if (event->type() == actionDelivered) {
        acting = false;
        if (current)
            settle(afterActing);
        return true;
    }
    if (event->type() == nextAttempt) {
        attempt();
        return true;
    }
    return QObject::event(event);
}

void clientplayer::receive(const QByteArray& line)
{
    if (line.trimmed().isEmpty())
        return;
    waiting.enqueue(line);
    if (!current)
        begin(waiting.dequeue());
}

void clientplayer::begin(const QByteArray& line)
{
    current.emplace();
    current->client = client;
    deadline = usualDeadline;
    clock.start();
    const std::optional<QStringList> words = splitWords(QString::fromUtf8(line));
    if (!words) {
        answer(false, QStringLiteral("a quote is left open"));
        return;
    }
    current->words = *words;
    if (current->word(0) == QLatin1String("within")) {
        bool readable = false;
        deadline = int(current->word(1).toDouble(&readable) * 1000);
        if (!readable || deadline <= 0) {
            answer(false, QStringLiteral("'within' takes seconds"));
            return;
        }
        current->words = current->words.mid(2);
    }
    current->verb = current->words.isEmpty() ? QString() : current->words.takeFirst();
    if (!verbs.contains(current->verb)) {
        answer(false, QStringLiteral("unknown command '%1'").arg(current->verb));
        return;
    }
    attempt();
}

void clientplayer::attempt()
{
    if (!current)
        return;
    if (acting) {
        // The action opened a nested loop, which sleeps on the events that were posted before it began.
        QAbstractEventDispatcher::instance()->wakeUp();
        retryTimer.start(retryInterval);
        return;
    }
    const playoutcome outcome = verbs.value(current->verb)(*current);
    if (outcome.state != playstate::acted && outcome.state != playstate::again) {
        settle(outcome);
        return;
    }
    acting = true;
    retryTimer.start(retryInterval);
    afterActing = outcome.state == playstate::acted ? playDone(outcome.text) : playAgain();
    QCoreApplication::postEvent(this, new QEvent(actionDelivered));
}

void clientplayer::settle(const playoutcome& outcome)
{
    switch (outcome.state) {
    case playstate::done:
    case playstate::failed:
        answer(outcome.state == playstate::done, outcome.text);
        return;
    case playstate::again:
        ++current->phase;
        QCoreApplication::postEvent(this, new QEvent(nextAttempt));
        return;
    default:
        if (clock.elapsed() < deadline)
            retryTimer.start(retryInterval);
        else
            answer(false, QStringLiteral("waited in vain: ") + outcome.text);
    }
}

void clientplayer::answer(bool good, const QString& text)
{
    current.reset();
    QByteArray line = good ? "ok" : "error";
    if (!text.isEmpty())
        line += ' ' + text.toUtf8().replace('\n', ' ');
    linereader::writeLine(line);
    emit answered(line);
    if (!current && !waiting.isEmpty())
        begin(waiting.dequeue());
}
