#pragma once

#include "standin/server/voiceserver.h"

#include <QCoreApplication>
#include <QHash>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>

/// A voice server in a thread of its own, for clients that wait for its answer without an event loop.
class townthread : public QThread {
public:
    explicit townthread(const serveroptions& wanted)
        : options(wanted)
    {
        static int number = 0;
        options.name = QStringLiteral("kelvor-thread-%1-%2").arg(QCoreApplication::applicationPid()).arg(++number);
        start();
        ready.acquire();
    }
    ~townthread() override
    {
        quit();
        wait();
    }

    QString name() const { return options.name; }
    quint64 channel(const char* named) const { return channels.value(QLatin1String(named)); }
    /// A file in the store of a channel.
    QString fileOf(const char* named, const QString& path) const
    {
        return directories.value(QLatin1String(named)) + path;
    }

protected:
    void run() override
    {
        voiceserver server(options, store.path());
        QString problem;
        if (!server.listen(&problem))
            qWarning("%s", qPrintable(problem));
        addDefaultChannels(&server);
        const QVector<quint64> all = server.voices().branch(0);
        for (const quint64 id : all) {
            channels.insert(server.voices().channel(id).name, id);
            directories.insert(server.voices().channel(id).name, server.files().channelDirectory(id));
        }
        ready.release();
        exec();
    }

private:
    serveroptions options;
    const QTemporaryDir store;
    QSemaphore ready;
    QHash<QString, quint64> channels;
    QHash<QString, QString> directories;
};
