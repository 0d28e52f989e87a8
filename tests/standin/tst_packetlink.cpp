#include "standin/common/packetlink.h"

#include <QEventLoop>
#include <QLocalServer>
#include <QSignalSpy>
#include <QTest>
#include <QtEndian>

#include <memory>

// Two ends of a link in one process.
class tst_packetlink : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void packetsArriveWholeAndInOrder();
    void aPacketWithOtherFieldsIsRefused_data();
    void aPacketWithOtherFieldsIsRefused();
    void aReceiverInANestedLoopGetsTheNextPacketThere();
    void waitingForOnePacketKeepsTheOthersInOrder();
    void waitingEndsWithItsTime();
    void waitingEndsWithTheLink();
    void theEndComesBehindTheLastPacket();
    void closingOneselfIsNoEnd();
    void aFrameThatIsTooLargeEndsTheLink();

private:
    std::unique_ptr<QLocalServer> listener;
    std::unique_ptr<packetlink> near;
    std::unique_ptr<packetlink> far;
    QLocalSocket* rawNear = nullptr;
    QVector<int> numbers; ///< what came over far

    void sendNumber(int number) { near->send(makePacket(packetkind::chat, number)); }
};

namespace {

int numberIn(const packet& message)
{
    int number = -1;
    return readPacket(message, number) ? number : -1;
}

} // namespace

void tst_packetlink::init()
{
    const QString name = QStringLiteral("kelvor-link-%1").arg(QCoreApplication::applicationPid());
    listener = std::make_unique<QLocalServer>();
    QVERIFY(listener->listen(name));
    rawNear = new QLocalSocket;
    rawNear->connectToServer(name);
    QVERIFY(rawNear->waitForConnected());
    QVERIFY(listener->waitForNewConnection(5000));
    near = std::make_unique<packetlink>(rawNear);
    far = std::make_unique<packetlink>(listener->nextPendingConnection());
    numbers.clear();
    connect(far.get(), &packetlink::received, this,
            [this](const packet& message) { numbers.append(numberIn(message)); });
}

void tst_packetlink::cleanup()
{
    near.reset();
    far.reset();
    listener.reset();
}

void tst_packetlink::packetsArriveWholeAndInOrder()
{
    QVector<int> sent;
    for (int i = 0; i < 500; ++i) {
        sendNumber(i);
        sent.append(i);
    }
    QTRY_COMPARE(numbers.size(), sent.size());
    QCOMPARE(numbers, sent);
}

void tst_packetlink::aPacketWithOtherFieldsIsRefused_data()
{
    QTest::addColumn<QByteArray>("body");
    const QByteArray whole = makePacket(packetkind::chat, quint16(7), QStringLiteral("hello")).body;
    QTest::newRow("cut") << whole.left(whole.size() - 1);
    QTest::newRow("longer") << whole + 'x';
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("length of 2 GB") << QByteArray("\x00\x07\x7f\xff\xff\xfe", 6);
}

void tst_packetlink::aPacketWithOtherFieldsIsRefused()
{
    QFETCH(const QByteArray, body);
    quint16 number = 0;
    QString text;
    QVERIFY(!readPacket({packetkind::chat, body}, number, text));
}

void tst_packetlink::aReceiverInANestedLoopGetsTheNextPacketThere()
{
    QVector<int> inside;
    int depth = 0;
    connect(far.get(), &packetlink::received, this, [&](const packet& message) {
        if (numberIn(message) == 1) {
            QEventLoop nested;
            connect(far.get(), &packetlink::received, &nested, &QEventLoop::quit);
            ++depth;
            nested.exec();
            --depth;
        } else if (depth > 0) {
            inside.append(numberIn(message));
        }
    });
    sendNumber(1);
    sendNumber(2);
    QTRY_COMPARE(inside, QVector<int>{2});
    QTRY_COMPARE(depth, 0);
}

void tst_packetlink::waitingForOnePacketKeepsTheOthersInOrder()
{
    for (const int number : {1, 2, 3, 4})
        sendNumber(number);
    QVERIFY(rawNear->waitForBytesWritten() || rawNear->bytesToWrite() == 0);
    const std::optional<packet> third =
        far->waitFor([](const packet& message) { return numberIn(message) == 3; }, 5000);
    QVERIFY(third);
    QVERIFY2(numbers.isEmpty(), "nothing is handed out while somebody waits");
    QTRY_COMPARE(numbers, (QVector<int>{1, 2, 4}));
}

void tst_packetlink::waitingEndsWithItsTime()
{
    QVERIFY(!far->waitFor([](const packet&) { return true; }, 20));
    QVERIFY(far->isOpen());
}

void tst_packetlink::waitingEndsWithTheLink()
{
    near->close(1000);
    QVERIFY(!far->waitFor([](const packet&) { return true; }, 60 * 1000));
}

void tst_packetlink::theEndComesBehindTheLastPacket()
{
    QVector<int> atEnd{-1};
    connect(far.get(), &packetlink::ended, this, [&] { atEnd = numbers; });
    sendNumber(1);
    sendNumber(2);
    near->close(1000);
    QTRY_COMPARE(atEnd, (QVector<int>{1, 2}));
}

void tst_packetlink::closingOneselfIsNoEnd()
{
    QSignalSpy nearEnd(near.get(), &packetlink::ended);
    QSignalSpy farEnd(far.get(), &packetlink::ended);
    near->close(1000);
    QTRY_COMPARE(farEnd.count(), 1);
    QCOMPARE(nearEnd.count(), 0);
}

void tst_packetlink::aFrameThatIsTooLargeEndsTheLink()
{
    QSignalSpy ended(far.get(), &packetlink::ended);
    QByteArray header(5, '\0');
    qToBigEndian(packetlink::largestFrame + 1, header.data());
    rawNear->write(header);
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(numbers.isEmpty());
}

QTEST_GUILESS_MAIN(tst_packetlink)
#include "tst_packetlink.moc"
