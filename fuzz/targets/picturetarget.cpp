#include "picturetarget.h"

#include "brushes/picturefile.h"
#include "canvas/paintscene.h"
#include "must.h"

#include <QFile>

void picturetarget::run(const QByteArray& input)
{
    const QString path = directory.filePath(QString::fromLatin1("picture"));
    QFile file(path);
    must(file.open(QIODevice::WriteOnly), "no picture file");
    file.write(input);
    file.close();
    const QImage picture = readPicture(path);
    must(qint64{picture.width()} * picture.height() <= mostPixels, "a picture is larger than it may be");
    ++(picture.isNull() ? refused : read);
    for (const bool asBackground : {false, true}) {
        paintscene canvas(64, 48, nullptr);
        canvas.setImage(path, asBackground);
        must(!canvas.picture().isNull(), "a picture file takes the canvas away");
        canvas.applyExtendedDraw(static_cast<char>(kelvortool::grayscale), QString::fromLatin1("full"));
    }
}
