#include <QDirIterator>
#include <QImage>
#include <QImageReader>
#include <QSet>
#include <QtTest>

namespace {

const char* const root = ":/gfx/gfx/";

struct icon {
    const char* name;
    int width;
    int height;
};

const icon icons[] = {
    {"pencil.png", 18, 18},
    {"fillcursor.png", 19, 21},
    {"select.png", 24, 24},
    {"line.png", 24, 24},
    {"rect.png", 24, 24},
    {"ellipse.png", 24, 24},
    {"eraser.png", 48, 48},
    {"text.png", 22, 22},
    {"fill.png", 24, 24},
    {"swaprgb.png", 32, 32},
    {"invert.png", 24, 24},
    {"horizontal.png", 32, 32},
    {"vertical.png", 32, 32},
    {"grayscale.png", 32, 32},
    {"new_file.png", 32, 32},
    {"upload.png", 16, 16},
    {"apply.png", 24, 24},
    {"cancel.png", 32, 32},
    {"clear.png", 32, 32},
    {"channel.png", 16, 16},
    {"channel_invited.png", 16, 16},
    {"channel_green.png", 16, 16},
    {"player.png", 16, 16},
    {"player_withplugin.png", 16, 16},
    {"player_self.png", 16, 16},
    {"player_host.png", 16, 16},
    {"player_invited.png", 16, 16},
    {"player_accepted.png", 16, 16},
    {"player_rejected.png", 16, 16},
    {"player_rejectedversion.png", 16, 16},
    {"player_busy.png", 16, 16},
    {"directory.png", 24, 24},
    {"up.png", 32, 32},
    {"refresh.png", 32, 32},
    {"qt.png", 64, 64},
    {"donate.gif", 74, 21},
    {"cursor.png", 16, 16},
    {"down_arrow.png", 7, 5},
};

QString pathOf(const QString& name) { return QLatin1String(root) + name; }

/// Which pixels are painted, as one character each: what is left of a picture for an eye that sees no colours and no
/// shades.
QByteArray outline(const QString& name)
{
    const QImage picture(pathOf(name));
    QByteArray pixels;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            pixels += picture.pixelColor(x, y).alpha() > 127 ? '#' : '.';
    }
    return pixels;
}

int differences(const QByteArray& a, const QByteArray& b)
{
    int count = 0;
    for (int i = 0; i < a.size(); ++i)
        count += a[i] != b[i];
    return count;
}

} // namespace

class tst_icons : public QObject {
    Q_OBJECT

private slots:
    void eachPictureHasItsSizeAndFormat_data()
    {
        QTest::addColumn<QSize>("size");
        for (const icon& expected : icons)
            QTest::newRow(expected.name) << QSize(expected.width, expected.height);
    }
    void eachPictureHasItsSizeAndFormat()
    {
        QFETCH(QSize, size);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QImageReader reader(pathOf(name));
        QCOMPARE(reader.format(), QFileInfo(name).suffix().toLatin1());
        const QImage picture = reader.read();
        QVERIFY2(!picture.isNull(), qPrintable(reader.errorString()));
        QCOMPARE(picture.size(), size);
        QVERIFY(picture.hasAlphaChannel());
    }

    void thereIsNoEntryBesideThem()
    {
        QSet<QString> expected;
        for (const icon& known : icons)
            expected.insert(pathOf(QLatin1String(known.name)));
        QSet<QString> found;
        QDirIterator entries(QLatin1String(":/gfx"), QDir::Files, QDirIterator::Subdirectories);
        while (entries.hasNext())
            found.insert(entries.next());
        QCOMPARE(found, expected);
        QCOMPARE(found.size(), 38);
    }

    // Two of the pictures are cursors, with hot spots that the canvas sets: there the picture has to have its tip.
    void aCursorIsPaintedAtItsHotSpot_data()
    {
        QTest::addColumn<QPoint>("hotSpot");
        QTest::newRow("pencil.png") << QPoint(0, 16);
        QTest::newRow("fillcursor.png") << QPoint(4, 20);
    }
    void aCursorIsPaintedAtItsHotSpot()
    {
        QFETCH(QPoint, hotSpot);
        const QImage picture(pathOf(QString::fromLatin1(QTest::currentDataTag())));
        QVERIFY(picture.pixelColor(hotSpot).alpha() > 200);
    }

    // The marks must still be told apart where red and green look the same, and on a black and white screen.
    void statesOfAClientDifferInShape()
    {
        QStringList states;
        for (const icon& known : icons) {
            if (QByteArray(known.name).startsWith("player"))
                states << QString::fromLatin1(known.name);
        }
        QCOMPARE(states.size(), 9);
        for (int i = 0; i < states.size(); ++i) {
            for (int j = 0; j < i; ++j) {
                const int count = differences(outline(states[i]), outline(states[j]));
                QVERIFY2(count >= 10, qPrintable(states[i] + QLatin1String(" looks like ") + states[j]));
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_icons)
#include "tst_icons.moc"
