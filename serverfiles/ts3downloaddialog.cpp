#include "ts3downloaddialog.h"

#include "prompts/heldwindow.h"

#include <QDir>
#include <QFileInfo>

namespace {

// The remote name comes from strangers: ".." or an empty one would make the plugin read something that was never
// downloaded. What the client was asked for stays as it was.
bool isFileIn(const QString& localFile, const QString& localDirectory)
{
    const QFileInfo file(QDir::cleanPath(localFile));
    return file.absolutePath() == QDir::cleanPath(QDir(localDirectory).absolutePath()) && !file.isDir();
}

// Runs a dialog whose start gave result. False when it was refused, closed or destroyed before the end.
bool runStarted(const heldwindow<ts3downloaddialog>& dialog, unsigned int result, unsigned int* error)
{
    if (result != ERROR_ok) {
        *error = result;
        return false;
    }
    return dialog->exec() == QDialog::Accepted && dialog;
}

} // namespace

ts3downloaddialog::ts3downloaddialog(const TS3Functions& functions, uint64 schandler, uint64 fileSize, QWidget* parent)
    : QDialog(parent)
    , functions(functions)
    , schandler(schandler)
    , fileSize(fileSize)
{
    setupUi(this);
    // The parent is a window of another folder, known only by this signal.
    connect(parent, SIGNAL(fileTransferStatus(anyID, uint, QString, uint64, uint64)), this,
            SLOT(onFileTransferStatusEvent(anyID, uint, QString, uint64, uint64)));
}

unsigned int ts3downloaddialog::startUpload(uint64 channel, const QString& password, const QString& remotePath,
                                            const QString& localDirectory)
{
    // Single bytes, not UTF-8, as between participants: a name outside Latin-1 does not survive.
    return functions.sendFile(schandler, channel, password.toLatin1().constData(), remotePath.toLatin1().constData(), 1,
                              0, localDirectory.toLatin1().constData(), &transferID, nullptr);
}

unsigned int ts3downloaddialog::startDownload(uint64 channel, const QString& password, const QString& remotePath,
                                              const QString& localDirectory)
{
    // The remote path is tested for its end and not the directory, which may thus get a second separator: the path
    // stays the same file.
    const bool endsInSeparator = remotePath.endsWith(QDir::separator());
    const QString separator = endsInSeparator ? QString() : QString(QDir::separator());
    localFile = localDirectory + separator + remotePath.section(QLatin1Char('/'), -1);
    return functions.requestFile(schandler, channel, password.toLatin1().constData(), remotePath.toLatin1().constData(),
                                 1, 0, localDirectory.toLatin1().constData(), &transferID, nullptr);
}

void ts3downloaddialog::onFileTransferStatusEvent(anyID transferID, uint status, QString, uint64 remotefileSize,
                                                  uint64 schandler)
{
    if (schandler != this->schandler || transferID != this->transferID)
        return;
    // In whole numbers and in this order: the bar stands at 0 until the last byte. More to move than the whole file
    // wraps around to a value outside the bar's range, which leaves the bar as it is.
    const uint64 percent = fileSize == 0 ? 0 : (fileSize - remotefileSize) / fileSize * 100;
    if (percent <= static_cast<uint64>(progressbar->maximum()))
        progressbar->setValue(static_cast<int>(percent));
    if (status == ERROR_file_transfer_complete)
        accept();
}

bool upload(const TS3Functions& functions, uint64 schandler, uint64 channel, const QString& password,
            const QString& remotePath, const QString& localDirectory, uint64 fileSize, unsigned int* error,
            QWidget* parent)
{
    const heldwindow<ts3downloaddialog> dialog(new ts3downloaddialog(functions, schandler, fileSize, parent));
    return runStarted(dialog, dialog->startUpload(channel, password, remotePath, localDirectory), error);
}

QString download(const TS3Functions& functions, uint64 schandler, uint64 channel, const QString& password,
                 const QString& remotePath, uint64 fileSize, unsigned int* error, const QString& localDirectory,
                 QWidget* parent)
{
    const heldwindow<ts3downloaddialog> dialog(new ts3downloaddialog(functions, schandler, fileSize, parent));
    const unsigned int result = dialog->startDownload(channel, password, remotePath, localDirectory);
    if (!runStarted(dialog, result, error) || !isFileIn(dialog->localPath(), localDirectory))
        return QString();
    return dialog->localPath();
}
