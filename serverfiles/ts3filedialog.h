#pragma once

#include "hostapi/ts3functions.h"
#include "ui_ts3filedialog.h"

#include <QDialog>
#include <QIcon>

class mytableitem;
class QStatusBar;

/// Modal chooser of a place in the file store of a voice server: the channels at the top, in each of them directories
/// and pictures. It moves nothing itself. Its maker owns it for one use, connects a fileList signal to onFileList()
/// before running it, and holds it by heldwindow, since the parent may be destroyed while it is open.
class ts3filedialog : public QDialog, private Ui::ts3filedialog {
    Q_OBJECT

public:
    ts3filedialog(const TS3Functions& functions, uint64 schandler, QWidget* parent);

    /// Asks for an existing picture; size is in bytes. False when the user cancelled or the dialog was destroyed
    /// meanwhile; nothing is written to the arguments then.
    bool getOpenFile(uint64* channel, QString* password, QString* path, uint64* size);
    /// Asks for a directory (path) and a new name in it; otherwise as getOpenFile().
    bool getSaveFile(uint64* channel, QString* password, QString* path, QString* filename);

public slots:
    /// One entry of a directory; size is in bytes, datetime in seconds since 1970, type 0 is a directory.
    void onFileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size, uint64 datetime,
                    int type);

protected slots:
    void onUpButtonClicked();
    void onRefreshButtonClicked();
    void onTableDoubleClicked();
    void onTableSelectionChanged();
    void onFilenameEditChanged(QString newtext);
    void updateTable();

private:
    void connectWidgets();
    bool run();
    bool saving() const;
    void listChannels();
    void enterChannel(const mytableitem& row);
    void enterDirectory(const QString& name);
    QString pathOf(const QString& name) const;
    void setCell(int row, int column, QTableWidgetItem* item);
    int placeOf(const mytableitem& item) const;
    void sortChannelsBehind();
    void setAcceptable(bool acceptable);

    TS3Functions functions;
    uint64 schandler;
    uint64 channel = 0; ///< the channel that is browsed, 0 for the list of channels
    QString path; ///< the directory that is browsed, "/" at the root of a channel
    QString password; ///< of the channel that is browsed
    QStatusBar* statusbar;
    QIcon openChannelIcon;
    QIcon passwordedChannelIcon;
    QIcon directoryIcon;
    QIcon fileIcon;
};
