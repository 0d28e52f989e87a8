#pragma once

#include <QTimer>
#include <QTreeWidget>

class voiceconnection;

/// The tree of a server's channels with the clients in them. A double click on a channel asks to enter it.
class channelview : public QTreeWidget {
    Q_OBJECT

public:
    explicit channelview(voiceconnection* connection, QWidget* parent = nullptr);

signals:
    void channelChosen(quint64 channel);

private:
    void rebuild();
    QTreeWidgetItem* addChannel(quint64 id);
    void chooseItem(QTreeWidgetItem* item);

    voiceconnection* const connection;
    QTimer rebuildTimer; ///< many changes in one turn of the event loop are one rebuild
    QHash<quint64, QTreeWidgetItem*> rows;
};
