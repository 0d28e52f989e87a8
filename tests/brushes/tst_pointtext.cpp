#include "brushes/pointtext.h"

#include <QtTest>

class tst_pointtext : public QObject {
    Q_OBJECT

private slots:
    void pointsAreTheSectionsAroundTheBar_data();
    void pointsAreTheSectionsAroundTheBar();
};

void tst_pointtext::pointsAreTheSectionsAroundTheBar_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPoint>("point");
    QTest::newRow("plain") << "120|45" << QPoint(120, 45);
    QTest::newRow("negative") << "-7|-1" << QPoint(-7, -1);
    QTest::newRow("edges of 32 bits") << "2147483647|-2147483648" << QPoint(2147483647, -2147483647 - 1);
    QTest::newRow("beyond 32 bits") << "2147483648|5" << QPoint(0, 5);
    QTest::newRow("empty") << "" << QPoint(0, 0);
    QTest::newRow("bar only") << "|" << QPoint(0, 0);
    QTest::newRow("no bar") << "12" << QPoint(12, 0);
    QTest::newRow("no x") << "|9" << QPoint(0, 9);
    QTest::newRow("three sections") << "1|2|3" << QPoint(1, 2);
    QTest::newRow("no numbers") << "a|0x10" << QPoint(0, 0);
    QTest::newRow("fraction") << "1.5|2" << QPoint(0, 2);
}

void tst_pointtext::pointsAreTheSectionsAroundTheBar()
{
    QFETCH(QString, text);
    QFETCH(QPoint, point);
    QCOMPARE(readPoint(text), point);
}

QTEST_MAIN(tst_pointtext)
#include "tst_pointtext.moc"
