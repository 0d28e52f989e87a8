#pragma once

#include "standin/common/packet.h"
#include "transferfaults.h"

#include <QFile>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <memory>

/// How the server moves files: the size of a piece in bytes, and the pause after each in milliseconds.
struct transferpace {
    int pieceSize = 16 * 1024;
    int pause = 0;
};

/// The file transfers of one client, piece by piece with progress. An upload becomes the file of its name only when it
/// is complete. Owned by the client's session.
class transferdesk : public QObject {
    Q_OBJECT

public:
    /// incoming: the directory on the store's disk in which unfinished uploads lie.
    transferdesk(const QString& incoming, const transferpace& pace, const transferfaults& faults,
                 QObject* parent = nullptr);
    ~transferdesk() override;

    /// Both answer with transferStarted, after which progress follows by itself. file: what the store located.
    void beginUpload(quint16 transfer, const QString& file, quint64 size);
    void beginDownload(quint16 transfer, const QString& file);
    void refuse(quint16 transfer, unsigned int error);

    void receivePiece(quint16 transfer, const QByteArray& bytes);
    void halt(quint16 transfer);

    /// Both hold for transfers that begin later.
    void setPace(const transferpace& changed) { pace = changed; }
    void setFaults(const transferfaults& changed) { faults = changed; }

signals:
    void answer(const packet& message);

private:
    struct transfer {
        QFile disk;
        QString destination; ///< of an upload
        qint64 total = 0;
        qint64 done = 0;
        bool isUpload = false;
        bool resting = false; ///< an upload whose next piece is not asked for yet
    };

    bool isBroken(const transfer& one) const { return faults.breakAfter >= 0 && one.done >= faults.breakAfter; }
    void step();
    void stepUpload(quint16 id, transfer* one);
    void stepDownload(quint16 id, transfer* one);
    void end(quint16 id, unsigned int status);

    const QString incoming;
    transferpace pace;
    transferfaults faults;
    QHash<quint16, std::shared_ptr<transfer>> running;
    QTimer stepTimer;
};
