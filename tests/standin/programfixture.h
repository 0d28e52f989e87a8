#pragma once

#include "programrun.h"

#include <QCoreApplication>
#include <QObject>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// A server as a process of its own for each test, and a directory for its clients.
class programfixture : public QObject {
protected:
    void startServer()
    {
        static int number = 0;
        place = std::make_unique<QTemporaryDir>();
        serverName = QStringLiteral("kelvor-programs-%1-%2").arg(QCoreApplication::applicationPid()).arg(++number);
        server = std::make_unique<QProcess>();
        QVERIFY(start(server.get(), QStringLiteral("voiceserver"),
                      {QStringLiteral("--name"), serverName, QStringLiteral("--store"),
                       place->filePath(QStringLiteral("store")), QStringLiteral("--play")}));
        QTRY_VERIFY(server->canReadLine());
        QCOMPARE(server->readLine(), "ready " + serverName.toUtf8() + '\n');
    }
    void endServer()
    {
        server->closeWriteChannel();
        QVERIFY(server->state() == QProcess::NotRunning || server->waitForFinished());
        server.reset();
        place.reset();
    }

    QStringList clientArguments(const QStringList& more = QStringList()) const
    {
        return QStringList{QStringLiteral("--server"), serverName, QStringLiteral("--config"), place->path()} + more;
    }
    static bool start(QProcess* process, const QString& program, const QStringList& arguments)
    {
        process->start(QStringLiteral(PROGRAMS "/") + program, arguments);
        return process->waitForStarted();
    }

    std::unique_ptr<QTemporaryDir> place;
    std::unique_ptr<QProcess> server;
    QString serverName;
};
