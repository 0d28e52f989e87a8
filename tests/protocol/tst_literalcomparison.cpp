#include "examplemessages.h"
#include "literalendpoint.h"
#include "literalwire.h"
#include "messagemutator.h"
#include "protocol/messagereader.h"
#include "signalrecorder.h"
#include "tests/support/fakehost.h"

#include <QtTest>

#include <vector>

namespace {

// The operation by which the own client 1 answered.
QByteArray answerName(const QByteArray& text)
{
    if (text == "\x17 1")
        return "sendPong";
    return text == "\x0f 1" ? "sendRejectVersion" : text.toHex(' ');
}

constexpr int mutatedMessages = 150000;

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
            for (const QByteArray& hostile : hostileParts()) {
                QList<QByteArray> parts = message.split(' ');
                parts[place] = hostile;
                QCOMPARE(dispatched(parts.join(' ')), literalDispatch(parts.join(' '), true));
            }
        }
    }
}

void tst_literalcomparison::mutatedMessagesAreReadAsTheLiteralReaderDoes()
{
    messagemutator change;
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
    messagemutator change;
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
