#include "canvas/paintscene.h"
#include "sessionfixture.h"
#include "windowparts.h"

#include <QSignalSpy>
#include <QStatusBar>
#include <QtTest>

/// The strokes of a session: what is sent to whom, and which messages are taken.
class tst_whiteboardsession : public QObject {
    Q_OBJECT

private slots:
    void init() { fixture.reset(new sessionfixture); }
    void cleanup() { fixture.reset(); }

    void strokesGoToAllParticipants();
    void strokesCarryTheWindowsColourAndThickness();
    void extendedDataGoOutUnchanged();
    void strokesReachTheOwnCanvasOnce();
    void aloneNothingIsSent();
    void failedSendIsSilent();
    void receivedStrokeIsPainted();
    void receivedStrokesArePaintedInOrderOfArrival();
    void strangersAreDropped_data();
    void strangersAreDropped();
    void invalidColourPaintsAsOpaqueBlack();
    void receivedStrokeLeavesTheOwnToolAlone();
    void lateAcceptIsTakenBack();
    void lateAcceptElsewhereIsDropped();
    void guestDoesNotAnswerAccept();
    void hostAloneTurnsAwayAcceptors();
    void fileEventsAreRelayed();
    void hostMemoryIsGivenBack();

private:
    QScopedPointer<sessionfixture> fixture;
};

namespace {

const QByteArray redDotOfAnna("\x11 2 \x02 #ff0000 9 50|50 50|50");

} // namespace

void tst_whiteboardsession::strokesGoToAllParticipants()
{
    whiteboard* window = fixture->openHost({2, 3, 4});
    emit canvasOf(window)->paintDataAvailable(kelvortool::pencil, {{10, 20}, {11, 21}});
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 2);
    QCOMPARE(sent[0].text, QByteArray("\x11 1 \x02 #000000 1 10|20 11|21"));
    QCOMPARE(sent[1].text, QByteArray("\x11 1 \x06 #000000 1"));
    for (const sentcommand& command : sent) {
        QCOMPARE(command.schid, uint64(1));
        QCOMPARE(command.targetMode, int(PluginCommandTarget_CLIENT));
        QCOMPARE(command.targets, (QList<anyID>{2, 3, 4}));
    }
}

void tst_whiteboardsession::strokesCarryTheWindowsColourAndThickness()
{
    whiteboard* window = fixture->openHost({2});
    QVERIFY(QMetaObject::invokeMethod(window, "onThicknessSpinChanged", Q_ARG(double, 199.95)));
    emit canvasOf(window)->paintDataAvailable(kelvortool::line, {{1, 2}, {3, 4}});
    // The slider cuts the value to 199.9, and its echo sets it everywhere.
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x07 #000000 199.9 1|2 3|4"});
}

void tst_whiteboardsession::extendedDataGoOutUnchanged()
{
    whiteboard* window = fixture->openHost({3, 4});
    const QString data = QString::fromLatin1("1|2 3|4  two  blanks %1 \xe4 ");
    emit canvasOf(window)->extendedPaintDataAvailable(kelvortool::text, data);
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent[0].text, QByteArray("\x13 1 \x03 1|2 3|4  two  blanks %1 \xe4 "));
    QCOMPARE(sent[0].targets, (QList<anyID>{3, 4}));
}

void tst_whiteboardsession::strokesReachTheOwnCanvasOnce()
{
    whiteboard* window = fixture->openHost({2});
    QVERIFY(QMetaObject::invokeMethod(window, "onPencilButtonClicked", Q_ARG(bool, true)));
    QTest::mousePress(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {40, 40});
    QTest::mouseRelease(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {40, 40});
    QCOMPARE(pixel(window, 40, 40), QColor(Qt::black).rgba());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x02 #000000 1 40|40 40|40"});
}

void tst_whiteboardsession::aloneNothingIsSent()
{
    whiteboard* window = fixture->openHost({});
    emit canvasOf(window)->paintDataAvailable(kelvortool::pencil, {{10, 20}, {11, 21}});
    emit canvasOf(window)->extendedPaintDataAvailable(kelvortool::invert, QString::fromLatin1("full"));
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardsession::failedSendIsSilent()
{
    whiteboard* window = fixture->openHost({2});
    fixture->host.failing.insert("getClientID");
    emit canvasOf(window)->paintDataAvailable(kelvortool::pencil, {{10, 20}, {11, 21}});
    QVERIFY(fixture->host.takeSent().isEmpty());
    QVERIFY(fixture->host.printed.isEmpty());
    QVERIFY(window->findChild<QStatusBar*>()->currentMessage().isEmpty());
}

void tst_whiteboardsession::receivedStrokeIsPainted()
{
    whiteboard* window = fixture->openGuest({3, 2});
    fixture->receive(1, redDotOfAnna);
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::red).rgba());
    fixture->receive(1, QByteArray("\x13 2 \x10 full"));
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::cyan).rgba());
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardsession::receivedStrokesArePaintedInOrderOfArrival()
{
    whiteboard* window = fixture->openHost({2, 3});
    fixture->receive(1, redDotOfAnna);
    fixture->receive(1, QByteArray("\x11 3 \x02 #0000ff 3 50|50 50|50"));
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::blue).rgba());
    QCOMPARE(pixel(window, 53, 50), QColor(Qt::red).rgba());
}

void tst_whiteboardsession::strangersAreDropped_data()
{
    QTest::addColumn<int>("schid");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("stroke of no participant") << 1 << QByteArray("\x11 4 \x02 #ff0000 9 50|50 50|50");
    QTest::newRow("stroke on another connection") << 2 << redDotOfAnna;
    QTest::newRow("stroke of the own client") << 1 << QByteArray("\x11 1 \x02 #ff0000 9 50|50 50|50");
    QTest::newRow("stroke of client 0") << 1 << QByteArray("\x11 x \x02 #ff0000 9 50|50 50|50");
    QTest::newRow("effect of no participant") << 1 << QByteArray("\x13 4 \x10 full");
    QTest::newRow("effect on another connection") << 2 << QByteArray("\x13 2 \x10 full");
}

void tst_whiteboardsession::strangersAreDropped()
{
    QFETCH(int, schid);
    QFETCH(QByteArray, message);
    whiteboard* window = fixture->openHost({2, 3});
    const QImage before = canvasOf(window)->picture().copy();
    fixture->receive(static_cast<uint64>(schid), message);
    QCOMPARE(canvasOf(window)->picture(), before);
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardsession::invalidColourPaintsAsOpaqueBlack()
{
    whiteboard* window = fixture->openHost({2});
    fixture->receive(1, redDotOfAnna);
    fixture->receive(1, QByteArray("\x11 2 \x02 nocolour 9 50|50 50|50"));
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::black).rgba());
}

void tst_whiteboardsession::receivedStrokeLeavesTheOwnToolAlone()
{
    whiteboard* window = fixture->openHost({2});
    QVERIFY(QMetaObject::invokeMethod(window, "onLineButtonClicked", Q_ARG(bool, true)));
    fixture->receive(1, redDotOfAnna);
    QTest::mousePress(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {40, 40});
    QTest::mouseRelease(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {45, 40});
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x07 #000000 1 40|40 45|40"});
}

void tst_whiteboardsession::lateAcceptIsTakenBack()
{
    whiteboard* window = fixture->openHost({2});
    fixture->receive(1, "\x0d 4");
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent[0].text, QByteArray("\x15 1"));
    QCOMPARE(sent[0].schid, uint64(1));
    QCOMPARE(sent[0].targets, QList<anyID>{4});
    QCOMPARE(rows(window), QStringList{"Anna"});
    // The farewell of the one who was turned away finds nobody.
    fixture->receive(1, "\x12 4");
    QCOMPARE(rows(window), QStringList{"Anna"});
}

void tst_whiteboardsession::lateAcceptElsewhereIsDropped()
{
    fixture->openHost({2});
    fixture->receive(2, "\x0d 4");
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardsession::guestDoesNotAnswerAccept()
{
    fixture->openGuest({2});
    fixture->receive(1, "\x0d 4");
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardsession::hostAloneTurnsAwayAcceptors()
{
    whiteboard* window = fixture->openHost({});
    QVERIFY(window->isVisible());
    QVERIFY(fixture->host.takeSent().isEmpty());
    fixture->receive(1, "\x0d 3");
    fixture->receive(1, "\x0d 4");
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 2);
    QCOMPARE(sent[0].targets, QList<anyID>{3});
    QCOMPARE(sent[1].targets, QList<anyID>{4});
    QCOMPARE(sent[1].text, QByteArray("\x15 1"));
}

void tst_whiteboardsession::fileEventsAreRelayed()
{
    whiteboard* window = fixture->openHost({2});
    QSignalSpy transfers(window, &whiteboard::fileTransferStatus);
    QSignalSpy lists(window, &whiteboard::fileList);
    emit fixture->controller.fileTransferStatus(100, 0x811, QString::fromLatin1("done"), 7, 2);
    emit fixture->controller.fileList(2, 7, QString::fromLatin1("/a"), QString::fromLatin1("b.png"), 8, 9, 1);
    QCOMPARE(transfers.size(), 1);
    QCOMPARE(transfers[0][0].value<anyID>(), anyID(100));
    QCOMPARE(transfers[0][1].toUInt(), 0x811U);
    QCOMPARE(transfers[0][2].toString(), QString::fromLatin1("done"));
    QCOMPARE(transfers[0][3].value<uint64>(), uint64(7));
    QCOMPARE(transfers[0][4].value<uint64>(), uint64(2));
    QCOMPARE(lists.size(), 1);
    QCOMPARE(lists[0][0].value<uint64>(), uint64(2));
    QCOMPARE(lists[0][1].value<uint64>(), uint64(7));
    QCOMPARE(lists[0][2].toString(), QString::fromLatin1("/a"));
    QCOMPARE(lists[0][3].toString(), QString::fromLatin1("b.png"));
    QCOMPARE(lists[0][4].value<uint64>(), uint64(8));
    QCOMPARE(lists[0][5].value<uint64>(), uint64(9));
    QCOMPARE(lists[0][6].toInt(), 1);
}

void tst_whiteboardsession::hostMemoryIsGivenBack()
{
    fixture->openHost({2, 99, 3});
    fixture->openGuest({4, 2}, 2);
    QVERIFY(fixture->host.calls.value("getClientVariableAsString") >= 5);
    QCOMPARE(fixture->host.outstanding, 0);
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    qRegisterMetaType<uint64>("uint64");
    qRegisterMetaType<anyID>("anyID");
    tst_whiteboardsession test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardsession.moc"
