#include "serverplayer.h"

#include "clientsession.h"
#include "voiceserver.h"

#include <QJsonDocument>
#include <QJsonObject>

serverplayer::serverplayer(voiceserver* server)
    : QObject(server)
    , server(server)
{
}

QByteArray serverplayer::answer(const QByteArray& line)
{
    const QString text = QString::fromUtf8(line).simplified();
    const QString verb = text.section(QLatin1Char(' '), 0, 0);
    const QString rest = text.section(QLatin1Char(' '), 1);
    QString problem;
    if (verb == QLatin1String("quit"))
        emit quitWanted();
    else if (verb == QLatin1String("status"))
        return "ok " + status().toUtf8();
    else if (verb == QLatin1String("transfers"))
        problem = setTransfers(rest);
    else if (verb == QLatin1String("cut"))
        problem = cut(rest);
    else
        problem = setNumber(verb, rest);
    return problem.isEmpty() ? QByteArray("ok") : "error " + problem.toUtf8();
}

QString serverplayer::setNumber(const QString& what, const QString& value)
{
    relayfaults faults = server->relay().faults();
    serveroptions& settings = server->settings();
    const QHash<QString, int*> numbers = {
        {QStringLiteral("loss"), &faults.lossPercent},       {QStringLiteral("double"), &faults.doublePercent},
        {QStringLiteral("reorder"), &faults.reorderPercent}, {QStringLiteral("delay"), &faults.delay},
        {QStringLiteral("piece"), &settings.pace.pieceSize}, {QStringLiteral("pause"), &settings.pace.pause},
    };
    bool readable = false;
    const int number = value.toInt(&readable);
    if (what == QLatin1String("flood") && readable) {
        settings.flood = number != 0;
        return QString();
    }
    int* const place = numbers.value(what);
    if (!place)
        return QStringLiteral("unknown command '%1'").arg(what);
    const int least = what == QLatin1String("piece") ? 1 : 0;
    if (!readable || number < least)
        return QStringLiteral("'%1' is no number for %2").arg(value, what);
    *place = number;
    server->relay().setFaults(faults);
    server->applyTransferSettings();
    return QString();
}

QString serverplayer::setTransfers(const QString& fault)
{
    const std::optional<transferfaults> faults = readTransferFaults(fault);
    if (!faults)
        return QStringLiteral("unknown fault '%1'").arg(fault);
    server->settings().transfers = *faults;
    server->applyTransferSettings();
    return QString();
}

QString serverplayer::cut(const QString& nickname)
{
    clientsession* const session = server->sessionOf(server->voices().clientNamed(nickname));
    if (!session)
        return QStringLiteral("nobody is called '%1'").arg(nickname);
    session->cut();
    return QString();
}

QString serverplayer::status() const
{
    const QJsonObject state{
        {QStringLiteral("clients"), server->voices().clientIDs().size()},
        {QStringLiteral("channels"), server->voices().branch(0).size()},
        {QStringLiteral("relayed"), qint64(server->relayedCount())},
        {QStringLiteral("delivered"), qint64(server->deliveredCount())},
        {QStringLiteral("dropped"), qint64(server->droppedCount())},
    };
    return QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact));
}
