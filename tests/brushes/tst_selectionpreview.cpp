#include "selectiontest.h"

namespace {

QImage withBand(const QImage& canvas, const QRect& band)
{
    return painted(canvas, [&](QPainter* painter) {
        painter->setPen(QPen(QColor("grey"), 1.0, Qt::DotLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawRects(&band, 1);
    });
}

} // namespace

/// The selection as it is drawn over the canvas.
class tst_selectionpreview : public selectiontest {
    Q_OBJECT

private slots:
    void initTestCase_data() { addCanvases(); }
    void init() { begin(); }

    void previewShowsTheBand();
    void previewOfAMoveShowsThePixelsAtTheirNewPlace();
    void previewOnATranslatedPainterIsTheSame();
    void nothingIsPreviewedBeforeTheFirstMove();
};

void tst_selectionpreview::previewShowsTheBand()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    QCOMPARE(preview(whiteCanvas()), withBand(whiteCanvas(), QRect(QPoint(10, 20), QPoint(60, 50))));
    QVERIFY(preview(whiteCanvas()) != whiteCanvas());
}

void tst_selectionpreview::previewOfAMoveShowsThePixelsAtTheirNewPlace()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    press(QPoint(30, 30));
    QCOMPARE(preview(canvas), withBand(canvas, QRect(QPoint(10, 20), QPoint(60, 50))));
    move(QPoint(45, 50));
    // White in both modes: the overlay is not cleared, it is painted over.
    const QImage moved = painted(canvas, [this](QPainter* painter) {
        painter->eraseRect(QRect(QPoint(10, 20), QPoint(60, 50)));
        painter->drawImage(QPoint(25, 40), canvas.copy(QRect(QPoint(10, 20), QPoint(60, 50))));
    });
    QCOMPARE(preview(canvas), withBand(moved, QRect(QPoint(25, 40), QPoint(25 + 51, 40 + 31))));
    QCOMPARE(canvas, numberedCanvas());
}

void tst_selectionpreview::previewOnATranslatedPainterIsTheSame()
{
    makeBand(QPoint(-20, 20), QPoint(60, 50));
    press(QPoint(30, 30));
    move(QPoint(45, 50));
    const QRect exposed(30, 25, 70, 60);
    const QImage below = clearCanvas();
    QCOMPARE(preview(below.copy(exposed), exposed.topLeft()), preview(below).copy(exposed));
}

void tst_selectionpreview::nothingIsPreviewedBeforeTheFirstMove()
{
    press(QPoint(10, 20));
    QCOMPARE(preview(whiteCanvas()), whiteCanvas());
}

QTEST_MAIN(tst_selectionpreview)
#include "tst_selectionpreview.moc"
