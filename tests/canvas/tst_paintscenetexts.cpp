#include "handtest.h"

/// Texts by hand: when they are sent, and what the keys do in their box.
class tst_paintscenetexts : public handtest {
    Q_OBJECT
private slots:
    void init() { begin(); }

    void aTextIsSentWithItsBox_data();
    void aTextIsSentWithItsBox();
    void anEmptyTextIsSentToo();
    void aPressElsewhereFinishesTheTextAndBeginsABox();
    void afterAFinishedTextThePressIsTheOnlyPoint();
    void escapeLeavesTheBox();
    void backspaceOnAnEmptyTextChangesNothing();
    void otherToolsDoNotHearTheLossOfFocus();
    void aTextBoxSurvivesAToolChange();
};

void tst_paintscenetexts::aTextIsSentWithItsBox_data()
{
    QTest::addColumn<int>("by");
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
    QTest::newRow("press") << 0;
    QTest::newRow("focus") << 1;
}

void tst_paintscenetexts::aTextIsSentWithItsBox()
{
    QFETCH(int, by);
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::text, Qt::red, 2.5);
    hand->drag({QPoint(20, 20), QPoint(90, 40), QPoint(150, 80)});
    hand->type("Hello1");
    hand->keyDown(Qt::Key_Exclam, Qt::ShiftModifier);
    QVERIFY(hand->takeMessages().isEmpty());
    QVERIFY(scene->picture() == before);
    if (by == 0) {
        hand->press(QPoint(5, 100));
    } else if (by == 1) {
        hand->loseFocus();
    } else {
        hand->keyDown(by);
    }
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(message.extended);
    QCOMPARE(message.tool, kelvortool::text);
    QCOMPARE(message.data, QString("#ff0000 2.5 20|20 150|80 Hello1!"));
    QVERIFY(scene->picture() != before);

    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    deliver(overTheWire(message), peer);
    QVERIFY(peer.picture() == scene->picture());

    // It was finished once and for all.
    if (by != 0) {
        hand->loseFocus();
        hand->keyDown(Qt::Key_Return);
        QVERIFY(hand->takeMessages().isEmpty());
    }
}

void tst_paintscenetexts::anEmptyTextIsSentToo()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 80)});
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|80 "));
    QVERIFY(scene->picture() == before);
}

void tst_paintscenetexts::aPressElsewhereFinishesTheTextAndBeginsABox()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("one");
    hand->drag({QPoint(30, 80), QPoint(160, 120)});
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 one"));
    hand->type("two");
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 30|80 160|120 two"));
}

void tst_paintscenetexts::afterAFinishedTextThePressIsTheOnlyPoint()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->press(QPoint(30, 80));
    QCOMPARE(hand->takeMessages().size(), 1);
    hand->take(kelvortool::pencil);
    hand->drag({QPoint(90, 90)});
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(30, 80), QPoint(90, 90), QPoint(90, 90)}));
}

void tst_paintscenetexts::escapeLeavesTheBox()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("ab");
    hand->keyDown(Qt::Key_Escape);
    hand->type("c");
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 abc"));
}

void tst_paintscenetexts::backspaceOnAnEmptyTextChangesNothing()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->keyDown(Qt::Key_Backspace);
    hand->type("ab");
    hand->keyDown(Qt::Key_Backspace);
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 a"));
}

void tst_paintscenetexts::otherToolsDoNotHearTheLossOfFocus()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("ab");
    hand->take(kelvortool::pencil);
    hand->loseFocus();
    QVERIFY(hand->takeMessages().isEmpty());
}

void tst_paintscenetexts::aTextBoxSurvivesAToolChange()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("still");
    const QImage typed = scene->grab().toImage();
    hand->take(kelvortool::pencil, Qt::red, 2);
    QVERIFY(scene->picture() == before);
    QVERIFY(scene->grab().toImage() != typed);
    hand->type("x");
    hand->take(kelvortool::text, Qt::red, 2);
    QCOMPARE(scene->grab().toImage(), typed);
    hand->type("here");
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 stillhere"));
}

QTEST_MAIN(tst_paintscenetexts)
#include "tst_paintscenetexts.moc"
