#pragma once

#include "protocol/kelvorprotocol.h"
#include "tests/support/fakehost.h"
#include "whiteboard/whiteboard.h"

#include <QImage>
#include <QPointer>
#include <QTemporaryDir>

class paintscene;

/// What a window knows of the controller: the sender of the client's events.
class fakecontroller : public QObject {
    Q_OBJECT

public:
    QList<uint64> closed; ///< connections whose window said closed, in order

public slots:
    void onWhiteboardClosed(uint64 schid) { closed.append(schid); }

signals:
    void clientLeft(uint64 schid, anyID client, uint64 channel);
    void fileList(uint64 schid, uint64 channel, QString path, QString name, uint64 size, uint64 datetime, int type);
    void fileTransferStatus(anyID transfer, uint status, QString message, uint64 remotefileSize, uint64 schid);
    void shuttingDown();
};

/// One client with the connections 1 and 2, on which the clients 2 "Anna", 3 "Bert" and 4 "Cleo" are seen, the open
/// channel 1 and the channel 7 "Vault" with a password. Windows are made and connected as the controller does it.
class sessionfixture {
public:
    sessionfixture();
    ~sessionfixture();

    whiteboard* openHost(const QList<anyID>& participants, const QString& localPath = QString(),
                         bool background = false, QSize size = {300, 200}, uint64 schid = 1);
    /// Without a picture.
    whiteboard* openGuest(const QList<anyID>& participants, uint64 schid = 1);
    /// With one in a channel; runs the nested loops of its constructor.
    whiteboard* openGuest(const QList<anyID>& participants, uint64 channel, const QString& remotePath,
                          bool background = false);

    /// A message of a peer, as the client delivers it. (An array, so that tool and kind bytes can be written as such.)
    void receive(uint64 schid, const QByteArray& message);
    /// Ends the last transfer well.
    void completeTransfer(uint64 schid = 1);
    /// Writes a picture of one colour and returns its path.
    QString pictureFile(const QString& name, QColor color, QSize size = {300, 200}) const;

    fakehost host;
    kelvorprotocol protocol;
    fakecontroller controller;
    QTemporaryDir directory;

private:
    void connectAll(whiteboard* window);

    QList<QPointer<whiteboard>> windows;
};

paintscene* canvasOf(whiteboard* window);
QRgb pixel(whiteboard* window, int x, int y);
