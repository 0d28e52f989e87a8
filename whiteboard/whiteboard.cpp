#include "whiteboard.h"

#include "canvas/paintscene.h"
#include "hostapi/hostcalls.h"
#include "prompts/prompts.h"
#include "protocol/kelvorprotocol.h"
#include "protocol/zeroended.h"
#include "serverfiles/filetexts.h"
#include "serverfiles/ts3downloaddialog.h"

#include <QListWidget>

namespace {

// The file goes into the user's directory under the name that the host of the session told. Anything but a picture
// would be sent to take the place of something else there; without a name there is nothing to take the place of.
bool mayBeFetched(const QString& remotePath) { return remotePath.isEmpty() || filetexts::isPicture(remotePath); }

} // namespace

whiteboard::whiteboard(const TS3Functions& functions, kelvorprotocol* protocol, uint64 schandler,
                       const QList<anyID>& participants, int width, int height, const QString& downloadDir,
                       QWidget* parent)
    : QDialog(parent)
    , ts3Functions(functions)
    , protocol(protocol)
    , schandler(schandler)
    , participants(participants)
    , currentColor(Qt::black)
    , downloadDir(downloadDir)
{
    setAttribute(Qt::WA_DeleteOnClose);
    buildWidgets(width, height);
    // Escape ends a dialog past closeEvent, and the connection would stay taken for ever.
    connect(this, &QDialog::finished, this, &whiteboard::leaveSession);
}

whiteboard::whiteboard(const TS3Functions& functions, kelvorprotocol* protocol, uint64 schandler,
                       const QList<anyID>& participants, int width, int height, const QString& localPath,
                       bool background, const QString& downloadDir, QWidget* parent)
    : whiteboard(functions, protocol, schandler, participants, width, height, downloadDir, parent)
{
    scene->setImage(localPath, background);
    fillParticipantList();
}

whiteboard::whiteboard(const TS3Functions& functions, kelvorprotocol* protocol, uint64 schandler,
                       const QList<anyID>& participants, int width, int height, uint64 channel,
                       const QString& remotePath, uint64 size, bool background, QObject* controller,
                       const QString& downloadDir, QWidget* parent)
    : whiteboard(functions, protocol, schandler, participants, width, height, downloadDir, parent)
{
    const QString localPath = channel ? fetchPicture(channel, remotePath, size, controller) : QString();
    if (left)
        return;
    scene->setImage(localPath, background);
    fillParticipantList();
    // The host's is the last row, and the host had the picture before anybody else.
    if (channel)
        setRowIcon(participantlist->count() - 1, true);
}

whiteboard::~whiteboard()
{
    // While the object is whole: the loss of the focus finishes an open text, which goes out before the farewell.
    hide();
    if (protocol && !participants.isEmpty())
        protocol->sendLogout(schandler, zeroEnded(participants).constData());
}

// The local path of the session's picture, empty when there is none to be had; everybody is told which. The window is
// not connected yet, so that what arrives in the nested event loops here is lost, but for the end of the controller.
QString whiteboard::fetchPicture(uint64 channel, const QString& remotePath, uint64 size, QObject* controller)
{
    connect(controller, SIGNAL(shuttingDown()), this, SLOT(onShuttingDown()));
    std::optional<QString> password = QString();
    if (hostcalls::channelHasPassword(ts3Functions, schandler, channel)) {
        const std::optional<QString> name = hostcalls::channelName(ts3Functions, schandler, channel);
        const QString label = name ? QString::fromLatin1("Password for %1:").arg(*name)
                                   : QString::fromLatin1("Password for channel with id %1").arg(channel);
        password = prompts::askText(this, QString::fromLatin1("Type in password"), label, QLineEdit::Password);
    }
    QString localPath;
    if (password && !left && mayBeFetched(remotePath)) {
        // Only here: without a picture an upload from this window gets no progress, as in all older versions.
        connect(controller, SIGNAL(fileTransferStatus(anyID, uint, QString, uint64, uint64)), this,
                SLOT(onFileTransferStatusEvent(anyID, uint, QString, uint64, uint64)));
        unsigned int error = ERROR_ok;
        localPath = download(ts3Functions, schandler, channel, *password, remotePath, size, &error, downloadDir, this);
    }
    if (left)
        return QString();
    disconnect(controller, SIGNAL(shuttingDown()), this, SLOT(onShuttingDown()));
    if (protocol && !participants.isEmpty())
        protocol->sendDownloadFinished(schandler, !localPath.isEmpty(), zeroEnded(participants).constData());
    return localPath;
}

// The controller ends while this window is still being made in one of its slots, so that it cannot delete it: farewell
// is said here, nothing of the controller is touched afterwards, and the nested loop above is left at once.
void whiteboard::onShuttingDown()
{
    left = true;
    if (protocol && !participants.isEmpty())
        protocol->sendLogout(schandler, zeroEnded(participants).constData());
    participants.clear();
    protocol.clear();
    const QList<QDialog*> prompts = findChildren<QDialog*>();
    for (QDialog* prompt : prompts)
        prompt->reject();
}

// A client whose nickname the voice client does not know gets no row, and the rows behind it stand one too high from
// then on. That is kept: all participants see it alike.
void whiteboard::fillParticipantList()
{
    participantlist->clear();
    for (const anyID client : qAsConst(participants)) {
        const std::optional<QString> nickname = hostcalls::clientText(ts3Functions, schandler, client, CLIENT_NICKNAME);
        if (!nickname)
            continue;
        auto* row = new QListWidgetItem(*nickname, participantlist);
        // The list may be too narrow for the whole name. Escaped, since a tool tip takes what looks like HTML for it.
        row->setToolTip(QString::fromLatin1("<qt>%1</qt>").arg(nickname->left(200).toHtmlEscaped()));
    }
}

// Whether the participant has the session's picture, for the eye and for those who have the list read to them.
void whiteboard::setRowIcon(int row, bool hasPicture)
{
    QListWidgetItem* item = participantlist->item(row);
    if (!item)
        return;
    item->setIcon(QIcon(QLatin1String(hasPicture ? ":/gfx/gfx/apply.png" : ":/gfx/gfx/cancel.png")));
    item->setData(Qt::AccessibleDescriptionRole,
                  QString::fromLatin1(hasPicture ? "has the picture" : "has no picture"));
}

// The number of a participant of this session, -1 for anybody else.
int whiteboard::indexOf(uint64 connection, anyID client) const
{
    return connection == schandler ? participants.indexOf(client) : -1;
}

void whiteboard::removeParticipant(uint64 connection, anyID client)
{
    const int index = indexOf(connection, client);
    if (index < 0)
        return;
    delete participantlist->takeItem(index);
    participants.removeAt(index);
}

void whiteboard::onLogout(uint64 schandler, anyID sender) { removeParticipant(schandler, sender); }

void whiteboard::onClientLeft(uint64 schandler, anyID clientid, uint64) { removeParticipant(schandler, clientid); }

// The session runs already, and nobody can join it any more.
void whiteboard::onAccept(uint64 schandler, anyID sender)
{
    if (schandler == this->schandler && protocol)
        protocol->sendTakeBack(schandler, sender);
}

void whiteboard::onDraw(uint64 schandler, char tool, QString color, qreal thick, QList<QPoint> data, anyID sender)
{
    if (indexOf(schandler, sender) < 0)
        return;
    QColor strokeColor;
    strokeColor.setNamedColor(color);
    scene->applyDraw(tool, strokeColor, thick, data);
}

void whiteboard::onExtendedDraw(uint64 schandler, char tool, QString data, anyID sender)
{
    if (indexOf(schandler, sender) >= 0)
        scene->applyExtendedDraw(tool, data);
}

void whiteboard::onDownloadFinished(uint64 schandler, bool result, anyID sender)
{
    const int index = indexOf(schandler, sender);
    if (index >= 0)
        setRowIcon(index, result);
}

void whiteboard::onFileTransferStatusEvent(anyID transferID, uint status, QString statusMessage, uint64 remotefileSize,
                                           uint64 schid)
{
    emit fileTransferStatus(transferID, status, statusMessage, remotefileSize, schid);
}

void whiteboard::onFileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size,
                            uint64 datetime, int type)
{
    emit fileList(schandler, channelID, path, name, size, datetime, type);
}

void whiteboard::sendPaintData(kelvortool thetool, QList<QPoint> points)
{
    if (protocol && !participants.isEmpty())
        protocol->sendDraw(schandler, static_cast<char>(thetool), currentColor.name(), thickness, points,
                           zeroEnded(participants).constData());
}

void whiteboard::sendExtendedPaintData(kelvortool thetool, QString data)
{
    if (protocol && !participants.isEmpty())
        protocol->sendExtendedDraw(schandler, static_cast<char>(thetool), data, zeroEnded(participants).constData());
}

// Not the base's: the window closes at once, without a question.
void whiteboard::closeEvent(QCloseEvent*) { leaveSession(); }

void whiteboard::leaveSession()
{
    if (left)
        return;
    left = true;
    emit closed(schandler);
}
