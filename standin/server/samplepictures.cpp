#include "samplepictures.h"

#include "voiceserver.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>

namespace {

QImage paper(int width, int height, const QColor& top, const QColor& bottom)
{
    QImage picture(width, height, QImage::Format_RGB32);
    QLinearGradient sky(0, 0, 0, height);
    sky.setColorAt(0, top);
    sky.setColorAt(1, bottom);
    QPainter painter(&picture);
    painter.fillRect(picture.rect(), sky);
    return picture;
}

// A boat before the evening sun.
QImage harbour()
{
    QImage picture = paper(560, 360, QColor(0xfd, 0xe6, 0xb0), QColor(0xf4, 0x9d, 0x6e));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0xf6, 0xd8));
    painter.drawEllipse(QPoint(400, 190), 60, 60);
    painter.fillRect(0, 230, 560, 130, QColor(0x2f, 0x6f, 0x8f));
    painter.setBrush(QColor(0x6b, 0x3f, 0x2a));
    painter.drawPolygon(QPolygon({QPoint(130, 250), QPoint(290, 250), QPoint(260, 285), QPoint(155, 285)}));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygon({QPoint(205, 95), QPoint(205, 242), QPoint(140, 242)}));
    painter.setBrush(QColor(0xc8, 0x3c, 0x3c));
    painter.drawPolygon(QPolygon({QPoint(212, 115), QPoint(212, 242), QPoint(275, 242)}));
    painter.setPen(QPen(QColor(0x8f, 0xc3, 0xd6), 3));
    for (int wave = 0; wave < 6; ++wave)
        painter.drawLine(40 + wave * 90, 310 + (wave % 2) * 18, 95 + wave * 90, 310 + (wave % 2) * 18);
    return picture;
}

// A bed of roses, seen from above.
QImage roses()
{
    QImage picture = paper(480, 320, QColor(0xb9, 0xdb, 0xa4), QColor(0x6f, 0xa8, 0x5c));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int flower = 0; flower < 12; ++flower) {
        const QPoint middle(60 + (flower % 4) * 120, 60 + (flower / 4) * 100);
        for (int ring = 4; ring > 0; --ring) {
            painter.setBrush(QColor::fromHsv((340 + flower * 5) % 360, 90 + ring * 25, 255 - ring * 20));
            painter.drawEllipse(middle, ring * 9, ring * 9 - (flower % 3));
        }
    }
    return picture;
}

void place(const voiceserver& server, const char* channel, const QString& path, const QImage& picture)
{
    const quint64 id = server.voices().channelNamed(QLatin1String(channel));
    if (id == 0)
        return;
    const QString file = server.files().channelDirectory(id) + path;
    if (QFileInfo::exists(file))
        return;
    QDir().mkpath(QFileInfo(file).path());
    picture.save(file, "PNG");
}

} // namespace

void addSamplePictures(const voiceserver& server)
{
    place(server, "Sketches", QStringLiteral("/harbour.png"), harbour());
    place(server, "Sketches", QStringLiteral("/garden/roses.png"), roses());
    place(server, "Secret Garden", QStringLiteral("/roses.png"), roses());
}
