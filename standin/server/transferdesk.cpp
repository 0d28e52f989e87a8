#include "transferdesk.h"

#include "hostapi/hosttypes.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>
#include <cstdio>

transferdesk::transferdesk(const QString& incoming, const transferpace& pace, const transferfaults& faults,
                           QObject* parent)
    : QObject(parent)
    , incoming(incoming)
    , pace(pace)
    , faults(faults)
{
    connect(&stepTimer, &QTimer::timeout, this, &transferdesk::step);
}

transferdesk::~transferdesk()
{
    const QList<quint16> open = running.keys();
    for (const quint16 id : open)
        halt(id);
}

void transferdesk::beginUpload(quint16 transferID, const QString& file, quint64 size)
{
    QTemporaryFile unfinished(incoming + QStringLiteral("/upload"));
    unfinished.setAutoRemove(false);
    if (faults.refusal != 0 || running.contains(transferID) || !QDir().mkpath(incoming) || !unfinished.open()) {
        refuse(transferID, faults.refusal != 0 ? faults.refusal : ERROR_undefined);
        return;
    }
    const auto one = std::make_shared<transfer>();
    one->disk.setFileName(unfinished.fileName());
    one->disk.open(QIODevice::WriteOnly);
    one->destination = file;
    one->total = qint64(size);
    one->isUpload = true;
    one->resting = true;
    running.insert(transferID, one);
    emit answer(makePacket(packetkind::transferStarted, transferID, quint32(ERROR_ok), size));
    stepTimer.start(pace.pause);
}

void transferdesk::beginDownload(quint16 transferID, const QString& file)
{
    const auto one = std::make_shared<transfer>();
    one->disk.setFileName(file);
    if (faults.refusal != 0 || running.contains(transferID) || !one->disk.open(QIODevice::ReadOnly)) {
        refuse(transferID, faults.refusal != 0 ? faults.refusal : ERROR_file_not_found);
        return;
    }
    const auto announced = quint64(one->disk.size());
    one->total = qMax<qint64>(0, one->disk.size() + faults.sizeOff);
    running.insert(transferID, one);
    emit answer(makePacket(packetkind::transferStarted, transferID, quint32(ERROR_ok), announced));
    stepTimer.start(pace.pause);
}

void transferdesk::refuse(quint16 transferID, unsigned int error)
{
    emit answer(makePacket(packetkind::transferStarted, transferID, quint32(error), quint64(0)));
}

void transferdesk::receivePiece(quint16 transferID, const QByteArray& bytes)
{
    const std::shared_ptr<transfer> one = running.value(transferID);
    if (!one || !one->isUpload || one->resting)
        return;
    one->disk.write(bytes);
    one->done += bytes.size();
    one->resting = true;
    if (!stepTimer.isActive())
        stepTimer.start(pace.pause);
}

void transferdesk::halt(quint16 transferID)
{
    const std::shared_ptr<transfer> one = running.take(transferID);
    if (one && one->isUpload)
        one->disk.remove();
}

// Every pause each running transfer moves one piece.
void transferdesk::step()
{
    const QHash<quint16, std::shared_ptr<transfer>> now = running;
    for (auto entry = now.begin(); entry != now.end(); ++entry) {
        if (isBroken(**entry))
            end(entry.key(), ERROR_file_transfer_interrupted);
        else if ((*entry)->isUpload)
            stepUpload(entry.key(), entry->get());
        else
            stepDownload(entry.key(), entry->get());
    }
    // Uploads that wait for their client need no timer; the next piece starts it again.
    const bool anyToMove =
        std::any_of(running.cbegin(), running.cend(), [](const auto& one) { return !one->isUpload || one->resting; });
    if (!anyToMove)
        stepTimer.stop();
}

void transferdesk::stepUpload(quint16 id, transfer* one)
{
    if (!one->resting)
        return;
    if (one->done < one->total) {
        one->resting = false;
        emit answer(makePacket(packetkind::uploadProgress, id, quint64(one->done), quint32(pace.pieceSize)));
        return;
    }
    one->disk.close();
    // The file of that name is replaced in one step: a reader finds the old one or the new one.
    const bool placed = one->disk.error() == QFileDevice::NoError && one->done == one->total
        && std::rename(QFile::encodeName(one->disk.fileName()).constData(),
                       QFile::encodeName(one->destination).constData())
            == 0;
    end(id, placed ? ERROR_file_transfer_complete : ERROR_file_transfer_interrupted);
}

void transferdesk::stepDownload(quint16 id, transfer* one)
{
    const qint64 wanted = qMin<qint64>(pace.pieceSize, one->total - one->done);
    if (wanted <= 0) {
        end(id, ERROR_file_transfer_complete);
        return;
    }
    QByteArray bytes = one->disk.read(wanted);
    // A download that is to be longer than its listing goes on with zeros.
    bytes.append(QByteArray(int(wanted) - bytes.size(), '\0'));
    one->done += bytes.size();
    emit answer(makePacket(packetkind::downloadPiece, id, bytes));
}

void transferdesk::end(quint16 id, unsigned int status)
{
    halt(id);
    emit answer(makePacket(packetkind::transferEnded, id, quint32(status)));
}
