#include "canvas/paintscene.h"

#include "randompictures.h"
#include "randomuser.h"
#include "scenehand.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstdlib>

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;

const QSize size(120, 90);

/// The author's canvas, a peer's of the same size and mode, and the wire between them.
class session {
public:
    session()
        : author(size.width(), size.height(), nullptr)
        , peer(size.width(), size.height(), nullptr)
        , hand(author)
    {
        author.setImage(QString(), false);
        peer.setImage(QString(), false);
    }

    void deliverAll()
    {
        for (const paintmessage& message : hand.takeMessages()) {
            deliver(overTheWire(message), peer);
        }
    }
    bool agree() const { return author.picture() == peer.picture(); }

    paintscene author;
    paintscene peer;
    scenehand hand;
};

} // namespace

class tst_session : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void twoCanvasesAgreeWhateverTheUserDoes_data();
    void twoCanvasesAgreeWhateverTheUserDoes();
    void everyToolAndEffectComesUp();
    void whatCommutesAgreesBetweenTwoWriters();

    void anAirbrushStrokeDiverges();
    void aTextWithABlankDiverges();
    void aTextWithPendingPointsDiverges();
    void aStrokeAfterABandDiverges();
    void anotherColourWithinAStrokeDiverges();
    void anotherWidthWithinAStrokeDiverges();
    void aThinPenDivergesWhereBatchesMeet();
    void anOtherModeDiverges();

private:
    QTemporaryDir directory;
    QString opaquePath;
    QString glassPath;
};

void tst_session::initTestCase()
{
    QRandomGenerator random(1);
    opaquePath = directory.filePath("opaque.png");
    QVERIFY(randompictures::make(random, size, randompictures::kind::opaque).save(opaquePath));
    glassPath = directory.filePath("glass.png");
    QVERIFY(randompictures::make(random, QSize(90, 110), randompictures::kind::mixed).save(glassPath));
}

void tst_session::twoCanvasesAgreeWhateverTheUserDoes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("asBackground");
    QTest::newRow("blank paper") << QString() << false;
    QTest::newRow("a picture") << opaquePath << false;
    QTest::newRow("a half transparent picture of another size") << glassPath << false;
    QTest::newRow("over a background") << opaquePath << true;
    QTest::newRow("over a background that is missing") << QString("absent") << true;
}

void tst_session::twoCanvasesAgreeWhateverTheUserDoes()
{
    QFETCH(QString, path);
    QFETCH(bool, asBackground);
    for (quint32 seed = 1; seed <= 25; ++seed) {
        paintscene author(size.width(), size.height(), nullptr);
        author.setImage(path, asBackground);
        paintscene peer(size.width(), size.height(), nullptr);
        peer.setImage(path, asBackground);
        // The peer has a tool, a selection and an open text of its own, which count for nothing.
        scenehand peersHand(peer);
        peersHand.take(kelvortool::text, Qt::blue, 5);
        peersHand.drag({QPoint(5, 5), QPoint(60, 60)});
        peersHand.type("open");
        peersHand.take(kelvortool::select, Qt::blue, 5);
        peersHand.drag({QPoint(10, 10), QPoint(70, 50)});

        randomuser user(author, size, seed);
        for (int deed = 0; deed < 40; ++deed) {
            user.act();
            for (const paintmessage& message : user.takeMessages()) {
                deliver(overTheWire(message), peer);
            }
            QVERIFY2(author.picture() == peer.picture(), qPrintable(QString("seed %1, deed %2").arg(seed).arg(deed)));
        }
    }
}

void tst_session::everyToolAndEffectComesUp()
{
    QMap<int, int> seen;
    for (quint32 seed = 1; seed <= 25; ++seed) {
        paintscene author(size.width(), size.height(), nullptr);
        author.setImage(QString(), false);
        randomuser user(author, size, seed);
        for (int deed = 0; deed < 40; ++deed) {
            user.act();
            for (const paintmessage& message : user.takeMessages()) {
                ++seen[static_cast<int>(message.tool)];
            }
        }
    }
    for (int tool = 2; tool <= 17; ++tool) {
        if (static_cast<kelvortool>(static_cast<char>(tool)) != kelvortool::airbrush) {
            QVERIFY2(seen.value(tool) >= 10, qPrintable(QString("tool %1").arg(tool)));
        }
    }
}

void tst_session::whatCommutesAgreesBetweenTwoWriters()
{
    // Each keeps to a half of the canvas, and each hears of the other when its own stroke is half done.
    session both;
    scenehand other(both.peer);
    QRandomGenerator random(2);
    for (int round = 0; round < 30; ++round) {
        const kelvortool tools[] = {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse,
                                    kelvortool::eraser};
        const auto place = [&random](int left) { return QPoint(left + random.bounded(44), random.bounded(90)); };
        both.hand.take(tools[random.bounded(5)], QColor::fromRgb(random.generate()), 5);
        other.take(tools[random.bounded(5)], QColor::fromRgb(random.generate()), 5);
        both.hand.press(place(5));
        other.press(place(70));
        for (int i = 0; i < 25; ++i) {
            both.hand.move(place(5));
            other.move(place(70));
            both.deliverAll();
            for (const paintmessage& message : other.takeMessages()) {
                deliver(overTheWire(message), both.author);
            }
        }
        both.hand.release(QPoint(20, 20));
        other.release(QPoint(90, 20));
        both.deliverAll();
        for (const paintmessage& message : other.takeMessages()) {
            deliver(overTheWire(message), both.author);
        }
        QVERIFY(both.agree());
    }
}

void tst_session::anAirbrushStrokeDiverges()
{
    // A click paints at its author alone.
    session click;
    click.hand.take(kelvortool::airbrush, Qt::red, 20);
    click.hand.drag({QPoint(50, 50)});
    QVERIFY(!click.agree());
    click.deliverAll();
    QVERIFY(!click.agree());
    QCOMPARE(click.peer.picture().pixel(50, 50), white);

    // A longer one has the same discs everywhere, in a pattern that each draws by lot.
    session stroke;
    std::srand(1);
    stroke.hand.take(kelvortool::airbrush, Qt::red, 20);
    QList<QPoint> path;
    for (int i = 0; i < 12; ++i) {
        path.append(QPoint(20 + 6 * i, 40));
    }
    stroke.hand.drag(path);
    stroke.deliverAll();
    QVERIFY(!stroke.agree());
    QCOMPARE(stroke.peer.picture().pixel(5, 5), white);
    int painted = 0;
    for (int x = 20; x < 86; ++x) {
        painted += stroke.peer.picture().pixel(x, 40) == red ? 1 : 0;
    }
    QVERIFY(painted > 0);
}

void tst_session::aTextWithABlankDiverges()
{
    session both;
    both.hand.take(kelvortool::text, Qt::red, 1);
    both.hand.drag({QPoint(5, 5), QPoint(110, 60)});
    both.hand.type("two words");
    both.hand.keyDown(Qt::Key_Return);
    both.deliverAll();
    QVERIFY(!both.agree());
}

void tst_session::aTextWithPendingPointsDiverges()
{
    session both;
    both.hand.take(kelvortool::text, Qt::red, 1);
    both.hand.drag({QPoint(5, 5), QPoint(110, 30)});
    both.hand.type("kept");
    both.hand.take(kelvortool::text, Qt::red, 1);
    // The box of before still stands; a second release adds a third point to it.
    both.hand.release(QPoint(110, 60));
    both.hand.keyDown(Qt::Key_Return);
    QVERIFY(both.hand.takeMessages().isEmpty());
    QVERIFY(!both.agree());
}

void tst_session::aStrokeAfterABandDiverges()
{
    session both;
    both.hand.take(kelvortool::select);
    both.hand.drag({QPoint(10, 10), QPoint(60, 50)});
    both.hand.take(kelvortool::pencil, Qt::red, 3);
    both.hand.drag({QPoint(100, 80), QPoint(110, 80)});
    both.deliverAll();
    QVERIFY(!both.agree());
    QCOMPARE(both.author.picture().pixel(35, 30), white);
    QCOMPARE(both.peer.picture().pixel(35, 30), red);
    QCOMPARE(both.peer.picture().pixel(105, 80), red);
}

void tst_session::anotherColourWithinAStrokeDiverges()
{
    // The message has the colour of the moment in which it leaves.
    session both;
    both.hand.take(kelvortool::pencil, Qt::red, 3);
    both.hand.press(QPoint(10, 10));
    both.hand.move(QPoint(50, 10));
    both.hand.setColor(Qt::blue);
    both.hand.release(QPoint(90, 10));
    both.deliverAll();
    QVERIFY(!both.agree());
    QCOMPARE(both.author.picture().pixel(30, 10), red);
    QCOMPARE(both.peer.picture().pixel(30, 10), QRgb{0xff0000ff});
}

void tst_session::anotherWidthWithinAStrokeDiverges()
{
    session both;
    both.hand.take(kelvortool::pencil, Qt::red, 3);
    both.hand.press(QPoint(10, 30));
    both.hand.move(QPoint(50, 30));
    both.hand.setThickness(15);
    both.hand.release(QPoint(90, 30));
    both.deliverAll();
    QVERIFY(!both.agree());
    QCOMPARE(both.author.picture().pixel(20, 36), white);
    QCOMPARE(both.peer.picture().pixel(20, 36), red);
}

void tst_session::aThinPenDivergesWhereBatchesMeet()
{
    // Below one pixel the toolkit paints half transparent ones, and the point that two batches share gets two dots.
    QList<QPoint> path;
    for (int i = 0; i < 30; ++i) {
        path.append(QPoint(10 + 3 * i, 20));
    }
    session both;
    both.hand.take(kelvortool::pencil, Qt::red, 0.5);
    both.hand.drag(path);
    both.deliverAll();
    QVERIFY(!both.agree());
    int differing = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            differing += both.author.picture().pixel(x, y) != both.peer.picture().pixel(x, y) ? 1 : 0;
        }
    }
    QCOMPARE(differing, 1);
    QVERIFY(both.author.picture().pixel(path.at(19)) != both.peer.picture().pixel(path.at(19)));
}

void tst_session::anOtherModeDiverges()
{
    session both;
    both.peer.setImage(opaquePath, true);
    both.hand.take(kelvortool::eraser, Qt::red, 9);
    both.hand.drag({QPoint(50, 50), QPoint(60, 50)});
    both.deliverAll();
    QCOMPARE(both.author.picture().pixel(55, 50), white);
    QCOMPARE(qAlpha(both.peer.picture().pixel(55, 50)), 0);
}

QTEST_MAIN(tst_session)
#include "tst_session.moc"
