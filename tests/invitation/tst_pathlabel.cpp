#include "invitation/pathlabel.h"

#include <QTest>

namespace {

QImage picture(const QString& text, int width)
{
    pathlabel label;
    label.setText(text);
    label.resize(width, label.sizeHint().height());
    return label.grab().toImage();
}

} // namespace

class tst_pathlabel : public QObject {
    Q_OBJECT

private slots:
    void shortPathIsShownWhole();
    void longPathIsShortenedInItsMiddle();
    void noPathStretchesTheWindow_data();
    void noPathStretchesTheWindow();
    void textIsPlain();
    void paintsNothingWithoutAPath();
};

void tst_pathlabel::shortPathIsShownWhole()
{
    pathlabel label;
    label.setText("/a/b.png");
    QCOMPARE(label.text(), QString("/a/b.png"));
    QVERIFY(label.sizeHint().width() >= label.fontMetrics().horizontalAdvance("/a/b.png"));
    QVERIFY(picture("/a/b.png", label.sizeHint().width()) != picture("/a/c.png", label.sizeHint().width()));
}

// Of two long paths the user sees where they begin and how the files are called, whatever stands between.
void tst_pathlabel::longPathIsShortenedInItsMiddle()
{
    const QString middle(1000, 'x');
    const QString otherMiddle = QString(500, 'x') + "yyy" + QString(500, 'x');
    QCOMPARE(picture("/first/" + middle + "/b.png", 200), picture("/first/" + otherMiddle + "/b.png", 200));
    QVERIFY(picture("/first/" + middle + "/b.png", 200) != picture("/first/" + middle + "/c.png", 200));
    QVERIFY(picture("/first/" + middle + "/b.png", 200) != picture("/other/" + middle + "/b.png", 200));
}

void tst_pathlabel::noPathStretchesTheWindow_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("none") << QString();
    QTest::newRow("long") << QString(10000, 'w');
    QTest::newRow("line breaks") << QString("/a\nb\r\nc.png").repeated(50);
    QTest::newRow("html") << QString("<h1>a</h1><br>").repeated(50);
    QTest::newRow("right to left") << QString(1, QChar(0x202e)) + "/abc.png";
}

void tst_pathlabel::noPathStretchesTheWindow()
{
    QFETCH(QString, path);
    pathlabel label;
    const int height = label.minimumSizeHint().height();
    label.setText(path);
    QCOMPARE(label.text(), path);
    QCOMPARE(label.minimumSizeHint(), QSize(0, height));
    QVERIFY(label.sizeHint().width() <= 300);
    QCOMPARE(label.sizeHint().height(), height);
    label.resize(300, height);
    QVERIFY(!label.grab().isNull());
}

void tst_pathlabel::textIsPlain()
{
    QCOMPARE(pathlabel().textFormat(), Qt::PlainText);
    QVERIFY(picture("<b>a</b>", 200) != picture("<i>a</i>", 200));
}

void tst_pathlabel::paintsNothingWithoutAPath() { QCOMPARE(picture("", 50), picture(" ", 50)); }

QTEST_MAIN(tst_pathlabel)
#include "tst_pathlabel.moc"
