#include "brushes/textbrush.h"

#include "literalbrushes.h"
#include "painted.h"

#include <QtTest>

#include <memory>

namespace {

/// The literal text: centred in the box, in a pen of the colour.
QImage literalText(const QRect& box, const QString& text, const QColor& color = Qt::red)
{
    return painted(whiteCanvas(), [&](QPainter* painter) {
        painter->setPen(literal::strokePen(color, 1));
        painter->drawText(box, Qt::AlignHCenter | Qt::AlignVCenter, text);
    });
}

const QRect box(QPoint(10, 20), QPoint(100, 60));

} // namespace

class tst_textbrush : public QObject {
    Q_OBJECT

private slots:
    void init();
    void otherButtonsAreIgnored();
    void pressAndReleaseAreRecordedAndMovesAreNot();
    void keysBeforeABoxStandsAreNotTaken();
    void lettersAreSmallWithoutShift();
    void digitsAndPunctuationAreTheirKeyCodes();
    void keysUpTo255AreTakenAsLatin1();
    void keyZeroIsNotTaken();
    void specialKeysAreNotTaken();
    void escapeLeavesTheBox();
    void backspaceRemovesTheLastCharacter();
    void backspaceOnAnEmptyTextIsTakenAndChangesNothing();
    void returnAndEnterFinishTheText_data();
    void returnAndEnterFinishTheText();
    void lossOfFocusFinishesTheText();
    void finishingWithoutABoxDoesNothing();
    void pressElsewhereFinishesTheTextAndBeginsABox();
    void pressWhileNothingIsTypedFinishesAnEmptyText();
    void emptyTextIsFinishedAsAnEmptyString();
    void releaseWithoutADragGivesABoxOfOnePoint();
    void aDragDownToTheUnsetPointHasNoPreview();
    void previewShowsBoxAndText();
    void previewBeforeTheFirstPressIsADegenerateBox();
    void previewEndsWithTheText();
    void replayLeavesAnOpenTextAlone();

private:
    void openBox();
    bool key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    QImage preview();
    QImage replayed(const QString& data);

    textbrush tool;
    QImage canvas;
    bool record = false;
    QString* finished = nullptr;
    std::unique_ptr<QString> owned;
};

void tst_textbrush::init()
{
    tool = textbrush();
    canvas = whiteCanvas();
    record = false;
    finished = nullptr;
    owned.reset();
}

void tst_textbrush::openBox()
{
    QPainter painter(&canvas);
    QVERIFY(tool.mousePress(&painter, Qt::LeftButton, box.topLeft(), Qt::red, 1, &record, &finished));
    QVERIFY(tool.mouseMove(&painter, Qt::LeftButton, QPoint(50, 30), Qt::red, 1, &record));
    QVERIFY(tool.mouseRelease(&painter, Qt::LeftButton, box.bottomRight(), Qt::red, 1, &record));
}

bool tst_textbrush::key(int code, Qt::KeyboardModifiers modifiers)
{
    QPainter painter(&canvas);
    const bool taken = tool.keyPress(&painter, Qt::red, 1, code, modifiers, &finished);
    owned.reset(finished);
    return taken;
}

void tst_textbrush::type(const QString& text)
{
    for (const QChar character : text)
        QVERIFY(key(character.toUpper().unicode(), character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier));
}

QImage tst_textbrush::preview()
{
    return painted(whiteCanvas(), [this](QPainter* painter) { tool.drawPreview(painter, Qt::red, 1); });
}

QImage tst_textbrush::replayed(const QString& data)
{
    return painted(whiteCanvas(), [&](QPainter* painter) { tool.replay(painter, data); });
}

void tst_textbrush::otherButtonsAreIgnored()
{
    record = true;
    QPainter painter(&canvas);
    QVERIFY(!tool.mousePress(&painter, Qt::RightButton, QPoint(1, 1), Qt::red, 1, &record, &finished));
    QVERIFY(!tool.mouseMove(&painter, Qt::RightButton, QPoint(1, 1), Qt::red, 1, &record));
    QVERIFY(!tool.mouseRelease(&painter, Qt::RightButton, QPoint(1, 1), Qt::red, 1, &record));
    QVERIFY(record);
    QVERIFY(!finished);
    QVERIFY(!tool.finish(&painter, Qt::red, 1, &finished));
}

void tst_textbrush::pressAndReleaseAreRecordedAndMovesAreNot()
{
    QPainter painter(&canvas);
    tool.mousePress(&painter, Qt::LeftButton, QPoint(1, 1), Qt::red, 1, &record, &finished);
    QVERIFY(record);
    tool.mouseMove(&painter, Qt::LeftButton, QPoint(9, 9), Qt::red, 1, &record);
    QVERIFY(!record);
    tool.mouseRelease(&painter, Qt::LeftButton, QPoint(9, 9), Qt::red, 1, &record);
    QVERIFY(record);
    QVERIFY(!finished);
    QCOMPARE(canvas, whiteCanvas());
}

void tst_textbrush::keysBeforeABoxStandsAreNotTaken()
{
    QVERIFY(!key(Qt::Key_A));
    QVERIFY(!key(Qt::Key_Return));
    QVERIFY(!key(Qt::Key_Backspace));
    QPainter painter(&canvas);
    tool.mousePress(&painter, Qt::LeftButton, QPoint(1, 1), Qt::red, 1, &record, &finished);
    painter.end();
    QVERIFY(!key(Qt::Key_A));
}

void tst_textbrush::lettersAreSmallWithoutShift()
{
    openBox();
    QVERIFY(key(Qt::Key_A));
    QVERIFY(key(Qt::Key_A, Qt::ShiftModifier));
    QVERIFY(key(Qt::Key_Z, Qt::ControlModifier));
    QVERIFY(key(Qt::Key_Z, Qt::ShiftModifier | Qt::ControlModifier));
    key(Qt::Key_Return);
    QVERIFY(owned);
    QCOMPARE(*owned, QString("aAzZ"));
}

void tst_textbrush::digitsAndPunctuationAreTheirKeyCodes()
{
    openBox();
    for (const int code : {int(Qt::Key_0), int(Qt::Key_9), int(Qt::Key_Exclam), int(Qt::Key_Space),
                           int(Qt::Key_BracketLeft), int(Qt::Key_At), int(Qt::Key_QuoteLeft)})
        QVERIFY(key(code));
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString("09! [@`"));
}

void tst_textbrush::keysUpTo255AreTakenAsLatin1()
{
    openBox();
    QVERIFY(key(Qt::Key_Adiaeresis));
    QVERIFY(key(0xff));
    QVERIFY(!key(0x100));
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString::fromLatin1("\xc4\xff"));
}

void tst_textbrush::keyZeroIsNotTaken()
{
    openBox();
    QVERIFY(!key(0));
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString());
}

void tst_textbrush::specialKeysAreNotTaken()
{
    openBox();
    for (const int code : {int(Qt::Key_Left), int(Qt::Key_Shift), int(Qt::Key_Delete), int(Qt::Key_F1),
                           int(Qt::Key_unknown), int(Qt::Key_Tab)})
        QVERIFY(!key(code));
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString());
}

void tst_textbrush::escapeLeavesTheBox()
{
    openBox();
    type("ab");
    QVERIFY(!key(Qt::Key_Escape));
    QVERIFY(!owned);
    type("c");
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString("abc"));
}

void tst_textbrush::backspaceRemovesTheLastCharacter()
{
    openBox();
    type("abc");
    QVERIFY(key(Qt::Key_Backspace));
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString("ab"));
}

void tst_textbrush::backspaceOnAnEmptyTextIsTakenAndChangesNothing()
{
    openBox();
    QVERIFY(key(Qt::Key_Backspace));
    QVERIFY(!owned);
    type("a");
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString("a"));
}

void tst_textbrush::returnAndEnterFinishTheText_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

void tst_textbrush::returnAndEnterFinishTheText()
{
    QFETCH(int, code);
    openBox();
    type("Hello");
    QCOMPARE(canvas, whiteCanvas());
    QVERIFY(key(code));
    QCOMPARE(*owned, QString("Hello"));
    QCOMPARE(canvas, literalText(box, "Hello"));
    QVERIFY(canvas != whiteCanvas());
    // The box is gone, and with it the text.
    finished = nullptr;
    QVERIFY(!key(code));
}

void tst_textbrush::lossOfFocusFinishesTheText()
{
    openBox();
    type("Hello");
    {
        QPainter painter(&canvas);
        QVERIFY(tool.finish(&painter, Qt::red, 1, &finished));
    }
    owned.reset(finished);
    QCOMPARE(*owned, QString("Hello"));
    QCOMPARE(canvas, literalText(box, "Hello"));
    QCOMPARE(preview(), whiteCanvas());
}

void tst_textbrush::finishingWithoutABoxDoesNothing()
{
    QPainter painter(&canvas);
    QVERIFY(!tool.finish(&painter, Qt::red, 1, &finished));
    QVERIFY(!finished);
    QCOMPARE(canvas, whiteCanvas());
}

void tst_textbrush::pressElsewhereFinishesTheTextAndBeginsABox()
{
    openBox();
    type("Hello");
    {
        QPainter painter(&canvas);
        record = false;
        QVERIFY(tool.mousePress(&painter, Qt::LeftButton, QPoint(5, 70), Qt::red, 1, &record, &finished));
        owned.reset(finished);
        QVERIFY(record);
        QVERIFY(owned);
        QCOMPARE(*owned, QString("Hello"));
        tool.mouseRelease(&painter, Qt::LeftButton, QPoint(110, 88), Qt::red, 1, &record);
    }
    QCOMPARE(canvas, literalText(box, "Hello"));
    finished = nullptr;
    type("x");
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString("x"));
}

void tst_textbrush::pressWhileNothingIsTypedFinishesAnEmptyText()
{
    openBox();
    QPainter painter(&canvas);
    QVERIFY(tool.mousePress(&painter, Qt::LeftButton, QPoint(5, 70), Qt::red, 1, &record, &finished));
    owned.reset(finished);
    QVERIFY(owned);
    QCOMPARE(*owned, QString());
}

void tst_textbrush::emptyTextIsFinishedAsAnEmptyString()
{
    openBox();
    QVERIFY(key(Qt::Key_Return));
    QVERIFY(owned);
    QCOMPARE(*owned, QString());
    QCOMPARE(canvas, whiteCanvas());
}

void tst_textbrush::releaseWithoutADragGivesABoxOfOnePoint()
{
    {
        QPainter painter(&canvas);
        tool.mousePress(&painter, Qt::LeftButton, QPoint(60, 45), Qt::red, 1, &record, &finished);
        QVERIFY(tool.mouseRelease(&painter, Qt::LeftButton, QPoint(60, 45), Qt::red, 1, &record));
    }
    type("Hi");
    key(Qt::Key_Return);
    QCOMPARE(canvas, literalText(QRect(QPoint(60, 45), QPoint(60, 45)), "Hi"));
    QVERIFY(canvas != whiteCanvas());
}

void tst_textbrush::aDragDownToTheUnsetPointHasNoPreview()
{
    QPainter painter(&canvas);
    tool.mousePress(&painter, Qt::LeftButton, QPoint(60, 45), Qt::red, 1, &record, &finished);
    QCOMPARE(preview(), whiteCanvas());
    tool.mouseMove(&painter, Qt::LeftButton, QPoint(-1, -1), Qt::red, 1, &record);
    QCOMPARE(preview(), whiteCanvas());
    tool.mouseMove(&painter, Qt::LeftButton, QPoint(-1, 0), Qt::red, 1, &record);
    QVERIFY(preview() != whiteCanvas());
}

void tst_textbrush::previewShowsBoxAndText()
{
    openBox();
    type("Hello");
    const QImage expected = painted(literalText(box, "Hello"), [](QPainter* painter) {
        painter->setPen(QPen(QColor("grey"), 1.0, Qt::DotLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawRect(box);
    });
    QCOMPARE(preview(), expected);
    QVERIFY(preview() != literalText(box, "Hello"));
    QCOMPARE(canvas, whiteCanvas());
}

void tst_textbrush::previewBeforeTheFirstPressIsADegenerateBox()
{
    QVERIFY(preview() != whiteCanvas());
    QCOMPARE(preview(), painted(whiteCanvas(), [](QPainter* painter) {
                 painter->setPen(QPen(QColor("grey"), 1.0, Qt::DotLine, Qt::RoundCap, Qt::RoundJoin));
                 painter->drawRect(QRect(QPoint(0, 0), QPoint(0, 0)));
             }));
}

void tst_textbrush::previewEndsWithTheText()
{
    openBox();
    key(Qt::Key_Return);
    QCOMPARE(preview(), whiteCanvas());
}

void tst_textbrush::replayLeavesAnOpenTextAlone()
{
    openBox();
    type("ab");
    replayed("#0000ff 1 10|20 100|60 hello");
    type("c");
    key(Qt::Key_Return);
    QCOMPARE(*owned, QString("abc"));
    QCOMPARE(canvas, literalText(box, "abc"));
}

QTEST_MAIN(tst_textbrush)
#include "tst_textbrush.moc"
