#pragma once

#include "randompictures.h"
#include "scenehand.h"

#include <QScopedPointer>
#include <QTemporaryDir>
#include <QtTest>

/// What the tests of peers' messages begin with: a canvas of white paper, and one over a background picture.
class replaytest : public QObject {
protected:
    static constexpr QRgb white = 0xffffffff;
    static constexpr QRgb red = 0xffff0000;
    static constexpr QRgb unpainted = 0x00ffffff;
    static constexpr QSize size{120, 90};
    static constexpr QRect all{0, 0, 120, 90};

    bool writeBackground()
    {
        QRandomGenerator random(1);
        background = randompictures::make(random, size, randompictures::kind::opaque);
        backgroundPath = directory.filePath("background.png");
        return background.save(backgroundPath);
    }

    void begin()
    {
        scene.reset(new paintscene(size.width(), size.height(), nullptr));
        scene->setImage(QString(), false);
        overBackground.reset(new paintscene(size.width(), size.height(), nullptr));
        overBackground->setImage(backgroundPath, true);
    }

    static void draw(paintscene& scene, kelvortool tool, const QList<QPoint>& points, qreal thick = 3)
    {
        scene.applyDraw(static_cast<char>(tool), Qt::red, thick, points);
    }

    static void extendedDraw(paintscene& scene, kelvortool tool, const QString& data)
    {
        scene.applyExtendedDraw(static_cast<char>(tool), data);
    }

    QTemporaryDir directory;
    QString backgroundPath;
    QImage background;
    QScopedPointer<paintscene> scene;
    QScopedPointer<paintscene> overBackground;
};
