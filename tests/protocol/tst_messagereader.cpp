#include "protocol/messagereader.h"

#include <QtTest>

#include <cmath>

class tst_messagereader : public QObject {
    Q_OBJECT

private slots:
    void readsInvite();
    void readsEveryKindThatTellsOfAClient();
    void readsEveryKindThatTellsOfAChannel();
    void readsEveryKindThatTellsItsSenderOnly();
    void readsStart();
    void readsDraw();
    void readsExtendedDraw();
    void readsDownloadFinished();

    void invitelistTakesItsSenderForTheFirstEntry();
    void channelInvitelistTakesItsSenderForTheFirstEntry();
    void listOfNothingIsTheTerminatorAlone();
    void blankBehindAListIsAnEntryOfZero();
    void acceptlistHasOneSlotMoreThanItFills();
    void acceptlistWithoutEntriesHasTheUnfilledSlotAndTheTerminator();
    void acceptlistIsTrimmed();
    void startTakesAPathOfOnePartOnly();
    void startWithoutPictureHasAnEmptyPath();
    void startOfSevenPartsHasAnEmptyPath();
    void kindsThatAreWhitespaceKeepTheirNumbers();
    void toolThatIsWhitespaceIsKept();
    void trailingBlanksAreForgivenWhereTheTextIsTrimmed();
    void failedScansLeaveZeros();
    void clientsAreCutTo16Bits();
    void anyWordButTrueIsFalse();

    void drawWithoutPointsIsValid();
    void drawOfFarPointsIsReadInFull();
    void pointsWithoutBarsAreRead();
    void widthOfADrawMayBeAnything();
    void emptyToolIsZero();
    void dataHoldsItsBlanks();
    void textsAreLatin1();

    void wrongNumberOfPartsIsDropped_data();
    void wrongNumberOfPartsIsDropped();
    void emptyTextHarmsNoReader();
    void messagesDifferByEachField();
};

using clients = std::vector<anyID>;
using channels = std::vector<uint64>;

void tst_messagereader::readsInvite() { QVERIFY(wire::readInvite("\x01 2 12") == (invitemessage{2, 12})); }

void tst_messagereader::readsEveryKindThatTellsOfAClient()
{
    for (const char* text : {"\x06 12 45", "\x08 12 45", "\x0a 12 45", "\x0b 12 45", "\x0c 12 45"})
        QVERIFY2(wire::readClient(text) == (clientmessage{45, 12}), text);
}

void tst_messagereader::readsEveryKindThatTellsOfAChannel()
{
    for (const char* text : {"\x07 12 18446744073709551615", "\x09 12 18446744073709551615"})
        QVERIFY2(wire::readChannel(text) == (channelmessage{~uint64(0), 12}), text);
}

void tst_messagereader::readsEveryKindThatTellsItsSenderOnly()
{
    for (const char* text : {"\x0d 12", "\x0e 12", "\x0f 12", "\x12 12"})
        QVERIFY2(wire::readSender(text) == sendermessage{12}, text);
    QVERIFY(wire::readTakeBack("\x15 12") == sendermessage{12});
    for (const char* text : {"\x16 12", "\x17 12", "\x18 12"})
        QVERIFY2(wire::readTrimmedSender(text) == sendermessage{12}, text);
}

void tst_messagereader::readsStart()
{
    const startmessage expected{640, -480, 7, true, 1234, "/shared/cat.png", 12};
    QVERIFY(wire::readStart("\x10 12 640 -480 7 true 1234 /shared/cat.png") == expected);
}

void tst_messagereader::readsDraw()
{
    const drawmessage expected{2, "#ff0000", 1.5, {{10, 20}, {11, 21}}, 34};
    QVERIFY(wire::readDraw("\x11 34 \x02 #ff0000 1.5 10|20 11|21") == expected);
}

void tst_messagereader::readsExtendedDraw()
{
    const extendeddrawmessage expected{10, "#ff0000 120|45", 34};
    QVERIFY(wire::readExtendedDraw("\x13 34 \x0a #ff0000 120|45") == expected);
}

void tst_messagereader::readsDownloadFinished()
{
    QVERIFY(wire::readDownloadFinished("\x14 12 true") == (downloadfinishedmessage{true, 12}));
    QVERIFY(wire::readDownloadFinished("\x14 12 false") == (downloadfinishedmessage{false, 12}));
}

void tst_messagereader::invitelistTakesItsSenderForTheFirstEntry()
{
    const clientlistmessage expected{{34, 5, 6, 0}, 0};
    QVERIFY(wire::readUntrimmedClients("\x02 34 5 6") == expected);
    QVERIFY(wire::readUntrimmedClients("\x05 34 5 6") == expected);
}

void tst_messagereader::channelInvitelistTakesItsSenderForTheFirstEntry()
{
    const channellistmessage expected{{34, 7, ~uint64(0), 0}, 0};
    QVERIFY(wire::readUntrimmedChannels("\x03 34 7 18446744073709551615") == expected);
}

void tst_messagereader::listOfNothingIsTheTerminatorAlone()
{
    QVERIFY(wire::readUntrimmedClients("\x02") == (clientlistmessage{{0}, 0}));
    QVERIFY(wire::readUntrimmedChannels("\x03") == (channellistmessage{{0}, 0}));
    // Without the blank behind the kind the sender is where the reader looks for it.
    QVERIFY(wire::readUntrimmedClients("\x02"
                                       "34 5")
            == (clientlistmessage{{5, 0}, 34}));
}

void tst_messagereader::blankBehindAListIsAnEntryOfZero()
{
    QCOMPARE(wire::readUntrimmedClients("\x02 34 5 ").list, (clients{34, 5, 0, 0}));
    QCOMPARE(wire::readUntrimmedChannels("\x03 34  5").list, (channels{34, 0, 5, 0}));
}

void tst_messagereader::acceptlistHasOneSlotMoreThanItFills()
{
    QVERIFY(wire::readAcceptlist("\x04 34 5 6") == (clientlistmessage{{5, 6, 0, 0}, 34}));
}

void tst_messagereader::acceptlistWithoutEntriesHasTheUnfilledSlotAndTheTerminator()
{
    QVERIFY(wire::readAcceptlist("\x04 34") == (clientlistmessage{{0, 0}, 34}));
}

void tst_messagereader::acceptlistIsTrimmed()
{
    QVERIFY(wire::readAcceptlist("\x04 34 5 \t\n") == (clientlistmessage{{5, 0, 0}, 34}));
    QVERIFY(wire::readAcceptlist("\x04 34 5\x85\xa0 ") == (clientlistmessage{{5, 0, 0}, 34}));
    QVERIFY(!wire::readAcceptlist("\x04 "));
}

void tst_messagereader::startTakesAPathOfOnePartOnly()
{
    const startmessage expected{640, 480, 7, true, 1234, QString(), 12};
    QVERIFY(wire::readStart("\x10 12 640 480 7 true 1234 /my cat.png") == expected);
    QVERIFY(wire::readStart("\x10 12 640 480 7 true 1234 /cat.png ") == expected);
}

void tst_messagereader::startWithoutPictureHasAnEmptyPath()
{
    const startmessage expected{640, 480, 0, false, 0, QString(), 12};
    QVERIFY(wire::readStart("\x10 12 640 480 0 false 0 ") == expected);
}

void tst_messagereader::startOfSevenPartsHasAnEmptyPath()
{
    const startmessage expected{640, 480, 7, true, 99, QString(), 12};
    QVERIFY(wire::readStart("\x10 12 640 480 7 true 99") == expected);
}

void tst_messagereader::kindsThatAreWhitespaceKeepTheirNumbers()
{
    QVERIFY(wire::readChannel("\x09 12 45") == (channelmessage{45, 12}));
    QVERIFY(wire::readClient("\x0a 12 45") == (clientmessage{45, 12}));
    QVERIFY(wire::readClient("\x0b 12 45") == (clientmessage{45, 12}));
    QVERIFY(wire::readClient("\x0c 12 45") == (clientmessage{45, 12}));
    QVERIFY(wire::readSender("\x0d 12") == sendermessage{12});
}

void tst_messagereader::toolThatIsWhitespaceIsKept()
{
    QCOMPARE(wire::readDraw("\x11 34 \x09 #ff0000 1 1|1 2|2 3|3")->tool, char(9));
    QCOMPARE(wire::readExtendedDraw("\x13 34 \x0a #ff0000 1|1")->tool, char(10));
    QCOMPARE(wire::readExtendedDraw("\x13 34 \x0d full")->tool, char(13));
    QCOMPARE(wire::readExtendedDraw("\x13 34 \x0d full")->sender, anyID(34));
}

void tst_messagereader::trailingBlanksAreForgivenWhereTheTextIsTrimmed()
{
    QVERIFY(wire::readTrimmedSender("\x17 12 \r\n") == sendermessage{12});
    QVERIFY(wire::readTrimmedSender("\x17 12\xa0") == sendermessage{12});
    QVERIFY(!wire::readTrimmedSender("\x17  12"));
    QVERIFY(!wire::readInvite("\x01 2 12 "));
    QVERIFY(!wire::readDownloadFinished("\x14 12 true "));
}

void tst_messagereader::failedScansLeaveZeros()
{
    QVERIFY(wire::readClient("\x06") == (clientmessage{0, 0}));
    QVERIFY(wire::readClient("\x06 12") == (clientmessage{0, 12}));
    QVERIFY(wire::readClient("\x06 a 45") == (clientmessage{0, 0}));
    QVERIFY(wire::readClient("\x06 12 a") == (clientmessage{0, 12}));
    QVERIFY(wire::readClient("\x06 12x 45") == (clientmessage{0, 12}));
    QVERIFY(wire::readChannel("\x07 12 ") == (channelmessage{0, 12}));
    QVERIFY(wire::readSender("\x0d hello") == sendermessage{0});
    QVERIFY(wire::readTakeBack("\x15") == sendermessage{0});
}

void tst_messagereader::clientsAreCutTo16Bits()
{
    QVERIFY(wire::readClient("\x06 65537 65538") == (clientmessage{2, 1}));
    QVERIFY(wire::readClient("\x06 4294967301 99999999999999999999") == (clientmessage{65535, 5}));
    QVERIFY(wire::readSender("\x0d -1") == sendermessage{65535});
    QVERIFY(wire::readTakeBack("\x15 65549") == sendermessage{13});
    QVERIFY(wire::readTrimmedSender("\x17 65549") == sendermessage{13});
    QVERIFY(wire::readInvite("\x01 2 65549") == (invitemessage{2, 13}));
    QCOMPARE(wire::readAcceptlist("\x04 65537 65538")->list, (clients{2, 0, 0}));
}

void tst_messagereader::anyWordButTrueIsFalse()
{
    for (const char* text : {"\x14 12 ", "\x14 12 TRUE", "\x14 12 1", "\x14 12 true\t", "\x14 12 xtrue"})
        QVERIFY2(wire::readDownloadFinished(text) == (downloadfinishedmessage{false, 12}), text);
    QVERIFY(!wire::readStart("\x10 12 640 480 7 yes 1234 /cat.png")->background);
}

void tst_messagereader::drawWithoutPointsIsValid()
{
    QVERIFY(wire::readDraw("\x11 34 \x06 #000000 1") == (drawmessage{6, "#000000", 1, {}, 34}));
}

void tst_messagereader::drawOfFarPointsIsReadInFull()
{
    const QList<QPoint> expected{{INT_MIN, INT_MAX}, {-1, -1}};
    QCOMPARE(wire::readDraw("\x11 34 \x02 #000000 1 -2147483648|2147483647 -1|-1")->points, expected);
}

void tst_messagereader::pointsWithoutBarsAreRead()
{
    const QList<QPoint> expected{{10, 0}, {0, 0}, {0, 20}, {1, 2}, {0, 0}};
    QCOMPARE(wire::readDraw("\x11 34 \x02 #000000 1 10  |20 1|2|3 ")->points, expected);
}

void tst_messagereader::widthOfADrawMayBeAnything()
{
    const auto width = [](const char* part) {
        return wire::readDraw(QByteArray("\x11 34 \x02 #000000 ") + part + " 1|1")->thick;
    };
    QCOMPARE(width(""), 0.0);
    QCOMPARE(width("thick"), 0.0);
    QCOMPARE(width("-3"), -3.0);
    QCOMPARE(width("1e9"), 1e9);
    QVERIFY(std::isinf(width("inf")));
    QVERIFY(std::isnan(width("nan")));
}

void tst_messagereader::emptyToolIsZero()
{
    QVERIFY(wire::readDraw("\x11 34  #000000 1") == (drawmessage{0, "#000000", 1, {}, 34}));
    QVERIFY(wire::readExtendedDraw("\x13 34  full") == (extendeddrawmessage{0, "full", 34}));
    QCOMPARE(wire::readExtendedDraw("\x13 34 \xff\x01 full")->tool, static_cast<char>(-1));
}

void tst_messagereader::dataHoldsItsBlanks()
{
    QCOMPARE(wire::readExtendedDraw("\x13 34 \x03  two  blanks here ")->data, QString(" two  blanks here "));
    QCOMPARE(wire::readExtendedDraw("\x13 34 \x03 ends in blanks   ")->data, QString("ends in blanks   "));
    QCOMPARE(wire::readExtendedDraw("\x13 34 \x03 ")->data, QString(""));
}

void tst_messagereader::textsAreLatin1()
{
    const QString expected = QString::fromUtf8("caf\xc3\xa9");
    QCOMPARE(wire::readExtendedDraw("\x13 34 \x03 caf\xe9")->data, expected);
    QCOMPARE(wire::readDraw("\x11 34 \x02 caf\xe9 1")->color, expected);
    QCOMPARE(wire::readStart("\x10 12 1 1 7 true 1 caf\xe9")->path, expected);
}

void tst_messagereader::wrongNumberOfPartsIsDropped_data()
{
    QTest::addColumn<bool>("dropped");
    const auto row = [](const char* name, bool dropped) { QTest::newRow(name) << dropped; };
    row("invite of two parts", !wire::readInvite("\x01 2"));
    row("invite of four parts", !wire::readInvite("\x01 2 12 12"));
    row("acceptlist of its kind alone", !wire::readAcceptlist("\x04"));
    row("start of six parts", !wire::readStart("\x10 12 640 480 7 true"));
    row("draw of four parts", !wire::readDraw("\x11 34 \x02 #ff0000"));
    row("extendedDraw of three parts", !wire::readExtendedDraw("\x13 34 \x03"));
    row("downloadFinished of two parts", !wire::readDownloadFinished("\x14 12"));
    row("downloadFinished of four parts", !wire::readDownloadFinished("\x14 12 true true"));
    row("ping of its kind alone", !wire::readTrimmedSender("\x16 "));
    row("pong of three parts", !wire::readTrimmedSender("\x17 12 13"));
    row("busy of its kind alone", !wire::readTrimmedSender("\x18"));
}

void tst_messagereader::wrongNumberOfPartsIsDropped()
{
    QFETCH(bool, dropped);
    QVERIFY(dropped);
}

void tst_messagereader::emptyTextHarmsNoReader()
{
    QVERIFY(!wire::readInvite(""));
    QCOMPARE(wire::readUntrimmedClients("").list, clients{0});
    QCOMPARE(wire::readUntrimmedChannels("").list, channels{0});
    QVERIFY(!wire::readAcceptlist(""));
    QVERIFY(wire::readClient("") == clientmessage());
    QVERIFY(wire::readChannel("") == channelmessage());
    QVERIFY(wire::readSender("") == sendermessage());
    QVERIFY(wire::readTakeBack("") == sendermessage());
    QVERIFY(!wire::readTrimmedSender(""));
    QVERIFY(!wire::readStart(""));
    QVERIFY(!wire::readDraw(""));
    QVERIFY(!wire::readExtendedDraw(""));
    QVERIFY(!wire::readDownloadFinished(""));
}

void tst_messagereader::messagesDifferByEachField()
{
    QVERIFY(!(invitemessage{2, 1} == invitemessage{3, 1}));
    QVERIFY(!(clientlistmessage{{5, 0}, 1} == clientlistmessage{{6, 0}, 1}));
    QVERIFY(!(channellistmessage{{5, 0}, 1} == channellistmessage{{5, 0}, 2}));
    QVERIFY(!(clientmessage{1, 2} == clientmessage{2, 1}));
    QVERIFY(!(channelmessage{1, 2} == channelmessage{2, 2}));
    QVERIFY(!(sendermessage{1} == sendermessage{2}));
    const startmessage start{1, 2, 3, true, 4, "p", 5};
    const startmessage otherStarts[] = {
        {0, 2, 3, true, 4, "p", 5}, {1, 0, 3, true, 4, "p", 5}, {1, 2, 0, true, 4, "p", 5}, {1, 2, 3, false, 4, "p", 5},
        {1, 2, 3, true, 0, "p", 5}, {1, 2, 3, true, 4, "q", 5}, {1, 2, 3, true, 4, "p", 0}};
    for (const startmessage& other : otherStarts)
        QVERIFY(!(start == other));
    const drawmessage draw{2, "#ff0000", 1.5, {{1, 2}}, 5};
    const drawmessage otherDraws[] = {{3, "#ff0000", 1.5, {{1, 2}}, 5},
                                      {2, "#ff0001", 1.5, {{1, 2}}, 5},
                                      {2, "#ff0000", 1.6, {{1, 2}}, 5},
                                      {2, "#ff0000", 1.5, {}, 5},
                                      {2, "#ff0000", 1.5, {{1, 2}}, 6}};
    for (const drawmessage& other : otherDraws)
        QVERIFY(!(draw == other));
    QVERIFY(!(extendeddrawmessage{3, "full", 1} == extendeddrawmessage{3, "", 1}));
    QVERIFY(!(downloadfinishedmessage{true, 1} == downloadfinishedmessage{false, 1}));
}

QTEST_APPLESS_MAIN(tst_messagereader)
#include "tst_messagereader.moc"
