#include "brushes/textbrush.h"

#include "literalbrushes.h"
#include "painted.h"

#include <QtTest>

namespace {

/// The literal text: centred in the box, in a pen of the colour.
QImage literalText(const QRect& box, const QString& text, const QColor& color = Qt::red)
{
    return painted(whiteCanvas(), [&](QPainter* painter) {
        painter->setPen(literal::strokePen(color, 1));
        painter->drawText(box, Qt::AlignHCenter | Qt::AlignVCenter, text);
    });
}

QImage replayed(const QString& data)
{
    textbrush tool;
    return painted(whiteCanvas(), [&](QPainter* painter) { tool.replay(painter, data); });
}

const QRect box(QPoint(10, 20), QPoint(100, 60));

} // namespace

class tst_textreplay : public QObject {
    Q_OBJECT

private slots:
    void replayPaintsTheText();
    void replayOfATextWithABlankPaintsNothing();
    void replayOfAnEmptyTextPaintsNothing();
    void replayOfOtherPartsPaintsNothing_data();
    void replayOfOtherPartsPaintsNothing();
    void replayReadsWhatIsNoNumberAsZero();
    void replayOfAnUnreadableColourPaintsBlack();
    void replayPaintsInAnyWidth_data();
    void replayPaintsInAnyWidth();
    void hostileReplayLeavesTheCanvasWhole();
};

void tst_textreplay::replayPaintsTheText()
{
    QCOMPARE(replayed("#0000ff 1 10|20 100|60 hello"), literalText(box, "hello", Qt::blue));
    QCOMPARE(replayed("#0000ff 1 10|20 100|60 #hel|lo%1"), literalText(box, "#hel|lo%1", Qt::blue));
}

void tst_textreplay::replayOfATextWithABlankPaintsNothing()
{
    QCOMPARE(replayed("#0000ff 1 10|20 100|60 hello you"), whiteCanvas());
    QCOMPARE(replayed("#0000ff 1 10|20 100|60 hello "), whiteCanvas());
}

void tst_textreplay::replayOfAnEmptyTextPaintsNothing()
{
    QCOMPARE(replayed("#0000ff 1 10|20 100|60 "), whiteCanvas());
}

void tst_textreplay::replayOfOtherPartsPaintsNothing_data()
{
    QTest::addColumn<QString>("data");
    QTest::newRow("empty") << "";
    QTest::newRow("four") << "#0000ff 1 10|20 100|60";
    QTest::newRow("doubled blank") << "#0000ff  1 10|20 100|60 hello";
    QTest::newRow("leading blank") << " #0000ff 1 10|20 100|60 hello";
}

void tst_textreplay::replayOfOtherPartsPaintsNothing()
{
    QFETCH(QString, data);
    QCOMPARE(replayed(data), whiteCanvas());
}

void tst_textreplay::replayReadsWhatIsNoNumberAsZero()
{
    const QRect fromOrigin(QPoint(0, 20), QPoint(100, 0));
    QCOMPARE(replayed("#0000ff wide x|20 100 hello"), literalText(fromOrigin, "hello", Qt::blue));
    QCOMPARE(replayed("#0000ff 1 10|20|7 100|60|8 hello"), literalText(box, "hello", Qt::blue));
}

void tst_textreplay::replayOfAnUnreadableColourPaintsBlack()
{
    QCOMPARE(replayed("nocolour 1 10|20 100|60 hello"), literalText(box, "hello", Qt::black));
}

void tst_textreplay::replayPaintsInAnyWidth_data()
{
    QTest::addColumn<QString>("width");
    for (const char* width : {"0", "0.1", "0.5", "1", "200", "1e9", "-3", "nan", "inf", "-inf", "1e999"})
        QTest::newRow(width) << width;
}

void tst_textreplay::replayPaintsInAnyWidth()
{
    QFETCH(QString, width);
    const QImage expected = painted(whiteCanvas(), [&](QPainter* painter) {
        painter->setPen(literal::strokePen(Qt::blue, width.toDouble()));
        painter->drawText(box, Qt::AlignCenter, "hello");
    });
    QCOMPARE(replayed(QString("#0000ff %1 10|20 100|60 hello").arg(width)), expected);
    QVERIFY(expected != whiteCanvas());
}

void tst_textreplay::hostileReplayLeavesTheCanvasWhole()
{
    const QString corners[] = {"2147483647|2147483647", "-2147483648|-2147483648", "2147483647|-2147483648",
                               "99999999999|5", "-5|-5"};
    for (const QString& first : corners) {
        for (const QString& second : corners) {
            const QString data = QString("#ff0000 5 ") + first + ' ' + second + ' ' + QString(4000, 'W');
            // Nothing but the colour of the text comes onto the canvas.
            const QImage after = replayed(data);
            for (int y = 0; y < after.height(); ++y) {
                for (int x = 0; x < after.width(); ++x)
                    QVERIFY(qRed(after.pixel(x, y)) == 255 && qGreen(after.pixel(x, y)) == qBlue(after.pixel(x, y)));
            }
        }
    }
}

QTEST_MAIN(tst_textreplay)
#include "tst_textreplay.moc"
