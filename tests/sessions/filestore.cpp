#include "filestore.h"

#include <QBuffer>
#include <QFile>
#include <QRandomGenerator>

filestore::filestore(const QSize& size)
    : image(size, QImage::Format_RGB32)
{
    QRandomGenerator random(1);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, random.generate() | 0xff808080U);
    }
    QBuffer buffer(&file);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        qFatal("no picture for the file store");
}

void filestore::fulfil(const filerequest& request, kelvor& controller) const
{
    if (request.function == "requestFileList") {
        emit controller.fileList(request.schid, request.channel, QString::fromLatin1(request.path),
                                 QString::fromLatin1("b.png"), static_cast<uint64>(file.size()), 0, FileListType_File);
        return;
    }
    if (request.function == "requestFile")
        write(request, file);
    emit controller.fileTransferStatus(request.transferID, ERROR_file_transfer_complete, QString(), 0, request.schid);
}

void filestore::breakOff(const filerequest& request, kelvor& controller) const
{
    if (request.function == "requestFileList")
        return;
    const QByteArray half = file.left(file.size() / 2);
    if (request.function == "requestFile")
        write(request, half);
    emit controller.fileTransferStatus(request.transferID, ERROR_file_transfer_interrupted, QString(),
                                       static_cast<uint64>(half.size()), request.schid);
}

void filestore::write(const filerequest& request, const QByteArray& content)
{
    const QByteArray name = request.path.mid(request.path.lastIndexOf('/') + 1);
    QFile local(QFile::decodeName(request.localDirectory + '/' + name));
    if (!local.open(QIODevice::WriteOnly) || local.write(content) != content.size())
        qFatal("no room for a file of the store");
}
