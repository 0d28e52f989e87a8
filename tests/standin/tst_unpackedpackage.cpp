#include "programfixture.h"

#include "standin/director/playedprocess.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

// The package as somebody puts it in by hand: unpacked into the empty configuration directory of a voice client, which
// finds it there without being told.
class tst_unpackedpackage : public programfixture {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { endServer(); }
    void aClientOfTodayLoadsItFromThere();
    void aClientOfOldSaysWhyItDoesNot();

private:
    playedprocess* startClient(const QString& name, const QString& config, const QStringList& more);
    static QJsonObject statusOf(playedprocess* client);
};

void tst_unpackedpackage::init()
{
    startServer();
    QCOMPARE(QProcess::execute(QStringLiteral("unzip"),
                               {QStringLiteral("-q"), QStringLiteral(KELVOR_PACKAGE), QStringLiteral("plugins/*"),
                                QStringLiteral("-d"), place->path()}),
             0);
}

playedprocess* tst_unpackedpackage::startClient(const QString& name, const QString& config, const QStringList& more)
{
    const QStringList arguments{QStringLiteral("--server"), serverName, QStringLiteral("--config"), config,
                                QStringLiteral("--name"),   name,       QStringLiteral("--play")};
    return new playedprocess(name, QStringLiteral(PROGRAMS "/voiceclient"), arguments + more, this);
}

QJsonObject tst_unpackedpackage::statusOf(playedprocess* client)
{
    const QString answer = client->ask(QStringLiteral("status")).value_or(QString());
    return QJsonDocument::fromJson(answer.toUtf8()).object();
}

void tst_unpackedpackage::aClientOfTodayLoadsItFromThere()
{
    const QTemporaryDir elsewhere;
    const QString library = place->filePath(QStringLiteral("plugins/kelvor_linux_amd64.so"));
    const std::unique_ptr<playedprocess> alice(
        startClient(QStringLiteral("Alice"), place->path(), {QStringLiteral("--interface"), QStringLiteral("26")}));
    const std::unique_ptr<playedprocess> bob(
        startClient(QStringLiteral("Bob"), elsewhere.path(), {QStringLiteral("--plugin"), library}));
    const QList<QPair<playedprocess*, const char*>> steps = {
        {alice.get(), "wait connected"},
        {bob.get(), "wait connected"},
        {alice.get(), "wait client Bob"},
        {alice.get(), "open menu"},
        {alice.get(), "wait row Bob in invitationdialog \"[Client has kelvor running]\""},
        {alice.get(), "row Bob in invitationdialog double"},
        {bob.get(), "answer Yes"},
        {alice.get(), "wait row Bob in invitationdialog \"Client accepted invite\""},
        {alice.get(), "click OK in invitationdialog"},
        {alice.get(), "wait window whiteboard"},
        {bob.get(), "wait window whiteboard"},
        {bob.get(), "wait row Alice in whiteboard"},
        {alice.get(), "tool pencil"},
        {alice.get(), "colour #ff0000"},
        {alice.get(), "thickness 9"},
        {alice.get(), "drag 20,20 100,20"},
        {bob.get(), "wait pixel 60,20 #ff0000"},
    };
    for (const auto& step : steps)
        QVERIFY2(step.first->ask(QLatin1String(step.second)), qPrintable(step.first->problem()));
    const QJsonObject status = statusOf(alice.get());
    QCOMPARE(status.value(QStringLiteral("library")).toString(), library);
    QCOMPARE(status.value(QStringLiteral("interface")).toInt(), 26);
    // Neither memory nor windows nor the library are left behind, and the settings lie where the client's own do.
    QCOMPARE(alice->end(), 0);
    QCOMPARE(bob->end(), 0);
    QVERIFY(QFileInfo(place->filePath(QStringLiteral("kelvor.conf"))).isFile());
}

void tst_unpackedpackage::aClientOfOldSaysWhyItDoesNot()
{
    const std::unique_ptr<playedprocess> alice(
        startClient(QStringLiteral("Alice"), place->path(), {QStringLiteral("--interface"), QStringLiteral("8")}));
    QVERIFY(alice->ask(QStringLiteral("wait connected")));
    QVERIFY2(alice->ask(QStringLiteral("wait line \"This client takes 8, the plugin has 26.\"")),
             qPrintable(alice->problem()));
    QCOMPARE(statusOf(alice.get()).value(QStringLiteral("plugin")).toBool(true), false);
    QCOMPARE(alice->end(), 0);
}

QTEST_GUILESS_MAIN(tst_unpackedpackage)
#include "tst_unpackedpackage.moc"
