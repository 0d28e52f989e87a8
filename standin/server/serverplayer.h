#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class voiceserver;

/// Plays the server by lines, each answered by one line ("ok ..." or "error ..."): faults are switched while people
/// paint, and clients are cut off.
class serverplayer : public QObject {
    Q_OBJECT

public:
    explicit serverplayer(voiceserver* server);

    /// The answer to one line.
    QByteArray answer(const QByteArray& line);

signals:
    void quitWanted();

private:
    QString setNumber(const QString& what, const QString& value);
    QString setTransfers(const QString& fault);
    QString cut(const QString& nickname);
    QString status() const;

    voiceserver* const server;
};
