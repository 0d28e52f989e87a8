#pragma once

#include <QWidget>

class QLineEdit;
class QPlainTextEdit;
class voiceclient;
class voiceconnection;

/// What the main window shows of one server connection: the channels, the talk, and the line to type in, which knows
/// the plugin's keyword.
class connectiontab : public QWidget {
    Q_OBJECT

public:
    connectiontab(voiceclient* client, voiceconnection* connection, QWidget* parent = nullptr);

    voiceconnection* server() const { return connection; }
    void addLine(const QString& line);
    QStringList lines() const;
    /// Acts as if the line had been typed and Enter pressed.
    void submit(const QString& line);
    void enterChannel(quint64 channel);

private:
    void followConnection();
    QString nameOf(quint16 id) const;
    QString channelName(quint64 channel) const;

    voiceclient* const client;
    voiceconnection* const connection;
    QPlainTextEdit* const talk;
    QLineEdit* const input;
};
