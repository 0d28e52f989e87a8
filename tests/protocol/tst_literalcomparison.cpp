#include "examplemessages.h"
#include "literalendpoint.h"
#include "literalwire.h"
#include "protocol/messagereader.h"
#include "signalrecorder.h"
#include "tests/support/fakehost.h"

#include <QtTest>

#include <random>
#include <vector>

namespace {

// What peers never write and a reader meets all the same.
const char* const hostileParts[] = {"",
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

// The operation by which the own client 1 answered.
QByteArray answerName(const QByteArray& text)
{
    if (text == "\x17 1")
        return "sendPong";
    return text == "\x0f 1" ? "sendRejectVersion" : text.toHex(' ');
}

constexpr int mutatedMessages = 150000;

// Changes a message at a few places. The first byte is often kept, so that most of them find a reader.
class mutator {
public:
    QByteArray mutated(QByteArray message)
    {
        for (int changes = 1 + below(4); changes > 0; --changes)
            change(&message);
        // A message ends at its first NUL.
        return QByteArray(message.constData());
    }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); }

private:
    void change(QByteArray* message)
    {
        const int at = below(10) == 0 ? 0 : below(message->size() + 1);
        const QByteArray hostile = hostileParts[below(static_cast<int>(std::size(hostileParts)))];
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

    void replacePart(QByteArray* message, const QByteArray& by)
    {
        QList<QByteArray> parts = message->split(' ');
        parts[below(parts.size())] = by;
        *message = parts.join(' ');
    }

    std::mt19937 random{20101};
};

} // namespace

class tst_literalcomparison : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { host.addServer(3); }
    void everyTruncationIsReadAsTheLiteralReaderDoes_data();
    void everyTruncationIsReadAsTheLiteralReaderDoes();
    void everyFirstByteIsHandledAsTheLiteralReaderDoes();
    void hostilePartsAreReadAsTheLiteralReaderDoes();
    void mutatedMessagesAreReadAsTheLiteralReaderDoes();
    void arraysOfMutatedListsAreTheSame();

private:
    // What the endpoint did with the command, as literalDispatch tells it.
    QByteArray dispatched(const QByteArray& command);

    fakehost host;
    kelvorprotocol protocol{host.table()};
    signalrecorder recorder{&protocol};
};

QByteArray tst_literalcomparison::dispatched(const QByteArray& command)
{
    // On the heap and not a byte longer, so that a sanitizer sees every step behind the end.
    const std::vector<char> exact(command.constData(), command.constData() + command.size() + 1);
    protocol.dispatch(3, exact.data());
    QList<QByteArray> lines = recorder.take();
    const QList<sentcommand> sent = host.takeSent();
    for (const sentcommand& answer : sent)
        lines.append(answerName(answer.text) + '(' + QByteArray::number(answer.targets.value(0)) + ')');
    return lines.join('\n');
}

void tst_literalcomparison::everyTruncationIsReadAsTheLiteralReaderDoes_data()
{
    QTest::addColumn<QByteArray>("message");
    const QVector<QByteArray> messages = exampleMessages();
    for (const QByteArray& message : messages)
        QTest::addRow("kind %d", message.at(0)) << message;
}

void tst_literalcomparison::everyTruncationIsReadAsTheLiteralReaderDoes()
{
    QFETCH(QByteArray, message);
    for (int length = 0; length <= message.size(); ++length)
        QCOMPARE(dispatched(message.left(length)), literalDispatch(message.left(length), true));
}

void tst_literalcomparison::everyFirstByteIsHandledAsTheLiteralReaderDoes()
{
    for (int first = 0; first < 256; ++first) {
        const QByteArray message = static_cast<char>(first) + QByteArray(" 12 3 4 5 true 6 7|8");
        QCOMPARE(dispatched(message), literalDispatch(message, true));
    }
}

void tst_literalcomparison::hostilePartsAreReadAsTheLiteralReaderDoes()
{
    const QVector<QByteArray> messages = exampleMessages();
    for (const QByteArray& message : messages) {
        for (int place = 1; place < message.split(' ').size(); ++place) {
            for (const char* hostile : hostileParts) {
                QList<QByteArray> parts = message.split(' ');
                parts[place] = hostile;
                QCOMPARE(dispatched(parts.join(' ')), literalDispatch(parts.join(' '), true));
            }
        }
    }
}

void tst_literalcomparison::mutatedMessagesAreReadAsTheLiteralReaderDoes()
{
    mutator change;
    const QVector<QByteArray> messages = exampleMessages();
    int understood = 0;
    for (int round = 0; round < mutatedMessages; ++round) {
        const QByteArray message = change.mutated(messages.at(change.below(messages.size())));
        const QByteArray expected = literalDispatch(message, true);
        understood += expected.isEmpty() ? 0 : 1;
        if (dispatched(message) != expected)
            QFAIL(message.toHex(' ').constData());
    }
    // Were most of them dropped, little would have been compared.
    QVERIFY(understood > mutatedMessages / 2);
}

void tst_literalcomparison::arraysOfMutatedListsAreTheSame()
{
    mutator change;
    for (int round = 0; round < 20000; ++round) {
        const QByteArray invitelist = "\x02" + change.mutated(" 34 5 6 70000");
        QVERIFY2(wire::readUntrimmedClients(invitelist) == literal::readUntrimmedClients(invitelist),
                 invitelist.toHex(' '));
        QVERIFY2(wire::readUntrimmedChannels(invitelist) == literal::readUntrimmedChannels(invitelist),
                 invitelist.toHex(' '));
        const QByteArray acceptlist = "\x04" + change.mutated(" 34 5 6 70000");
        QVERIFY2(wire::readAcceptlist(acceptlist) == literal::readAcceptlist(acceptlist), acceptlist.toHex(' '));
    }
}

QTEST_GUILESS_MAIN(tst_literalcomparison)
#include "tst_literalcomparison.moc"
