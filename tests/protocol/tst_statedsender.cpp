#include "protocol/statedsender.h"

#include "examplemessages.h"
#include "examplesenders.h"
#include "messagemutator.h"
#include "protocol/messagereader.h"

#include <QtTest>

#include <vector>

/// The sender that a message states, told before any reader sees it. It is held against what the readers themselves
/// make of each message: were the two to differ anywhere, somebody could show one name to the one and another to the
/// other.
class tst_statedsender : public QObject {
    Q_OBJECT

private slots:
    void everyKindStatesItsSender_data();
    void everyKindStatesItsSender();
    void inviteStatesItsSenderThird();
    void listsStateTheSenderThatTheirReadersMiss();
    void listsWithASenderWhereTheirReadersLookStateNone();
    void messagesWithoutSenderStateNone_data();
    void messagesWithoutSenderStateNone();
    void numbersAreReadAsTheReaderOfTheKindReadsThem_data();
    void numbersAreReadAsTheReaderOfTheKindReadsThem();

    void everyTruncationStatesWhatItsReaderReads();
    void everyFirstByteStatesWhatItsReaderReads();
    void hostilePartsStateWhatTheirReaderReads();
    void mutatedMessagesStateWhatTheirReaderReads();

    void anybodyMaySayAnythingWhenTheInvokerIsUnknown();
    void aKnownInvokerMaySpeakInItsOwnNameOnly();
    void noTextComesFromNobody();

private:
    static void compareWithReader(const QByteArray& message);
};

namespace {

template <typename Message> std::optional<anyID> senderOf(const std::optional<Message>& message)
{
    return message ? std::optional<anyID>(message->sender) : std::nullopt;
}

bool isMisread(messagekind kind)
{
    return kind == messagekind::invitelist || kind == messagekind::channelInvitelist || kind == messagekind::rejectlist;
}

// The sender that the signal for the message names; nothing when the message is dropped.
std::optional<anyID> signalledSender(const char* text)
{
    const int kind = *text;
    if (kind >= 6 && kind <= 12)
        return kind == 7 || kind == 9 ? wire::readChannel(text).sender : wire::readClient(text).sender;
    if ((kind >= 13 && kind <= 15) || kind == 18)
        return wire::readSender(text).sender;
    switch (kind) {
    case 1:
        return senderOf(wire::readInvite(text));
    case 2:
    case 5:
        return wire::readUntrimmedClients(text).sender;
    case 3:
        return wire::readUntrimmedChannels(text).sender;
    case 4:
        return senderOf(wire::readAcceptlist(text));
    case 16:
        return senderOf(wire::readStart(text));
    case 17:
        return senderOf(wire::readDraw(text));
    case 19:
        return senderOf(wire::readExtendedDraw(text));
    case 20:
        return senderOf(wire::readDownloadFinished(text));
    case 21:
        return wire::readTakeBack(text).sender;
    case 22:
    case 23:
    case 24:
        return senderOf(wire::readTrimmedSender(text));
    default:
        return std::nullopt;
    }
}

// On the heap and not a byte longer, so that a sanitizer sees every step behind the end.
std::vector<char> exactly(const QByteArray& message)
{
    return {message.constData(), message.constData() + message.size() + 1};
}

} // namespace

void tst_statedsender::everyKindStatesItsSender_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<uint>("sender");
    QCOMPARE(exampleSenders().size(), exampleMessages().size());
    for (int i = 0; i < exampleMessages().size(); ++i)
        QTest::addRow("kind %d", i + 1) << exampleMessages().at(i) << uint(exampleSenders().at(i));
}

void tst_statedsender::everyKindStatesItsSender()
{
    QFETCH(QByteArray, message);
    QFETCH(uint, sender);
    QCOMPARE(uint(wire::statedSender(message)), sender);
}

void tst_statedsender::inviteStatesItsSenderThird()
{
    QCOMPARE(wire::statedSender("\x01 34 12"), anyID(12));
    QCOMPARE(wire::statedSender("\x01 12"), anyID(0));
}

void tst_statedsender::listsStateTheSenderThatTheirReadersMiss()
{
    for (const char* list : {"\x02 34 5 6", "\x05 34 5 6"}) {
        QCOMPARE(wire::statedSender(list), anyID(34));
        QCOMPARE(wire::readUntrimmedClients(list).sender, anyID(0));
    }
    QCOMPARE(wire::statedSender("\x03 34 5 6"), anyID(34));
    QCOMPARE(wire::readUntrimmedChannels("\x03 34 5 6").sender, anyID(0));
}

// The way by which a list could be forged: 99 behind the blank for the one who asks, 34 in front for the reader.
void tst_statedsender::listsWithASenderWhereTheirReadersLookStateNone()
{
    for (const char* kind : {"\x02", "\x05"}) {
        const QByteArray list = QByteArray(kind) + "34 99 5";
        QCOMPARE(wire::readUntrimmedClients(list).sender, anyID(34));
        QCOMPARE(wire::statedSender(list), anyID(0));
    }
    const QByteArray channels = QByteArray("\x03") + "34 99 5";
    QCOMPARE(wire::readUntrimmedChannels(channels).sender, anyID(34));
    QCOMPARE(wire::statedSender(channels), anyID(0));
}

void tst_statedsender::messagesWithoutSenderStateNone_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("test text") << QByteArray("Hallo");
    QTest::newRow("digits for a kind") << QByteArray("1 2 12");
    QTest::newRow("kind 25") << QByteArray("\x19 12");
    QTest::newRow("kind above 127") << QByteArray("\xff 12");
    for (char kind = 1; kind <= 24; ++kind) {
        QTest::addRow("kind %d alone", kind) << QByteArray(1, kind);
        QTest::addRow("kind %d and a blank", kind) << QByteArray(1, kind) + ' ';
        QTest::addRow("kind %d and words", kind) << QByteArray(1, kind) + " one two three four five six";
        QTest::addRow("kind %d and zeros", kind) << QByteArray(1, kind) + " 0 0 0 0 0 0 0";
    }
}

void tst_statedsender::messagesWithoutSenderStateNone()
{
    QFETCH(QByteArray, message);
    QCOMPARE(wire::statedSender(message), anyID(0));
}

void tst_statedsender::numbersAreReadAsTheReaderOfTheKindReadsThem_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<uint>("sender");
    const auto row = [](const char* name, const char* message, uint sender) {
        QTest::newRow(name) << QByteArray(message) << sender;
    };
    row("split number above 16 bits", "\x11 65537 \x02 #000000 1", 1);
    row("split number above 32 bits", "\x11 4294967297 \x02 #000000 1", 0);
    row("split number below 0", "\x11 -1 \x02 #000000 1", 0);
    row("split number with a letter behind it", "\x10 12x 1 1 0 false 0 ", 0);
    row("split number with blanks around it", "\x14 \t12\r true", 12);
    row("trimmed number", "\x17 12\x85\xa0 ", 12);
    row("trimmed list", "\x04 34\n", 34);
    row("scanned number above 16 bits", "\x06 65537 5", 1);
    row("scanned number above 32 bits", "\x06 4294967297 5", 1);
    row("scanned number below 0", "\x06 -1 5", 65535);
    row("scanned number with a letter behind it", "\x0d 12x", 12);
    row("scanned number without a blank", "\x0d\x31\x32", 12);
    row("scanned number far beyond 64 bits", "\x15 99999999999999999999999", 65535);
    row("whitespace for a kind", "\x0a 12 45", 12);
}

void tst_statedsender::numbersAreReadAsTheReaderOfTheKindReadsThem()
{
    QFETCH(QByteArray, message);
    QFETCH(uint, sender);
    QCOMPARE(uint(wire::statedSender(message)), sender);
    compareWithReader(message);
}

void tst_statedsender::compareWithReader(const QByteArray& message)
{
    const std::vector<char> text = exactly(message);
    const anyID stated = wire::statedSender(text.data());
    const std::optional<anyID> signalled = signalledSender(text.data());
    if (!signalled)
        return;
    if (!isMisread(static_cast<messagekind>(message.at(0)))) {
        QVERIFY2(stated == *signalled, message.toHex(' '));
        return;
    }
    // A misread list that passes for its sender must pass for nobody at its receiver.
    QVERIFY2(stated == 0 || *signalled == 0, message.toHex(' '));
    if (*signalled == 0 && stated != 0)
        QVERIFY2(stated == static_cast<anyID>(wire::readUntrimmedChannels(text.data()).list.front()),
                 message.toHex(' '));
}

void tst_statedsender::everyTruncationStatesWhatItsReaderReads()
{
    for (const QByteArray& message : exampleMessages()) {
        for (int length = 0; length <= message.size(); ++length)
            compareWithReader(message.left(length));
    }
}

void tst_statedsender::everyFirstByteStatesWhatItsReaderReads()
{
    for (int first = 0; first < 256; ++first) {
        const QByteArray behindKind = " 12 3 4 5 true 6 7|8";
        compareWithReader(static_cast<char>(first) + behindKind);
        compareWithReader(static_cast<char>(first) + behindKind.mid(1));
        const bool isKind = first >= 1 && first <= 24;
        const anyID expected = first == 1 ? 3 : 12;
        QCOMPARE(wire::statedSender(static_cast<char>(first) + behindKind), isKind ? expected : anyID(0));
    }
}

void tst_statedsender::hostilePartsStateWhatTheirReaderReads()
{
    for (const QByteArray& message : exampleMessages()) {
        for (int place = 1; place < message.split(' ').size(); ++place) {
            for (const QByteArray& hostile : hostileParts()) {
                QList<QByteArray> parts = message.split(' ');
                parts[place] = hostile;
                compareWithReader(parts.join(' '));
            }
        }
    }
}

void tst_statedsender::mutatedMessagesStateWhatTheirReaderReads()
{
    constexpr int rounds = 150000;
    messagemutator change;
    const QVector<QByteArray> messages = exampleMessages();
    int stating = 0;
    for (int round = 0; round < rounds; ++round) {
        const QByteArray message = change.mutated(messages.at(change.below(messages.size())));
        stating += wire::statedSender(message) != 0;
        compareWithReader(message);
        if (QTest::currentTestFailed())
            return;
    }
    // Did few of them state anything, little would have been compared.
    QVERIFY(stating > rounds / 3);
}

void tst_statedsender::anybodyMaySayAnythingWhenTheInvokerIsUnknown()
{
    for (const char* message : {"\x0d 12", "\x01 2 12", "\x02", "", "Hallo"})
        QVERIFY2(wire::mayComeFrom(0, message), message);
}

void tst_statedsender::aKnownInvokerMaySpeakInItsOwnNameOnly()
{
    QVERIFY(wire::mayComeFrom(12, "\x0d 12"));
    QVERIFY(!wire::mayComeFrom(13, "\x0d 12"));
    QVERIFY(!wire::mayComeFrom(12, "\x0d 0"));
    QVERIFY(!wire::mayComeFrom(12, "\x0d"));
    QVERIFY(!wire::mayComeFrom(12, ""));
    QVERIFY(!wire::mayComeFrom(12, "Hallo"));
}

void tst_statedsender::noTextComesFromNobody()
{
    QVERIFY(!wire::mayComeFrom(0, nullptr));
    QVERIFY(!wire::mayComeFrom(12, nullptr));
}

QTEST_APPLESS_MAIN(tst_statedsender)
#include "tst_statedsender.moc"
