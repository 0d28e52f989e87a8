#include "messagewriter.h"

#include "wirenumbers.h"

namespace {

// A message that grows from left to right, each field behind a blank.
class messagetext {
public:
    explicit messagetext(messagekind kind)
    {
        // Room for a batch of the canvas, so that it is written without another allocation.
        bytes.reserve(256);
        bytes.append(static_cast<char>(kind));
    }

    messagetext& unsignedNumber(uint64 value)
    {
        char field[1 + wire::longestNumber] = {' '};
        return append(field, wire::putNumber(field + 1, value));
    }

    messagetext& number(int value)
    {
        char field[1 + wire::longestNumber] = {' '};
        return append(field, wire::putNumber(field + 1, value));
    }

    messagetext& real(qreal value)
    {
        char field[1 + wire::longestNumber] = {' '};
        return append(field, wire::putReal(field + 1, value));
    }

    messagetext& point(QPoint value)
    {
        char field[2 + 2 * wire::longestNumber] = {' '};
        char* behindX = wire::putNumber(field + 1, value.x());
        *behindX = '|';
        return append(field, wire::putNumber(behindX + 1, value.y()));
    }

    messagetext& byte(char value)
    {
        const char field[] = {' ', value};
        return append(field, field + 2);
    }

    messagetext& text(const QString& value)
    {
        bytes.append(' ').append(value.toLatin1());
        return *this;
    }

    messagetext& boolean(bool value)
    {
        bytes.append(value ? " true" : " false");
        return *this;
    }

    // The entries before the first 0.
    template <typename ID> messagetext& list(const std::vector<ID>& values)
    {
        for (auto value = values.begin(); value != values.end() && *value != 0; ++value)
            unsignedNumber(*value);
        return *this;
    }

    QByteArray bytes;

private:
    messagetext& append(const char* first, const char* last)
    {
        bytes.append(first, static_cast<int>(last - first));
        return *this;
    }
};

} // namespace

namespace wire {

// The sender is behind the version here and nowhere else: the version must be found at the same place in all versions.
QByteArray write(const invitemessage& message)
{
    return messagetext(messagekind::invite).unsignedNumber(message.version).unsignedNumber(message.sender).bytes;
}

QByteArray write(messagekind kind, const clientlistmessage& message)
{
    return messagetext(kind).unsignedNumber(message.sender).list(message.list).bytes;
}

QByteArray write(const channellistmessage& message)
{
    return messagetext(messagekind::channelInvitelist).unsignedNumber(message.sender).list(message.list).bytes;
}

QByteArray write(messagekind kind, const clientmessage& message)
{
    return messagetext(kind).unsignedNumber(message.sender).unsignedNumber(message.client).bytes;
}

QByteArray write(messagekind kind, const channelmessage& message)
{
    return messagetext(kind).unsignedNumber(message.sender).unsignedNumber(message.channel).bytes;
}

QByteArray write(messagekind kind, const sendermessage& message)
{
    return messagetext(kind).unsignedNumber(message.sender).bytes;
}

QByteArray write(const startmessage& message)
{
    return messagetext(messagekind::start)
        .unsignedNumber(message.sender)
        .number(message.width)
        .number(message.height)
        .unsignedNumber(message.channel)
        .boolean(message.background)
        .unsignedNumber(message.size)
        .text(message.path)
        .bytes;
}

QByteArray write(const drawmessage& message)
{
    messagetext text(messagekind::draw);
    text.unsignedNumber(message.sender).byte(message.tool).text(message.color).real(message.thick);
    for (const QPoint& point : message.points)
        text.point(point);
    return text.bytes;
}

QByteArray write(const extendeddrawmessage& message)
{
    return messagetext(messagekind::extendedDraw)
        .unsignedNumber(message.sender)
        .byte(message.tool)
        .text(message.data)
        .bytes;
}

QByteArray write(const downloadfinishedmessage& message)
{
    return messagetext(messagekind::downloadFinished).unsignedNumber(message.sender).boolean(message.result).bytes;
}

} // namespace wire
