#include "messagemutator.h"

#include <QList>

const QVector<QByteArray>& hostileParts()
{
    static const QVector<QByteArray> parts{"",
                                           "+5",
                                           "-5",
                                           "-0",
                                           "--5",
                                           "\t7",
                                           "7\n",
                                           "\xa0\x37",
                                           "7\x85",
                                           "0x1F",
                                           "1e3",
                                           "1e309",
                                           "1e-400",
                                           "1.",
                                           ".5",
                                           "1,5",
                                           "inf",
                                           "-inf",
                                           "nan",
                                           "true",
                                           "TRUE",
                                           "false",
                                           "full",
                                           "#",
                                           "#80ff0000",
                                           "|",
                                           "1|",
                                           "|1",
                                           "1|2|3",
                                           "|||",
                                           "2147483647",
                                           "2147483648",
                                           "-2147483648",
                                           "-2147483649",
                                           "65535",
                                           "65536",
                                           "4294967295",
                                           "4294967296",
                                           "18446744073709551615",
                                           "18446744073709551616",
                                           "-18446744073709551616",
                                           "99999999999999999999999999",
                                           "%1",
                                           "%n",
                                           "\xff",
                                           "\x01",
                                           "\x0b",
                                           "\xb2",
                                           "0000000000000000000000001",
                                           "123456789.123456789",
                                           "199.95",
                                           "2 2",
                                           " ",
                                           "   "};
    return parts;
}

QByteArray messagemutator::mutated(QByteArray message)
{
    for (int changes = 1 + below(4); changes > 0; --changes)
        change(&message);
    // A message ends at its first NUL.
    return QByteArray(message.constData());
}

void messagemutator::change(QByteArray* message)
{
    const int at = below(10) == 0 ? 0 : below(message->size() + 1);
    const QByteArray hostile = hostileParts().at(below(hostileParts().size()));
    switch (below(8)) {
    case 0:
        return message->truncate(at);
    case 1:
        message->remove(at, 1 + below(4));
        return;
    case 2:
        message->insert(at, static_cast<char>(below(256)));
        return;
    case 3:
        message->replace(at, 1, QByteArray(1, static_cast<char>(below(256))));
        return;
    case 4:
        message->insert(at, hostile);
        return;
    case 5:
        message->append(message->mid(at, below(20)));
        return;
    default:
        replacePart(message, hostile);
    }
}

void messagemutator::replacePart(QByteArray* message, const QByteArray& by)
{
    QList<QByteArray> parts = message->split(' ');
    parts[below(parts.size())] = by;
    *message = parts.join(' ');
}
