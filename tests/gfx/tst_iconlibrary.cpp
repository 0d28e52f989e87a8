#include <QFile>
#include <QLibrary>
#include <QtTest>

class tst_iconlibrary : public QObject {
    Q_OBJECT

private slots:
    // No symbol refers to the pictures; nothing but their constructor puts them into the tree, and a linker may drop
    // it.
    void picturesComeAndGoWithTheLibrary()
    {
        const QString picture = QLatin1String(":/gfx/gfx/pencil.png");
        QVERIFY(!QFile::exists(picture));

        QLibrary library(QLatin1String(ICON_LIBRARY));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QVERIFY(QFile::exists(picture));

        QVERIFY2(library.unload(), qPrintable(library.errorString()));
        QVERIFY(!QFile::exists(picture));
    }
};

QTEST_GUILESS_MAIN(tst_iconlibrary)
#include "tst_iconlibrary.moc"
