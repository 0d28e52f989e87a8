#include "literalwire.h"
#include "protocol/messagewriter.h"

#include <QtTest>

#include <limits>
#include <random>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

QByteArray writtenBatch(int points)
{
    drawmessage message{2, "#ff0000", 1.5, {}, 34};
    for (int i = 0; i < points; ++i)
        message.points.append({10 + i, 20 + i});
    return wire::write(message);
}

} // namespace

class tst_messagewriter : public QObject {
    Q_OBJECT

private slots:
    void writesTheBytesOfEachKind_data();
    void writesTheBytesOfEachKind();
    void inviteIsTheKnownSixBytes();
    void clientInvitedIsTheKnownSevenBytes();
    void inviteAloneHasTheSenderBehindAnotherField();
    void listEndsAtItsFirstZero();
    void startWithoutPictureEndsInABlank();
    void drawOfNoPointHasFiveParts();
    void longBatchIsWrittenInOneMessage();
    void textLosesWhatLatin1Lacks();
    void percentMarkersInTextsStayAsTheyAre();
    void randomMessagesAreWrittenAsTheLiteralWriterDoes();
};

void tst_messagewriter::writesTheBytesOfEachKind_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QByteArray>("expected");
    using kind = messagekind;
    const auto row = [](const char* name, const QByteArray& written, const QByteArray& expected) {
        QTest::newRow(name) << written << expected;
    };
    row("invite", wire::write(invitemessage{2, 12}), "\x01 2 12");
    row("invitelist", wire::write(kind::invitelist, clientlistmessage{{5, 6, 0}, 34}), "\x02 34 5 6");
    row("channelInvitelist", wire::write(channellistmessage{{7, ~uint64(0), 0}, 34}), "\x03 34 7 18446744073709551615");
    row("acceptlist", wire::write(kind::acceptlist, clientlistmessage{{5, 65535, 0}, 34}), "\x04 34 5 65535");
    row("rejectlist", wire::write(kind::rejectlist, clientlistmessage{{5, 0}, 34}), "\x05 34 5");
    row("clientInvited", wire::write(kind::clientInvited, clientmessage{45, 12}), "\x06 12 45");
    row("channelInvited", wire::write(kind::channelInvited, channelmessage{4500, 12}), "\x07 12 4500");
    row("clientTakenBack", wire::write(kind::clientTakenBack, clientmessage{45, 12}), "\x08 12 45");
    row("channelTakenBack", wire::write(kind::channelTakenBack, channelmessage{~uint64(0), 12}),
        "\x09 12 18446744073709551615");
    row("clientAcceptedInvite", wire::write(kind::clientAcceptedInvite, clientmessage{45, 12}), "\x0a 12 45");
    row("clientRejectedInvite", wire::write(kind::clientRejectedInvite, clientmessage{45, 12}), "\x0b 12 45");
    row("clientRejectedInviteVersion", wire::write(kind::clientRejectedInviteVersion, clientmessage{45, 12}),
        "\x0c 12 45");
    row("accept", wire::write(kind::accept, sendermessage{12}), "\x0d 12");
    row("reject", wire::write(kind::reject, sendermessage{12}), "\x0e 12");
    row("rejectVersion", wire::write(kind::rejectVersion, sendermessage{65535}), "\x0f 65535");
    row("start", wire::write(startmessage{640, 480, 7, true, 1234, "/shared/cat.png", 12}),
        "\x10 12 640 480 7 true 1234 /shared/cat.png");
    row("start with odd numbers", wire::write(startmessage{lowest, -1, ~uint64(0), false, ~uint64(0), "/a b", 0}),
        "\x10 0 -2147483648 -1 18446744073709551615 false 18446744073709551615 /a b");
    row("draw", wire::write(drawmessage{2, "#ff0000", 1.5, {{10, 20}, {11, 21}}, 34}),
        "\x11 34 \x02 #ff0000 1.5 10|20 11|21");
    row("draw far outside", wire::write(drawmessage{7, "#00ff00", 200, {{lowest, highest}, {0, -1}}, 34}),
        "\x11 34 \x07 #00ff00 200 -2147483648|2147483647 0|-1");
    row("logout", wire::write(kind::logout, sendermessage{12}), "\x12 12");
    row("extendedDraw", wire::write(extendeddrawmessage{3, "#000000 1 30|40 200|80 hello", 34}),
        "\x13 34 \x03 #000000 1 30|40 200|80 hello");
    row("downloadFinished", wire::write(downloadfinishedmessage{true, 12}), "\x14 12 true");
    row("downloadFinished in vain", wire::write(downloadfinishedmessage{false, 12}), "\x14 12 false");
    row("takeBack", wire::write(kind::takeBack, sendermessage{12}), "\x15 12");
    row("ping", wire::write(kind::ping, sendermessage{12}), "\x16 12");
    row("pong", wire::write(kind::pong, sendermessage{12}), "\x17 12");
    row("busy", wire::write(kind::busy, sendermessage{12}), "\x18 12");
}

void tst_messagewriter::writesTheBytesOfEachKind()
{
    QFETCH(QByteArray, written);
    QTEST(written, "expected");
}

void tst_messagewriter::inviteIsTheKnownSixBytes()
{
    QCOMPARE(wire::write(invitemessage{2, 12}), QByteArray::fromHex("012032203132"));
}

void tst_messagewriter::clientInvitedIsTheKnownSevenBytes()
{
    QCOMPARE(wire::write(messagekind::clientInvited, clientmessage{45, 12}), QByteArray::fromHex("06203132203435"));
}

void tst_messagewriter::inviteAloneHasTheSenderBehindAnotherField()
{
    QCOMPARE(wire::write(invitemessage{3, 9}).split(' ').at(2), QByteArray("9"));
    QCOMPARE(wire::write(messagekind::channelInvited, channelmessage{3, 9}).split(' ').at(1), QByteArray("9"));
    QCOMPARE(wire::write(startmessage{1, 2, 3, false, 4, "p", 9}).split(' ').at(1), QByteArray("9"));
}

void tst_messagewriter::listEndsAtItsFirstZero()
{
    QCOMPARE(wire::write(messagekind::acceptlist, clientlistmessage{{5, 0, 6}, 34}), QByteArray("\x04 34 5"));
    QCOMPARE(wire::write(messagekind::acceptlist, clientlistmessage{{5, 6}, 34}), QByteArray("\x04 34 5 6"));
}

void tst_messagewriter::startWithoutPictureEndsInABlank()
{
    QCOMPARE(wire::write(startmessage{640, 480, 0, false, 0, QString(), 12}), QByteArray("\x10 12 640 480 0 false 0 "));
}

void tst_messagewriter::drawOfNoPointHasFiveParts()
{
    QCOMPARE(wire::write(drawmessage{6, "#000000", 1, {}, 34}), QByteArray("\x11 34 \x06 #000000 1"));
}

void tst_messagewriter::longBatchIsWrittenInOneMessage()
{
    const QByteArray written = writtenBatch(5000);
    QCOMPARE(written.count('|'), 5000);
    QVERIFY(written.endsWith(" 5009|5019"));
}

void tst_messagewriter::textLosesWhatLatin1Lacks()
{
    const QString data = QString::fromUtf8("caf\xc3\xa9 \xe2\x82\xac");
    QCOMPARE(wire::write(extendeddrawmessage{3, data, 1}), QByteArray("\x13 1 \x03 caf\xe9 ?"));
}

void tst_messagewriter::percentMarkersInTextsStayAsTheyAre()
{
    QCOMPARE(wire::write(startmessage{1, 2, 3, true, 4, "/%1/%8.png", 5}),
             QByteArray("\x10 5 1 2 3 true 4 /%1/%8.png"));
    QCOMPARE(wire::write(extendeddrawmessage{3, "100%1 %4", 5}), QByteArray("\x13 5 \x03 100%1 %4"));
}

void tst_messagewriter::randomMessagesAreWrittenAsTheLiteralWriterDoes()
{
    std::mt19937_64 random(2024);
    // Numbers of every length, as hostile and as honest ones are.
    const auto bits = [&] { return random() >> random() % 64; };
    const auto client = [&] { return static_cast<anyID>(bits()); };
    const auto number = [&] { return static_cast<int>(bits() * (random() % 2 ? 1 : ~uint64(0))); };
    for (int round = 0; round < 20000; ++round) {
        drawmessage draw{static_cast<char>(1 + random() % 17), "#12ab90", number() / 10.0, {}, client()};
        for (uint64 i = random() % 25; i > 0; --i)
            draw.points.append({number(), number()});
        QCOMPARE(wire::write(draw), literal::write(draw));
        const startmessage start{number(), number(), bits(), random() % 2 == 0, bits(), "/a/b c.png", client()};
        QCOMPARE(wire::write(start), literal::write(start));
        const extendeddrawmessage extended{static_cast<char>(1 + random() % 17), "full", client()};
        QCOMPARE(wire::write(extended), literal::write(extended));
        const channelmessage channel{bits(), client()};
        QCOMPARE(wire::write(messagekind::channelInvited, channel),
                 literal::write(messagekind::channelInvited, channel));
        const clientmessage about{client(), client()};
        QCOMPARE(wire::write(messagekind::clientInvited, about), literal::write(messagekind::clientInvited, about));
        const clientlistmessage list{{client(), client(), client(), 0}, client()};
        QCOMPARE(wire::write(messagekind::acceptlist, list), literal::write(messagekind::acceptlist, list));
        const channellistmessage channels{{bits(), bits(), 0}, client()};
        QCOMPARE(wire::write(channels), literal::write(channels));
        const sendermessage sender{client()};
        QCOMPARE(wire::write(messagekind::busy, sender), literal::write(messagekind::busy, sender));
        const invitemessage invite{static_cast<unsigned int>(bits()), client()};
        QCOMPARE(wire::write(invite), literal::write(invite));
        const downloadfinishedmessage finished{random() % 2 == 0, client()};
        QCOMPARE(wire::write(finished), literal::write(finished));
    }
}

QTEST_APPLESS_MAIN(tst_messagewriter)
#include "tst_messagewriter.moc"
