#include "brushes/settledwatch.h"

#include "literalbrushes.h"
#include "painted.h"

#include <QPixmap>
#include <QtTest>

namespace {

/// As much painting as the watch waits for.
qint64 enoughFor(const QImage& canvas) { return settledwatch::firstLook * qint64(canvas.width()) * canvas.height(); }

/// Whether the watch calls this canvas settled for strokes of the colour, once it looks.
bool settled(QImage canvas, const QColor& color, QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver)
{
    QPainter painter(&canvas);
    painter.setPen(literal::strokePen(color, 5));
    painter.setCompositionMode(mode);
    settledwatch watch(&painter);
    return watch.settledAfter(enoughFor(canvas));
}

QImage filled(QRgb pixel)
{
    QImage canvas = whiteCanvas();
    canvas.fill(pixel);
    return canvas;
}

} // namespace

class tst_settledwatch : public QObject {
    Q_OBJECT

private slots:
    void pictureOfTheColourIsSettled();
    void pictureOfAnotherColourIsNot();
    void onePixelOfAnotherColourIsEnough();
    void halfTransparentColourSettlesWhereItAddsNothing();
    void nearlyTransparentColourSettlesInTheEnd();
    void clearedPictureIsSettledForClearing();
    void looksOnlyAfterEnoughPainting();
    void looksLessAndLessOften();
    void settledPartsAreLeftOutOfTheClip();
    void outermostPixelsStayInTheClip();
    void clipIsTakenAwayInTheEnd();
    void otherDevicesAreNeverSettled();
};

void tst_settledwatch::pictureOfTheColourIsSettled()
{
    QVERIFY(settled(filled(0xffff0000), Qt::red));
    QVERIFY(settled(filled(0xff000000), QColor()));
}

void tst_settledwatch::pictureOfAnotherColourIsNot()
{
    QVERIFY(!settled(whiteCanvas(), Qt::red));
    QVERIFY(!settled(filled(0xfffe0000), Qt::red));
}

void tst_settledwatch::onePixelOfAnotherColourIsEnough()
{
    for (const QPoint& odd : {QPoint(0, 0), QPoint(119, 0), QPoint(0, 89), QPoint(119, 89), QPoint(60, 45)}) {
        QImage canvas = filled(0xffff0000);
        canvas.setPixel(odd, 0xffff0001);
        QVERIFY(!settled(canvas, Qt::red));
    }
}

void tst_settledwatch::halfTransparentColourSettlesWhereItAddsNothing()
{
    const QColor color(255, 0, 0, 90);
    QVERIFY(!settled(whiteCanvas(), color));
    QVERIFY(settled(filled(0xffff0000), color));
    QVERIFY(!settled(filled(0x5aff0000), color));
}

void tst_settledwatch::nearlyTransparentColourSettlesInTheEnd()
{
    // On pixels that are not opaque, which stay so.
    const QColor color(255, 0, 0, 1);
    QImage canvas = filled(0x20305070);
    int passes = 0;
    for (QImage last; last != canvas; ++passes) {
        QVERIFY(!settled(canvas, color) || passes > 0);
        last = canvas;
        QPainter(&canvas).fillRect(canvas.rect(), color);
    }
    QVERIFY(passes > 10 && passes < 300);
    QVERIFY(qAlpha(canvas.pixel(0, 0)) < 0xff);
    QVERIFY(settled(canvas, color));
    QVERIFY(!settled(canvas, QColor(0, 0, 255, 1)));
}

void tst_settledwatch::clearedPictureIsSettledForClearing()
{
    QVERIFY(settled(filled(0), Qt::black, QPainter::CompositionMode_Clear));
    QVERIFY(!settled(clearCanvas(), Qt::black, QPainter::CompositionMode_Clear));
    QVERIFY(!settled(filled(0xff000000), Qt::black, QPainter::CompositionMode_Clear));
}

void tst_settledwatch::looksOnlyAfterEnoughPainting()
{
    QImage canvas = filled(0xffff0000);
    QPainter painter(&canvas);
    painter.setPen(literal::strokePen(Qt::red, 5));
    settledwatch watch(&painter);
    const qint64 pixels = enoughFor(canvas);
    QVERIFY(!watch.settledAfter(pixels / 2));
    QVERIFY(!watch.settledAfter(pixels / 2 - 1));
    QVERIFY(watch.settledAfter(1));
}

void tst_settledwatch::looksLessAndLessOften()
{
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    painter.setPen(literal::strokePen(Qt::red, 5));
    settledwatch watch(&painter);
    const qint64 pixels = enoughFor(canvas);
    QVERIFY(!watch.settledAfter(pixels));
    painter.fillRect(canvas.rect(), Qt::red);
    QVERIFY(!watch.settledAfter(pixels - 1));
    QVERIFY(watch.settledAfter(1));
}

void tst_settledwatch::settledPartsAreLeftOutOfTheClip()
{
    QImage canvas = whiteCanvas(QSize(400, 300));
    QPainter painter(&canvas);
    painter.fillRect(QRect(0, 0, 250, 300), Qt::red);
    painter.setPen(literal::strokePen(Qt::red, 5));
    settledwatch watch(&painter);
    QVERIFY(!watch.settledAfter(enoughFor(canvas)));
    const QRegion clip = painter.clipRegion();
    QVERIFY(!clip.contains(QPoint(100, 150)));
    // Whatever is not red yet can still be painted.
    QVERIFY(QRegion(250, 0, 150, 300).subtracted(clip).isEmpty());
}

void tst_settledwatch::outermostPixelsStayInTheClip()
{
    QImage canvas = filled(0xffff0000);
    canvas.setPixel(60, 45, 0xffffffff);
    QPainter painter(&canvas);
    painter.setPen(literal::strokePen(Qt::red, 5));
    settledwatch watch(&painter);
    QVERIFY(!watch.settledAfter(enoughFor(canvas)));
    QCOMPARE(painter.clipRegion().boundingRect(), canvas.rect());
    QVERIFY(!painter.clipRegion().contains(QPoint(100, 20)));
}

void tst_settledwatch::clipIsTakenAwayInTheEnd()
{
    QImage canvas = filled(0xffff0000);
    QPainter painter(&canvas);
    painter.setPen(literal::strokePen(Qt::red, 5));
    {
        settledwatch watch(&painter);
        QVERIFY(watch.settledAfter(enoughFor(canvas)));
        QVERIFY(painter.hasClipping());
    }
    QVERIFY(!painter.hasClipping());
}

void tst_settledwatch::otherDevicesAreNeverSettled()
{
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::red);
    QPainter painter(&pixmap);
    painter.setPen(Qt::red);
    settledwatch watch(&painter);
    QVERIFY(!watch.settledAfter(1000000));
    QImage gray(20, 20, QImage::Format_Grayscale8);
    gray.fill(0);
    QVERIFY(!settled(gray, Qt::black));
}

QTEST_MAIN(tst_settledwatch)
#include "tst_settledwatch.moc"
