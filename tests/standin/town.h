#pragma once

#include "standin/client/voiceconnection.h"
#include "standin/server/voiceserver.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// A voice server in the test's own process, with the default channels, under a name of its own.
class town {
public:
    explicit town(serveroptions options = serveroptions())
    {
        static int number = 0;
        options.name = QStringLiteral("kelvor-test-%1-%2").arg(QCoreApplication::applicationPid()).arg(++number);
        options.title = QStringLiteral("Test Town");
        server = std::make_unique<voiceserver>(options, store.filePath(QStringLiteral("store")));
        QString problem;
        listening = server->listen(&problem);
        addDefaultChannels(server.get());
    }

    QString name() const { return server->settings().name; }
    quint64 channel(const char* named) const { return server->voices().channelNamed(QLatin1String(named)); }

    /// A client that has been let in; null when that does not come to pass.
    std::unique_ptr<voiceconnection> enter(const QString& nickname, const QString& where = QString()) const
    {
        static quint64 lastID = 0;
        auto client = std::make_unique<voiceconnection>(++lastID, name(),
                                                        voiceidentity{nickname, QStringLiteral("Linux"), where, false});
        bool turnedAway = false;
        const auto hearing =
            QObject::connect(client.get(), &voiceconnection::refused, client.get(), [&] { turnedAway = true; });
        QString problem;
        if (!client->open(&problem) || !QTest::qWaitFor([&] { return client->isEstablished() || turnedAway; }))
            return nullptr;
        QObject::disconnect(hearing);
        return turnedAway ? nullptr : std::move(client);
    }

    const QTemporaryDir store;
    std::unique_ptr<voiceserver> server;
    bool listening = false;
};
