#pragma once

#include "hostapi/hosttypes.h"

#include <QWidget>

/// A window that relays the client's file events, as the windows that open the file dialogs do.
class fileparent : public QWidget {
    Q_OBJECT

signals:
    void fileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size, uint64 datetime,
                  int type);
    void fileTransferStatus(anyID transferID, uint status, QString statusMessage, uint64 remotefileSize,
                            uint64 schandler);
};
