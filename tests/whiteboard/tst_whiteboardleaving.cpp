#include "canvas/paintscene.h"
#include "sessionfixture.h"
#include "windowparts.h"

#include <QtTest>

/// How participants leave, and all the roads by which the own window ends.
class tst_whiteboardleaving : public QObject {
    Q_OBJECT

private slots:
    void init() { fixture.reset(new sessionfixture); }
    void cleanup() { fixture.reset(); }

    void leaverLosesRowAndPlace_data();
    void leaverLosesRowAndPlace();
    void leaversOfOthersAreDropped_data();
    void leaversOfOthersAreDropped();
    void lastLeaverLeavesTheWindowOpen();
    void strokeAfterLeavingIsLost();
    void hostLeavingIsAnOrdinaryLeaver();
    void messageAfterTheHostWindowClosedReachesNobody();
    void closingSaysLogoutOnce_data();
    void closingSaysLogoutOnce();
    void escapeOnTheCanvasDoesNotClose();
    void closingAloneSendsNothing();
    void controllersEndSaysLogoutButNotClosed();
    void openTextGoesOutBeforeTheFarewell();
    void windowOutlivesTheEndpoint();

private:
    QScopedPointer<sessionfixture> fixture;
};

namespace {

const QByteArray redDotOfAnna("\x11 2 \x02 #ff0000 9 50|50 50|50");

} // namespace

void tst_whiteboardleaving::leaverLosesRowAndPlace_data()
{
    QTest::addColumn<bool>("bye");
    QTest::newRow("logout") << true;
    QTest::newRow("left the server") << false;
}

void tst_whiteboardleaving::leaverLosesRowAndPlace()
{
    QFETCH(bool, bye);
    whiteboard* window = fixture->openHost({2, 3, 4});
    if (bye)
        fixture->receive(1, "\x12 3");
    else
        emit fixture->controller.clientLeft(1, 3, 1);
    QCOMPARE(rows(window), (QStringList{"Anna", "Cleo"}));
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    QCOMPARE(fixture->host.takeSent().value(0).targets, (QList<anyID>{2, 4}));
    // Those who left by both roads are struck off once.
    fixture->receive(1, "\x12 3");
    QCOMPARE(rows(window), (QStringList{"Anna", "Cleo"}));
}

void tst_whiteboardleaving::leaversOfOthersAreDropped_data() { leaverLosesRowAndPlace_data(); }

void tst_whiteboardleaving::leaversOfOthersAreDropped()
{
    QFETCH(bool, bye);
    whiteboard* window = fixture->openHost({2, 3});
    if (bye) {
        fixture->receive(2, "\x12 3");
        fixture->receive(1, "\x12 4");
    } else {
        emit fixture->controller.clientLeft(2, 3, 1);
        emit fixture->controller.clientLeft(1, 4, 1);
    }
    QCOMPARE(rows(window), (QStringList{"Anna", "Bert"}));
}

void tst_whiteboardleaving::lastLeaverLeavesTheWindowOpen()
{
    const QPointer<whiteboard> window = fixture->openHost({2});
    fixture->receive(1, "\x12 2");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(window && window->isVisible());
    QVERIFY(rows(window).isEmpty());
    QVERIFY(fixture->controller.closed.isEmpty());
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardleaving::strokeAfterLeavingIsLost()
{
    whiteboard* window = fixture->openHost({2, 3});
    fixture->receive(1, "\x12 2");
    const QImage before = canvasOf(window)->picture().copy();
    fixture->receive(1, redDotOfAnna);
    QCOMPARE(canvasOf(window)->picture(), before);
}

void tst_whiteboardleaving::hostLeavingIsAnOrdinaryLeaver()
{
    whiteboard* window = fixture->openGuest({3, 2});
    QCOMPARE(rows(window), (QStringList{"Bert", "Anna"}));
    fixture->receive(1, "\x12 2");
    QCOMPARE(rows(window), QStringList{"Bert"});
    QVERIFY(window->isVisible());
    QVERIFY(fixture->host.printed.isEmpty());
    fixture->receive(1, QByteArray("\x11 3 \x02 #0000ff 9 50|50 50|50"));
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::blue).rgba());
}

void tst_whiteboardleaving::messageAfterTheHostWindowClosedReachesNobody()
{
    const QPointer<whiteboard> window = fixture->openHost({2});
    window->close();
    QTRY_VERIFY(!window);
    fixture->host.takeSent();
    fixture->receive(1, "\x14 2 true");
    fixture->receive(1, redDotOfAnna);
    fixture->receive(1, "\x0d 3");
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardleaving::closingSaysLogoutOnce_data()
{
    QTest::addColumn<QString>("road");
    for (const char* road : {"button", "escape", "reject", "accept", "done", "button twice", "escape, then button"})
        QTest::newRow(road) << QString::fromLatin1(road);
}

void tst_whiteboardleaving::closingSaysLogoutOnce()
{
    QFETCH(QString, road);
    const QPointer<whiteboard> window = fixture->openHost({3, 2});
    QVERIFY(QTest::qWaitForWindowExposed(window));
    if (road.startsWith("escape"))
        QTest::keyClick(window.data(), Qt::Key_Escape);
    if (road == "reject")
        window->reject();
    if (road == "accept")
        window->accept();
    if (road == "done")
        window->done(5);
    if (road.contains("button"))
        window->close();
    if (road.contains("twice"))
        window->close();
    QCOMPARE(fixture->controller.closed, QList<uint64>{1});
    QVERIFY(fixture->host.takeSent().isEmpty());
    QTRY_VERIFY(!window);
    QCOMPARE(fixture->controller.closed, QList<uint64>{1});
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent[0].text, QByteArray("\x12 1"));
    QCOMPARE(sent[0].targets, (QList<anyID>{3, 2}));
}

void tst_whiteboardleaving::escapeOnTheCanvasDoesNotClose()
{
    const QPointer<whiteboard> window = fixture->openHost({2});
    QTest::keyClick(canvasOf(window), Qt::Key_Escape);
    QTest::keyClick(canvasOf(window), Qt::Key_Return);
    QVERIFY(window->isVisible());
    QVERIFY(fixture->controller.closed.isEmpty());
}

void tst_whiteboardleaving::closingAloneSendsNothing()
{
    const QPointer<whiteboard> window = fixture->openHost({});
    window->close();
    QTRY_VERIFY(!window);
    QCOMPARE(fixture->controller.closed, QList<uint64>{1});
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardleaving::controllersEndSaysLogoutButNotClosed()
{
    const whiteboard* hosting = fixture->openHost({2, 3});
    const whiteboard* invited = fixture->openGuest({2}, 2);
    delete hosting;
    delete invited;
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 2);
    QCOMPARE(sent[0].text, QByteArray("\x12 1"));
    QCOMPARE(sent[0].targets, (QList<anyID>{2, 3}));
    QCOMPARE(sent[1].schid, uint64(2));
    QVERIFY(fixture->controller.closed.isEmpty());
}

void tst_whiteboardleaving::openTextGoesOutBeforeTheFarewell()
{
    whiteboard* window = fixture->openHost({2});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QVERIFY(QMetaObject::invokeMethod(window, "onTextButtonClicked", Q_ARG(bool, true)));
    QTest::mousePress(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {20, 20});
    QTest::mouseMove(canvasOf(window), {120, 60});
    QTest::mouseRelease(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {120, 60});
    QTest::keyClicks(canvasOf(window), "hi");
    QVERIFY(fixture->host.takeSent().isEmpty());
    delete window;
    const QList<QByteArray> texts = fixture->host.takeTexts();
    QCOMPARE(texts.size(), 2);
    QVERIFY2(texts[0].startsWith("\x13 1 \x03 ") && texts[0].endsWith("hi"), texts[0]);
    QCOMPARE(texts[1], QByteArray("\x12 1"));
}

void tst_whiteboardleaving::windowOutlivesTheEndpoint()
{
    QScopedPointer<kelvorprotocol> endpoint(new kelvorprotocol(fixture->host.table()));
    QScopedPointer<whiteboard> window(
        new whiteboard(fixture->host.table(), endpoint.data(), 1, {2}, 300, 200, QString(), false, QString(), nullptr));
    endpoint.reset();
    emit canvasOf(window.data())->paintDataAvailable(kelvortool::clear, {});
    emit canvasOf(window.data())->extendedPaintDataAvailable(kelvortool::invert, QString::fromLatin1("full"));
    window->onAccept(1, 4);
    window.reset();
    QVERIFY(fixture->host.takeSent().isEmpty());
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    tst_whiteboardleaving test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardleaving.moc"
