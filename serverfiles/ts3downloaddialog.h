#pragma once

#include "hostapi/ts3functions.h"
#include "ui_ts3downloaddialog.h"

#include <QDialog>
#include <QString>

/// Small modal window over the move of one file between the local disk and a channel's file store, which the client
/// carries out. upload() and download() make, run and destroy it.
class ts3downloaddialog : public QDialog, private Ui::ts3downloaddialog {
    Q_OBJECT

public:
    /// parent bears the signal fileTransferStatus(anyID,uint,QString,uint64,uint64); fileSize is in bytes.
    ts3downloaddialog(const TS3Functions& functions, uint64 schandler, uint64 fileSize, QWidget* parent);

    /// Starts the move and returns the client's error code; ERROR_ok means that it runs and exec() shall follow.
    unsigned int startUpload(uint64 channel, const QString& password, const QString& remotePath,
                             const QString& localDirectory);
    unsigned int startDownload(uint64 channel, const QString& password, const QString& remotePath,
                               const QString& localDirectory);

    /// The local path of the file, after a started download.
    QString localPath() const { return localFile; }

protected slots:
    void onFileTransferStatusEvent(anyID transferID, uint status, QString, uint64 remotefileSize, uint64 schandler);

private:
    TS3Functions functions;
    uint64 schandler;
    anyID transferID = 0;
    uint64 fileSize;
    QString localFile;
};

/// Uploads the file that is named by the last section of remotePath from localDirectory and waits in a nested event
/// loop. True on completion. *error is written only when the client refuses to start, so the caller sets it to 0
/// before. False as well when the parent was destroyed meanwhile; the caller looks whether it still lives itself.
bool upload(const TS3Functions& functions, uint64 schandler, uint64 channel, const QString& password,
            const QString& remotePath, const QString& localDirectory, uint64 fileSize, unsigned int* error,
            QWidget* parent);

/// Downloads remotePath into localDirectory; the local path of the file on completion, a null string otherwise. It
/// counts as failed, too, when the remote name leads out of localDirectory or names a directory. For the rest as
/// upload().
QString download(const TS3Functions& functions, uint64 schandler, uint64 channel, const QString& password,
                 const QString& remotePath, uint64 fileSize, unsigned int* error, const QString& localDirectory,
                 QWidget* parent);
