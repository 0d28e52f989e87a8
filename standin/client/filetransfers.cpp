#include "filetransfers.h"

#include "hostapi/hosttypes.h"
#include "standin/common/packetlink.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace {

constexpr int agreementTime = 3000; // milliseconds

// The numbers run through all connections of the client: a transfer is known by its number alone.
quint16 nextTransferID()
{
    static quint16 last = 0;
    last = quint16(last + 1);
    return last == 0 ? ++last : last;
}

// The local file bears the last part of the remote path; empty when that is no name.
QString localFile(const transferrequest& request)
{
    const QString name = QString::fromUtf8(request.remotePath).section(QLatin1Char('/'), -1);
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return QString();
    return QDir(request.localDirectory).absoluteFilePath(name);
}

} // namespace

filetransfers::filetransfers(packetlink* link, QObject* parent)
    : QObject(parent)
    , link(link)
{
}

filetransfers::~filetransfers()
{
    for (const std::shared_ptr<transfer>& one : qAsConst(running)) {
        if (!one->isUpload)
            one->disk.remove();
    }
}

unsigned int filetransfers::startUpload(const transferrequest& request, quint16* id)
{
    const auto one = std::make_shared<transfer>();
    one->disk.setFileName(localFile(request));
    if (one->disk.fileName().isEmpty() || !one->disk.open(QIODevice::ReadOnly))
        return ERROR_file_not_found;
    one->isUpload = true;
    one->announced = quint64(one->disk.size());
    *id = nextTransferID();
    quint64 size = 0;
    const packet wish = makePacket(packetkind::upload, *id, request.channel, request.password, request.remotePath,
                                   one->announced, request.overwrite);
    const unsigned int error = agree(wish, *id, &size);
    if (error == ERROR_ok)
        running.insert(*id, one);
    return error;
}

unsigned int filetransfers::startDownload(const transferrequest& request, quint16* id)
{
    const auto one = std::make_shared<transfer>();
    one->destination = localFile(request);
    if (one->destination.isEmpty())
        return ERROR_file_invalid_name;
    if (!request.overwrite && QFileInfo::exists(one->destination))
        return ERROR_file_already_exists;
    one->disk.setFileName(one->destination + QStringLiteral(".part"));
    if (!one->disk.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return ERROR_file_invalid_name;
    *id = nextTransferID();
    const packet wish = makePacket(packetkind::download, *id, request.channel, request.password, request.remotePath);
    const unsigned int error = agree(wish, *id, &one->announced);
    if (error == ERROR_ok)
        running.insert(*id, one);
    else
        one->disk.remove();
    return error;
}

unsigned int filetransfers::halt(quint16 id)
{
    if (!running.contains(id))
        return ERROR_parameter_invalid;
    link->send(makePacket(packetkind::haltTransfer, id));
    end(id, ERROR_file_transfer_canceled);
    return ERROR_ok;
}

bool filetransfers::receive(const packet& message)
{
    quint16 id = 0;
    quint64 received = 0;
    quint32 number = 0;
    QByteArray bytes;
    const bool about = (message.kind == packetkind::uploadProgress && readPacket(message, id, received, number))
        || (message.kind == packetkind::downloadPiece && readPacket(message, id, bytes))
        || (message.kind == packetkind::transferEnded && readPacket(message, id, number));
    if (!about)
        return false;
    const std::shared_ptr<transfer> one = running.value(id);
    if (!one)
        return true;
    if (message.kind == packetkind::transferEnded)
        end(id, number);
    else if (message.kind == packetkind::downloadPiece)
        takePiece(id, one.get(), bytes);
    else
        sendPiece(id, one.get(), int(number));
    return true;
}

void filetransfers::breakAll()
{
    const QList<quint16> open = running.keys();
    for (const quint16 id : open)
        end(id, ERROR_file_transfer_interrupted);
}

unsigned int filetransfers::agree(const packet& request, quint16 id, quint64* size)
{
    link->send(request);
    quint32 error = ERROR_ok;
    const auto isAnswer = [&](const packet& message) {
        quint16 about = 0;
        return message.kind == packetkind::transferStarted && readPacket(message, about, error, *size) && about == id;
    };
    if (!link->waitFor(isAnswer, agreementTime))
        return ERROR_connection_lost;
    return error;
}

// A transfer longer than it was announced has nothing left to move, rather than a number that wraps round.
quint64 filetransfers::remaining(const transfer& one) const
{
    return one.announced > one.done ? one.announced - one.done : 0;
}

void filetransfers::sendPiece(quint16 id, transfer* one, int size)
{
    const QByteArray bytes = one->disk.read(size);
    if (bytes.isEmpty()) {
        // The file became shorter while it was sent.
        link->send(makePacket(packetkind::haltTransfer, id));
        end(id, ERROR_file_transfer_interrupted);
        return;
    }
    one->done += quint64(bytes.size());
    link->send(makePacket(packetkind::uploadPiece, id, bytes));
    emit statusChanged(id, ERROR_ok, remaining(*one));
}

void filetransfers::takePiece(quint16 id, transfer* one, const QByteArray& bytes)
{
    one->disk.write(bytes);
    one->done += quint64(bytes.size());
    emit statusChanged(id, ERROR_ok, remaining(*one));
}

void filetransfers::end(quint16 id, unsigned int status)
{
    const std::shared_ptr<transfer> one = running.take(id);
    unsigned int result = status;
    if (!one->isUpload) {
        const bool written = one->disk.flush() && one->disk.error() == QFileDevice::NoError;
        one->disk.close();
        const bool placed = status == ERROR_file_transfer_complete && written
            && std::rename(QFile::encodeName(one->disk.fileName()).constData(),
                           QFile::encodeName(one->destination).constData())
                == 0;
        if (!placed)
            one->disk.remove();
        if (!placed && status == ERROR_file_transfer_complete)
            result = ERROR_file_transfer_interrupted;
    }
    emit statusChanged(id, result, result == ERROR_file_transfer_complete ? 0 : remaining(*one));
}
