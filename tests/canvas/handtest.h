#pragma once

#include "scenehand.h"

#include <QScopedPointer>
#include <QtTest>

/// What the tests of a user's hand begin with: a canvas of white paper, and the hand on it.
class handtest : public QObject {
protected:
    static constexpr QRgb white = 0xffffffff;
    static constexpr QRgb red = 0xffff0000;
    static constexpr QSize size{200, 150};

    void begin()
    {
        hand.reset();
        scene.reset(new paintscene(size.width(), size.height(), nullptr));
        scene->setImage(QString(), false);
        hand.reset(new scenehand(*scene));
    }

    /// So many positions in a row, each two pixels from the last.
    static QList<QPoint> steps(int count)
    {
        QList<QPoint> path;
        for (int i = 0; i < count; ++i) {
            path.append(QPoint(10 + 2 * i, 20 + i));
        }
        return path;
    }

    QScopedPointer<paintscene> scene;
    QScopedPointer<scenehand> hand;
};
