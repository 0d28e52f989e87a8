#include "sessionfixture.h"

#include "canvas/paintscene.h"

sessionfixture::sessionfixture()
    : protocol(host.table())
{
    for (const uint64 schid : {1, 2}) {
        fakeserver& server = host.addServer(schid);
        server.addClient(2, "Anna");
        server.addClient(3, "Bert");
        server.addClient(4, "Cleo");
        server.addChannel(7, "Vault", 0, true);
    }
    protocol.setPluginCommandID("kelvor");
}

sessionfixture::~sessionfixture() { qDeleteAll(windows); }

whiteboard* sessionfixture::openHost(const QList<anyID>& participants, const QString& localPath, bool background,
                                     QSize size, uint64 schid)
{
    auto* window = new whiteboard(host.table(), &protocol, schid, participants, size.width(), size.height(), localPath,
                                  background, directory.path(), nullptr);
    connectAll(window);
    QObject::connect(&protocol, &kelvorprotocol::accept, window, &whiteboard::onAccept);
    QObject::connect(&controller, &fakecontroller::fileTransferStatus, window, &whiteboard::onFileTransferStatusEvent);
    window->show();
    return window;
}

whiteboard* sessionfixture::openGuest(const QList<anyID>& participants, uint64 schid)
{
    auto* window = new whiteboard(host.table(), &protocol, schid, participants, 300, 200, 0, QString(), 0, false,
                                  &controller, directory.path(), nullptr);
    connectAll(window);
    window->show();
    return window;
}

whiteboard* sessionfixture::openGuest(const QList<anyID>& participants, uint64 channel, const QString& remotePath,
                                      bool background)
{
    auto* window = new whiteboard(host.table(), &protocol, 1, participants, 300, 200, channel, remotePath, 1000,
                                  background, &controller, directory.path(), nullptr);
    connectAll(window);
    window->show();
    return window;
}

void sessionfixture::connectAll(whiteboard* window)
{
    windows.append(window);
    QObject::connect(&protocol, &kelvorprotocol::draw, window, &whiteboard::onDraw);
    QObject::connect(&protocol, &kelvorprotocol::extendedDraw, window, &whiteboard::onExtendedDraw);
    QObject::connect(&protocol, &kelvorprotocol::logout, window, &whiteboard::onLogout);
    QObject::connect(&protocol, &kelvorprotocol::downloadFinished, window, &whiteboard::onDownloadFinished);
    QObject::connect(window, &whiteboard::closed, &controller, &fakecontroller::onWhiteboardClosed);
    QObject::connect(&controller, &fakecontroller::clientLeft, window, &whiteboard::onClientLeft);
    QObject::connect(&controller, &fakecontroller::fileList, window, &whiteboard::onFileList);
}

void sessionfixture::receive(uint64 schid, const QByteArray& message) { protocol.dispatch(schid, message.constData()); }

void sessionfixture::completeTransfer(uint64 schid)
{
    emit controller.fileTransferStatus(host.requests.last().transferID, ERROR_file_transfer_complete, QString(), 0,
                                       schid);
}

QString sessionfixture::pictureFile(const QString& name, QColor color, QSize size) const
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    const QString path = directory.filePath(name);
    if (!image.save(path, "PNG"))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

paintscene* canvasOf(whiteboard* window) { return window->findChild<paintscene*>(); }

QRgb pixel(whiteboard* window, int x, int y) { return canvasOf(window)->picture().pixel(x, y); }
