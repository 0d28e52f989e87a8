#pragma once

#include "brushes/selectionbrush.h"
#include "painted.h"

#include <QtTest>

/// What the tests of the selection begin with: the tool, and a canvas in which every pixel differs. Each test runs on
/// an opaque canvas and on one over a background.
class selectiontest : public QObject {
protected:
    static void addCanvases()
    {
        QTest::addColumn<bool>("opaque");
        QTest::newRow("opaque canvas") << true;
        QTest::newRow("over a background") << false;
    }

    void begin()
    {
        QFETCH_GLOBAL(bool, opaque);
        this->opaque = opaque;
        tool = selectionbrush();
        canvas = numberedCanvas();
        pending = {QPoint(7, 7)};
    }

    bool press(const QPoint& pos)
    {
        QPainter painter(&canvas);
        return tool.mousePress(canvas, &painter, Qt::LeftButton, pos, Qt::red, 5, &record, &clear);
    }

    bool move(const QPoint& pos)
    {
        QPainter painter(&canvas);
        return tool.mouseMove(&painter, Qt::LeftButton, pos, Qt::red, 5, &record);
    }

    bool release(const QPoint& pos)
    {
        QPainter painter(&canvas);
        return tool.mouseRelease(&painter, Qt::LeftButton, pos, Qt::red, 5, opaque, &record, &flush, &pending);
    }

    void makeBand(const QPoint& from, const QPoint& to)
    {
        press(from);
        move(to);
        release(to);
    }

    QImage preview(const QImage& below, const QPoint& origin = QPoint(0, 0))
    {
        return painted(below, [&](QPainter* painter) {
            painter->translate(-origin);
            tool.drawPreview(painter, Qt::red, 5, opaque);
        });
    }

    bool opaque = true;
    selectionbrush tool;
    QImage canvas;
    bool record = false;
    bool clear = false;
    bool flush = false;
    QList<QPoint> pending;
};
