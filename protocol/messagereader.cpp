#include "messagereader.h"

#include "partwalker.h"
#include "wirenumbers.h"

namespace {

// Kinds 9 to 13 are whitespace, so what scans or trims must not see the kind.
const char* behindKind(const char* text) { return *text ? text + 1 : text; }

char firstByte(std::string_view part) { return part.empty() ? '\0' : part.front(); }

// Trimming happens on the text, not on the bytes: the bytes 0x85 and 0xa0 are blanks there.
QByteArray trimmed(const char* text) { return QString::fromLatin1(text).trimmed().toLatin1(); }

std::string_view view(const QByteArray& bytes) { return {bytes.constData(), static_cast<std::size_t>(bytes.size())}; }

// The blank behind the kind is left where it is, so the first part is empty: it is read as the sender 0, and the sender
// becomes the first entry. Guests' windows drop such a list. They have done so in every version; a reader that took the
// sender right would fill lobbies that stay empty at all other peers.
template <typename Message, typename Convert> Message readUntrimmed(const char* text, Convert convert)
{
    partwalker parts(behindKind(text));
    Message message;
    message.sender = wire::toClient(parts.take());
    message.list.clear();
    message.list.reserve(static_cast<std::size_t>(parts.left()) + 1);
    while (!parts.atEnd())
        message.list.push_back(convert(parts.take()));
    message.list.push_back(0);
    return message;
}

} // namespace

namespace wire {

std::optional<invitemessage> readInvite(const char* text)
{
    partwalker parts(text);
    if (parts.left() != 3)
        return std::nullopt;
    parts.take();
    invitemessage message;
    message.version = toUInt(parts.take());
    message.sender = toClient(parts.take());
    return message;
}

clientlistmessage readUntrimmedClients(const char* text) { return readUntrimmed<clientlistmessage>(text, toClient); }

channellistmessage readUntrimmedChannels(const char* text) { return readUntrimmed<channellistmessage>(text, toUInt64); }

std::optional<clientlistmessage> readAcceptlist(const char* text)
{
    const QByteArray bytes = trimmed(text);
    partwalker parts(view(bytes));
    const int count = parts.left();
    if (count < 2)
        return std::nullopt;
    parts.take();
    clientlistmessage message;
    message.sender = toClient(parts.take());
    // As many slots as the message has parts, kind and sender counted: behind the entries stays one that nobody fills,
    // and then the terminator. As a 0 it ends the list where it should end.
    message.list.assign(static_cast<std::size_t>(count), 0);
    for (std::size_t slot = 0; !parts.atEnd(); ++slot)
        message.list[slot] = toClient(parts.take());
    return message;
}

clientmessage readClient(const char* text)
{
    uint64 sender = 0;
    uint64 client = 0;
    if (const char* behind = scanNumber(behindKind(text), &sender))
        scanNumber(behind, &client);
    return {static_cast<anyID>(client), static_cast<anyID>(sender)};
}

channelmessage readChannel(const char* text)
{
    uint64 sender = 0;
    uint64 channel = 0;
    if (const char* behind = scanNumber(behindKind(text), &sender))
        scanNumber(behind, &channel);
    return {channel, static_cast<anyID>(sender)};
}

sendermessage readSender(const char* text) { return {scanClient(behindKind(text))}; }

sendermessage readTakeBack(const char* text)
{
    uint64 sender = 0;
    scanNumber(behindKind(text), &sender);
    return {static_cast<anyID>(sender)};
}

std::optional<sendermessage> readTrimmedSender(const char* text)
{
    const QByteArray bytes = trimmed(text);
    partwalker parts(view(bytes));
    if (parts.left() != 2)
        return std::nullopt;
    parts.take();
    return sendermessage{toClient(parts.take())};
}

std::optional<startmessage> readStart(const char* text)
{
    partwalker parts(text);
    const int count = parts.left();
    if (count < 7)
        return std::nullopt;
    parts.take();
    startmessage message;
    message.sender = toClient(parts.take());
    message.width = toInt(parts.take());
    message.height = toInt(parts.take());
    message.channel = toUInt64(parts.take());
    message.background = parts.take() == "true";
    message.size = toUInt64(parts.take());
    // A path with a blank in it makes more parts. These are not joined again: at every peer such a session opens with
    // an empty path and so without its picture, and one that knew better would paint on another picture than the rest.
    if (count == 8)
        message.path = toText(parts.take());
    return message;
}

std::optional<drawmessage> readDraw(const char* text)
{
    constexpr int fixedParts = 5;
    partwalker parts(text);
    const int count = parts.left();
    if (count < fixedParts)
        return std::nullopt;
    parts.take();
    std::optional<drawmessage> message(std::in_place);
    message->sender = toClient(parts.take());
    message->tool = firstByte(parts.take());
    message->color = toText(parts.take());
    message->thick = toReal(parts.take());
    message->points.reserve(count - fixedParts);
    while (!parts.atEnd())
        message->points.append(toPoint(parts.take()));
    return message;
}

std::optional<extendeddrawmessage> readExtendedDraw(const char* text)
{
    partwalker parts(text);
    if (parts.left() < 4)
        return std::nullopt;
    parts.take();
    extendeddrawmessage message;
    message.sender = toClient(parts.take());
    message.tool = firstByte(parts.take());
    message.data = toText(parts.takeRest());
    return message;
}

std::optional<downloadfinishedmessage> readDownloadFinished(const char* text)
{
    partwalker parts(text);
    if (parts.left() != 3)
        return std::nullopt;
    parts.take();
    downloadfinishedmessage message;
    message.sender = toClient(parts.take());
    message.result = parts.take() == "true";
    return message;
}

} // namespace wire
