#pragma once

#include "standin/common/packet.h"

#include <QFile>
#include <QHash>
#include <QObject>

#include <memory>

class packetlink;

/// What a plugin asks to be moved.
struct transferrequest {
    quint64 channel = 0;
    QByteArray password;
    QByteArray remotePath;
    QString localDirectory;
    bool overwrite = false;
};

/// The file transfers of one server connection, from the client's side. A download becomes the file of its name only
/// when it is complete. Owned by the connection.
class filetransfers : public QObject {
    Q_OBJECT

public:
    explicit filetransfers(packetlink* link, QObject* parent = nullptr);
    ~filetransfers() override;

    /// Both wait for the server to agree, and give ERROR_ok and the transfer's id or an error.
    unsigned int startUpload(const transferrequest& request, quint16* id);
    unsigned int startDownload(const transferrequest& request, quint16* id);
    unsigned int halt(quint16 id);

    /// False for a packet that is about something else.
    bool receive(const packet& message);
    /// The link is gone: everything that runs breaks off.
    void breakAll();

signals:
    /// remaining: bytes that are still to move.
    void statusChanged(quint16 id, unsigned int status, quint64 remaining);

private:
    struct transfer {
        QFile disk;
        QString destination; ///< of a download
        quint64 announced = 0;
        quint64 done = 0;
        bool isUpload = false;
    };

    unsigned int agree(const packet& request, quint16 id, quint64* size);
    quint64 remaining(const transfer& one) const;
    void sendPiece(quint16 id, transfer* one, int size);
    void takePiece(quint16 id, transfer* one, const QByteArray& bytes);
    void end(quint16 id, unsigned int status);

    packetlink* const link;
    QHash<quint16, std::shared_ptr<transfer>> running;
};
