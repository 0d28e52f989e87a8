#include "hostilemessages.h"

namespace hostile {

QList<QByteArray> senders() { return {"2", "3", "4", "0", "1", "65535", "65536", "65538", "4294967298", "x"}; }

anyID cut(const QByteArray& number) { return static_cast<anyID>(number.toULongLong()); }

anyID cutOrNone(const QByteArray& number) { return static_cast<anyID>(number.toUInt()); }

QList<QByteArray> told() { return {"0", "1", "3", "65535", "65536"}; }

bool tellsAboutOthers(messagekind kind)
{
    return kind >= messagekind::invitelist && kind <= messagekind::clientRejectedInviteVersion;
}

QList<QByteArray> messagesFrom(messagekind kind, const QByteArray& sender)
{
    const QByteArray head = static_cast<char>(kind) + QByteArray(" ");
    QList<QByteArray> texts;
    switch (kind) {
    case messagekind::invite:
        return {head + "2 " + sender};
    case messagekind::start:
        return {head + sender + " 64 48 0 false 0 "};
    case messagekind::draw:
        return {head + sender + " \x02 #ff0000 3 10|10 20|20"};
    case messagekind::extendedDraw:
        return {head + sender + " \x0a #00ff00 5|5"};
    case messagekind::downloadFinished:
        return {head + sender + " true"};
    default:
        break;
    }
    if (!tellsAboutOthers(kind))
        return {head + sender};
    // Only lists have a second and a third.
    const QList<QByteArray> numbers = told();
    for (const QByteArray& number : numbers)
        texts.append(head + sender + ' ' + number + " 4 70000");
    return texts;
}

QList<QByteArray> longTexts(int kind)
{
    constexpr int longest = 8192;
    QList<QByteArray> texts;
    for (const char* piece : {" ", "3 ", "9", "\xff", "1|2 ", "|", "#", "\t"}) {
        const QByteArray head = static_cast<char>(kind) + QByteArray(" 2 ");
        const QByteArray paint = head + "\x02 #ff0000 9 ";
        texts.append((head + QByteArray(piece).repeated(longest)).left(longest));
        texts.append((paint + QByteArray(piece).repeated(longest)).left(longest));
    }
    return texts;
}

QByteArray startOf(const QByteArray& width, const QByteArray& height)
{
    return "\x10 2 " + width + ' ' + height + " 0 false 0 ";
}

QList<QByteArray> paintTexts()
{
    QList<QByteArray> texts;
    for (char tool = 0; tool < 32; ++tool) {
        const QByteArray sender = QByteArray(" 2 ") + tool;
        texts << '\x11' + sender + " #ff0000 7 3|3 30|30 9|9 40|40" << '\x13' + sender + " #ff0000 3|3"
              << '\x13' + sender + " full" << '\x13' + sender + " 3|3 30|30"
              << '\x13' + sender + " #ff0000 7 3|3 40|40 word";
    }
    return texts;
}

} // namespace hostile
