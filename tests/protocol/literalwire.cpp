#include "literalwire.h"

#include <QStringList>

#include <cstdio>
#include <cstdlib>

namespace {

const QLatin1Char blank(' ');

QStringList split(const char* text) { return QString::fromLatin1(text).split(blank, Qt::KeepEmptyParts); }

QStringList trimmedSplit(const char* text)
{
    return QString::fromLatin1(text).trimmed().split(blank, Qt::KeepEmptyParts);
}

anyID clientOf(const QString& part) { return static_cast<anyID>(part.toUInt(nullptr, 10)); }

QString kindText(messagekind kind) { return QString(QLatin1Char(static_cast<char>(kind))); }

template <typename Message> QByteArray writeList(messagekind kind, const Message& message)
{
    QString text = QString("%1 %2").arg(kindText(kind)).arg(message.sender, 0, 10, blank);
    for (std::size_t i = 0; i < message.list.size() && message.list[i] != 0; ++i)
        text += QString(" %1").arg(message.list[i], 0, 10, blank);
    return text.toLatin1();
}

} // namespace

namespace literal {

std::optional<invitemessage> readInvite(const char* text)
{
    const QStringList parts = split(text);
    if (parts.size() != 3)
        return std::nullopt;
    return invitemessage{parts.at(1).toUInt(nullptr, 10), clientOf(parts.at(2))};
}

clientlistmessage readUntrimmedClients(const char* text)
{
    const QStringList parts = split(text + 1);
    clientlistmessage message;
    message.sender = clientOf(parts.at(0));
    message.list.assign(static_cast<std::size_t>(parts.size()), 0);
    for (int i = 1; i < parts.size(); ++i)
        message.list[static_cast<std::size_t>(i) - 1] = clientOf(parts.at(i));
    return message;
}

channellistmessage readUntrimmedChannels(const char* text)
{
    const QStringList parts = split(text + 1);
    channellistmessage message;
    message.sender = clientOf(parts.at(0));
    message.list.assign(static_cast<std::size_t>(parts.size()), 0);
    for (int i = 1; i < parts.size(); ++i)
        message.list[static_cast<std::size_t>(i) - 1] = parts.at(i).toULongLong(nullptr, 10);
    return message;
}

std::optional<clientlistmessage> readAcceptlist(const char* text)
{
    const QStringList parts = trimmedSplit(text);
    if (parts.size() < 2)
        return std::nullopt;
    clientlistmessage message;
    message.sender = clientOf(parts.at(1));
    message.list.assign(static_cast<std::size_t>(parts.size()), 0);
    for (int i = 2; i < parts.size(); ++i)
        message.list[static_cast<std::size_t>(i) - 2] = clientOf(parts.at(i));
    return message;
}

clientmessage readClient(const char* text)
{
    unsigned int sender = 0;
    unsigned int client = 0;
    std::sscanf(text + 1, "%u %u", &sender, &client);
    return {static_cast<anyID>(client), static_cast<anyID>(sender)};
}

channelmessage readChannel(const char* text)
{
    unsigned int sender = 0;
    unsigned long long channel = 0;
    std::sscanf(text + 1, "%u %llu", &sender, &channel);
    return {channel, static_cast<anyID>(sender)};
}

sendermessage readSender(const char* text) { return {static_cast<anyID>(std::atoi(text + 1))}; }

sendermessage readTakeBack(const char* text)
{
    unsigned int sender = 0;
    std::sscanf(text + 1, " %u", &sender);
    return {static_cast<anyID>(sender)};
}

std::optional<sendermessage> readTrimmedSender(const char* text)
{
    const QStringList parts = trimmedSplit(text);
    if (parts.size() != 2)
        return std::nullopt;
    return sendermessage{clientOf(parts.at(1))};
}

std::optional<startmessage> readStart(const char* text)
{
    const QStringList parts = split(text);
    if (parts.size() < 7)
        return std::nullopt;
    startmessage message;
    message.sender = clientOf(parts.at(1));
    message.width = parts.at(2).toInt(nullptr, 10);
    message.height = parts.at(3).toInt(nullptr, 10);
    message.channel = parts.at(4).toULongLong(nullptr, 10);
    message.background = parts.at(5) == "true";
    message.size = parts.at(6).toULongLong(nullptr, 10);
    if (parts.size() == 8)
        message.path = parts.at(7);
    return message;
}

std::optional<drawmessage> readDraw(const char* text)
{
    QStringList parts = split(text);
    if (parts.size() < 5)
        return std::nullopt;
    drawmessage message;
    parts.takeFirst();
    message.sender = clientOf(parts.takeFirst());
    message.tool = parts.takeFirst().toLatin1().data()[0];
    message.color = parts.takeFirst();
    message.thick = parts.takeFirst().toDouble();
    for (int i = 0; i < parts.size(); ++i) {
        const int x = parts.at(i).section('|', 0, 0).toInt(nullptr, 10);
        const int y = parts.at(i).section('|', 1, 1).toInt(nullptr, 10);
        message.points.append(QPoint(x, y));
    }
    return message;
}

std::optional<extendeddrawmessage> readExtendedDraw(const char* text)
{
    if (split(text).size() < 4)
        return std::nullopt;
    const QString whole = QString::fromLatin1(text);
    extendeddrawmessage message;
    message.sender = clientOf(whole.section(' ', 1, 1));
    message.tool = whole.section(' ', 2, 2).toLatin1().data()[0];
    message.data = whole.section(' ', 3, -1);
    return message;
}

std::optional<downloadfinishedmessage> readDownloadFinished(const char* text)
{
    const QStringList parts = split(text);
    if (parts.size() != 3)
        return std::nullopt;
    return downloadfinishedmessage{parts.at(2) == "true", clientOf(parts.at(1))};
}

QByteArray write(const invitemessage& message)
{
    char text[64];
    std::sprintf(text, "%c %u %u", static_cast<char>(messagekind::invite), message.version, message.sender);
    return text;
}

QByteArray write(messagekind kind, const clientlistmessage& message) { return writeList(kind, message); }

QByteArray write(const channellistmessage& message) { return writeList(messagekind::channelInvitelist, message); }

QByteArray write(messagekind kind, const clientmessage& message)
{
    char text[64];
    std::sprintf(text, "%c %u %u", static_cast<char>(kind), message.sender, message.client);
    return text;
}

QByteArray write(messagekind kind, const channelmessage& message)
{
    char text[64];
    std::sprintf(text, "%c %u %llu", static_cast<char>(kind), message.sender,
                 static_cast<unsigned long long>(message.channel));
    return text;
}

QByteArray write(messagekind kind, const sendermessage& message)
{
    char text[64];
    std::sprintf(text, "%c %u", static_cast<char>(kind), message.sender);
    return text;
}

QByteArray write(const startmessage& message)
{
    return QString("%1 %2 %3 %4 %5 %6 %7 %8")
        .arg(kindText(messagekind::start))
        .arg(message.sender, 0, 10, blank)
        .arg(message.width, 0, 10, blank)
        .arg(message.height, 0, 10, blank)
        .arg(message.channel, 0, 10, blank)
        .arg(QString(message.background ? "true" : "false"))
        .arg(message.size, 0, 10, blank)
        .arg(message.path)
        .toLatin1();
}

QByteArray write(const drawmessage& message)
{
    QString text = QString("%1 %2 %3 %4 %5")
                       .arg(kindText(messagekind::draw))
                       .arg(message.sender, 0, 10, blank)
                       .arg(QString(QLatin1Char(message.tool)))
                       .arg(message.color)
                       .arg(message.thick, 0, 'g', -1, blank);
    for (int i = 0; i < message.points.size(); ++i)
        text +=
            QString(" %1|%2").arg(message.points.at(i).x(), 0, 10, blank).arg(message.points.at(i).y(), 0, 10, blank);
    return text.toLatin1();
}

QByteArray write(const extendeddrawmessage& message)
{
    return QString("%1 %2 %3 %4")
        .arg(kindText(messagekind::extendedDraw))
        .arg(message.sender, 0, 10, blank)
        .arg(QString(QLatin1Char(message.tool)))
        .arg(message.data)
        .toLatin1();
}

QByteArray write(const downloadfinishedmessage& message)
{
    return QString("%1 %2 %3")
        .arg(kindText(messagekind::downloadFinished))
        .arg(message.sender, 0, 10, blank)
        .arg(QString(message.result ? "true" : "false"))
        .toLatin1();
}

} // namespace literal
