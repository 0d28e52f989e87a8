#pragma once

#include <QObject>

class pluginlibrary;
class voiceconnection;

/// Forwards what happens on one connection to the plugin's exported events. Owned by the connection.
class pluginevents : public QObject {
    Q_OBJECT

public:
    pluginevents(voiceconnection* connection, pluginlibrary* plugin);

private:
    void connectChannels();
    void connectClients();
    void connectFiles();
    void tellCommand(const QByteArray& sender, const QByteArray& text, quint16 invoker);
    void tellMove(quint16 client, quint64 before, quint64 channel, quint16 invoker);

    voiceconnection* const connection;
    pluginlibrary* const plugin;
};
