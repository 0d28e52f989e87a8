#include "town.h"

#include "hostapi/hosttypes.h"
#include "standin/server/clientsession.h"

#include <QSignalSpy>
#include <QTest>

// Clients and a server in one process, over the local socket that they use as processes.
class tst_voiceserver : public QObject {
    Q_OBJECT

private slots:
    void aNewClientIsToldChannelsAndClients();
    void anUnknownFirstChannelMeansTheServersFirst();
    void aNameInUseIsRefused();
    void aNameThatWasLeftBehindIsTaken();
    void aNicknameIsTakenOnce();
    void whoDoesNotSayHelloIsTurnedAway();
    void commandsArriveInTheOrderOfSending();
    void aCommandReachesTheListedClientsAloneAndTheSenderToo();
    void theServerTellsWhoSentACommand();
    void controlBytesOfACommandArriveAsTheyWere();
    void aCommandMayBe8192BytesLong();
    void theFloodRuleDropsAndThenShutsOut();
    void everybodyHearsOfComingMovingAndLeaving();
    void aCutLinkIsATimeOut();
    void movingSomebodyElseNamesTheMover();
    void aChannelWithAPasswordLetsInWhoKnowsIt();
    void channelsAreMadeMovedAndRemoved();
    void clientsOfARemovedChannelGoToTheFirst();
    void theFirstChannelStays();
    void awayIsToldToAll();
    void chatStaysInItsChannel();
    void aLostServerIsToldToItsClients();
    void idsAreNotGivenTwiceInARow();

private:
    QVector<QByteArray> texts(const QSignalSpy& commands) const;
};

QVector<QByteArray> tst_voiceserver::texts(const QSignalSpy& commands) const
{
    QVector<QByteArray> found;
    for (const QList<QVariant>& arguments : commands)
        found.append(arguments.at(1).toByteArray());
    return found;
}

void tst_voiceserver::aNewClientIsToldChannelsAndClients()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"), QStringLiteral("Sketches"));
    QVERIFY(alice && bob);
    QCOMPARE(bob->title(), QStringLiteral("Test Town"));
    QCOMPARE(bob->voices().branch(0), place.server->voices().branch(0));
    QCOMPARE(bob->voices().clientIDs(), (QList<quint16>{alice->ownID(), bob->ownID()}));
    QCOMPARE(bob->ownChannel(), place.channel("Sketches"));
    QVERIFY(bob->voices().channel(place.channel("Secret Garden")).hasPassword);
    QTRY_VERIFY(alice->voices().clientNamed(QStringLiteral("Bob")) != 0);
}

void tst_voiceserver::anUnknownFirstChannelMeansTheServersFirst()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"), QStringLiteral("Atlantis"));
    QVERIFY(alice);
    QCOMPARE(alice->ownChannel(), place.channel("Town Square"));
}

void tst_voiceserver::aNameInUseIsRefused()
{
    const town place;
    QVERIFY(place.listening);
    voiceserver second(place.server->settings(), place.store.path());
    QString problem;
    QVERIFY(!second.listen(&problem));
    QVERIFY2(problem.contains(place.name()) && problem.contains(QStringLiteral("in use")), qPrintable(problem));
    QVERIFY(place.enter(QStringLiteral("Alice")));
}

void tst_voiceserver::aNameThatWasLeftBehindIsTaken()
{
    serveroptions options;
    options.name = QStringLiteral("kelvor-stale-%1").arg(QCoreApplication::applicationPid());
    QFile leftBehind(QDir::tempPath() + QLatin1Char('/') + options.name);
    QVERIFY(leftBehind.open(QIODevice::WriteOnly));
    leftBehind.close();
    const QTemporaryDir store;
    voiceserver server(options, store.path());
    QString problem;
    QVERIFY2(server.listen(&problem), qPrintable(problem));
}

void tst_voiceserver::aNicknameIsTakenOnce()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    voiceconnection second(50, place.name(), {QStringLiteral("Alice"), QString(), QString(), false});
    QSignalSpy refused(&second, &voiceconnection::refused);
    QString problem;
    QVERIFY(second.open(&problem));
    QTRY_COMPARE(refused.count(), 1);
    QVERIFY(refused.first().first().toString().contains(QStringLiteral("Alice")));
    QVERIFY(alice->isEstablished());
}

void tst_voiceserver::whoDoesNotSayHelloIsTurnedAway()
{
    const town place;
    QLocalSocket stranger;
    stranger.connectToServer(place.name());
    QVERIFY(stranger.waitForConnected());
    stranger.write(QByteArray("\0\0\0\1\x07x", 6));
    QTRY_COMPARE(stranger.state(), QLocalSocket::UnconnectedState);
    QVERIFY(place.enter(QStringLiteral("Alice")));
}

void tst_voiceserver::commandsArriveInTheOrderOfSending()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    QVERIFY(alice && bob);
    QSignalSpy commands(bob.get(), &voiceconnection::commandReceived);
    QVector<QByteArray> sent;
    for (int i = 0; i < 300; ++i) {
        sent.append(QByteArray::number(i));
        alice->sendCommand("kelvor", sent.last(), {bob->ownID()});
    }
    QTRY_COMPARE(commands.count(), sent.size());
    QCOMPARE(texts(commands), sent);
}

void tst_voiceserver::aCommandReachesTheListedClientsAloneAndTheSenderToo()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    const auto carla = place.enter(QStringLiteral("Carla"));
    QVERIFY(alice && bob && carla);
    QSignalSpy toAlice(alice.get(), &voiceconnection::commandReceived);
    QSignalSpy toBob(bob.get(), &voiceconnection::commandReceived);
    QSignalSpy toCarla(carla.get(), &voiceconnection::commandReceived);
    alice->sendCommand("kelvor", "first", {alice->ownID(), carla->ownID(), 999});
    alice->sendCommand("kelvor", "second", {bob->ownID()});
    QTRY_COMPARE(toBob.count(), 1);
    QTRY_COMPARE(toCarla.count(), 1);
    QTRY_COMPARE(toAlice.count(), 1);
    QCOMPARE(texts(toBob), QVector<QByteArray>{"second"});
    QCOMPARE(texts(toCarla), QVector<QByteArray>{"first"});
}

void tst_voiceserver::theServerTellsWhoSentACommand()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    QVERIFY(alice && bob);
    QSignalSpy commands(bob.get(), &voiceconnection::commandReceived);
    alice->sendCommand("kelvor", "x", {bob->ownID()});
    QTRY_COMPARE(commands.count(), 1);
    QCOMPARE(commands.first().at(0).toByteArray(), QByteArray("kelvor"));
    QCOMPARE(commands.first().at(2).value<quint16>(), alice->ownID());
}

void tst_voiceserver::controlBytesOfACommandArriveAsTheyWere()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice);
    QByteArray text;
    for (int byte = 1; byte < 256; ++byte)
        text.append(char(byte));
    QSignalSpy commands(alice.get(), &voiceconnection::commandReceived);
    alice->sendCommand("kelvor", text, {alice->ownID()});
    QTRY_COMPARE(commands.count(), 1);
    QCOMPARE(texts(commands).first(), text);
}

void tst_voiceserver::aCommandMayBe8192BytesLong()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice);
    QSignalSpy commands(alice.get(), &voiceconnection::commandReceived);
    QSignalSpy notices(alice.get(), &voiceconnection::noticed);
    alice->sendCommand("kelvor", QByteArray(8193, 'x'), {alice->ownID()});
    alice->sendCommand("kelvor", QByteArray(8192, 'x'), {alice->ownID()});
    QTRY_COMPARE(commands.count(), 1);
    QCOMPARE(texts(commands).first().size(), 8192);
    QCOMPARE(notices.count(), 1);
    QCOMPARE(place.server->droppedCount(), quint64(1));
}

void tst_voiceserver::theFloodRuleDropsAndThenShutsOut()
{
    serveroptions options;
    options.flood = true;
    const town place(options);
    auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    QVERIFY(alice && bob);
    QSignalSpy commands(bob.get(), &voiceconnection::commandReceived);
    QSignalSpy refused(alice.get(), &voiceconnection::refused);
    for (int i = 0; i < 400; ++i)
        alice->sendCommand("kelvor", "x", {bob->ownID()});
    QTRY_COMPARE(refused.count(), 1);
    QTRY_VERIFY(commands.count() >= 30);
    QVERIFY2(commands.count() < 60, QByteArray::number(commands.count()));
    alice.reset();
    QVERIFY2(!place.enter(QStringLiteral("Alice")), "the nickname stays shut out");
}

void tst_voiceserver::everybodyHearsOfComingMovingAndLeaving()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice);
    QSignalSpy entered(alice.get(), &voiceconnection::clientEntered);
    QSignalSpy moved(alice.get(), &voiceconnection::clientMoved);
    QSignalSpy left(alice.get(), &voiceconnection::clientLeft);
    auto bob = place.enter(QStringLiteral("Bob"));
    QVERIFY(bob);
    const quint16 id = bob->ownID();
    QTRY_COMPARE(entered.count(), 1);
    QCOMPARE(entered.first(),
             (QList<QVariant>{QVariant::fromValue(id), QVariant::fromValue(place.channel("Town Square"))}));
    bob->moveClient(id, place.channel("Posters"), QString());
    QTRY_COMPARE(moved.count(), 1);
    QCOMPARE(moved.first().at(2).toULongLong(), place.channel("Posters"));
    QCOMPARE(moved.first().at(3).value<quint16>(), id);
    bob.reset();
    QTRY_COMPARE(left.count(), 1);
    QCOMPARE(left.first().at(1).toULongLong(), place.channel("Posters"));
    QCOMPARE(left.first().at(2).toBool(), false);
    QVERIFY(!alice->voices().hasClient(id));
}

void tst_voiceserver::aCutLinkIsATimeOut()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    QVERIFY(alice && bob);
    QSignalSpy left(alice.get(), &voiceconnection::clientLeft);
    QSignalSpy lost(bob.get(), &voiceconnection::lost);
    place.server->sessionOf(bob->ownID())->cut();
    QTRY_COMPARE(left.count(), 1);
    QCOMPARE(left.first().at(2).toBool(), true);
    QTRY_COMPARE(lost.count(), 1);
}

void tst_voiceserver::movingSomebodyElseNamesTheMover()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    QVERIFY(alice && bob);
    QSignalSpy moved(bob.get(), &voiceconnection::clientMoved);
    alice->moveClient(bob->ownID(), place.channel("Posters"), QString());
    QTRY_COMPARE(moved.count(), 1);
    QCOMPARE(moved.first().at(0).value<quint16>(), bob->ownID());
    QCOMPARE(moved.first().at(3).value<quint16>(), alice->ownID());
}

void tst_voiceserver::aChannelWithAPasswordLetsInWhoKnowsIt()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice);
    QSignalSpy notices(alice.get(), &voiceconnection::noticed);
    const quint64 garden = place.channel("Secret Garden");
    alice->moveClient(alice->ownID(), garden, QStringLiteral("thistle"));
    QTRY_COMPARE(notices.count(), 1);
    QVERIFY(alice->ownChannel() != garden);
    alice->moveClient(alice->ownID(), garden, QStringLiteral("rose"));
    QTRY_COMPARE(alice->ownChannel(), garden);
}

void tst_voiceserver::channelsAreMadeMovedAndRemoved()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice);
    QSignalSpy added(alice.get(), &voiceconnection::channelAdded);
    QSignalSpy movedTo(alice.get(), &voiceconnection::channelMoved);
    QSignalSpy removed(alice.get(), &voiceconnection::channelRemoved);
    alice->createChannel(place.channel("Design Team"), QStringLiteral("Murals"), QString());
    QTRY_COMPARE(added.count(), 1);
    const quint64 murals = added.first().at(0).toULongLong();
    QCOMPARE(added.first().at(1).toULongLong(), place.channel("Design Team"));
    QCOMPARE(added.first().at(2).value<quint16>(), alice->ownID());
    QCOMPARE(added.first().at(3).toBool(), false);
    alice->moveChannel(murals, 0);
    QTRY_COMPARE(movedTo.count(), 1);
    QCOMPARE(alice->voices().channel(murals).parent, quint64(0));
    const QVector<quint64> branch = alice->voices().branch(place.channel("Coffee Corner"));
    alice->removeChannel(branch.first());
    QTRY_COMPARE(removed.count(), branch.size());
    QCOMPARE(removed.first().first().toULongLong(), branch.first());
    QCOMPARE(alice->voices().branch(0), place.server->voices().branch(0));
}

void tst_voiceserver::clientsOfARemovedChannelGoToTheFirst()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"), QStringLiteral("Window Table"));
    QVERIFY(alice && bob);
    alice->removeChannel(place.channel("Coffee Corner"));
    QTRY_COMPARE(bob->ownChannel(), place.channel("Town Square"));
}

void tst_voiceserver::theFirstChannelStays()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice);
    QSignalSpy notices(alice.get(), &voiceconnection::noticed);
    alice->removeChannel(place.channel("Town Square"));
    QTRY_COMPARE(notices.count(), 1);
    QVERIFY(place.server->voices().hasChannel(place.channel("Town Square")));
}

void tst_voiceserver::awayIsToldToAll()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    QVERIFY(alice && bob);
    bob->setAway(true);
    QTRY_VERIFY(alice->voices().client(bob->ownID()).away);
    QTRY_VERIFY(bob->isAway());
}

void tst_voiceserver::chatStaysInItsChannel()
{
    const town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    const auto bob = place.enter(QStringLiteral("Bob"));
    const auto carla = place.enter(QStringLiteral("Carla"), QStringLiteral("Posters"));
    QVERIFY(alice && bob && carla);
    QSignalSpy toBob(bob.get(), &voiceconnection::chatReceived);
    QSignalSpy toCarla(carla.get(), &voiceconnection::chatReceived);
    QSignalSpy toCarlaCommands(carla.get(), &voiceconnection::commandReceived);
    alice->sendChat(QStringLiteral("hello"));
    alice->sendCommand("kelvor", "behind the chat", {carla->ownID()});
    QTRY_COMPARE(toBob.count(), 1);
    QCOMPARE(toBob.first().at(1).toString(), QStringLiteral("hello"));
    QTRY_COMPARE(toCarlaCommands.count(), 1);
    QCOMPARE(toCarla.count(), 0);
}

void tst_voiceserver::aLostServerIsToldToItsClients()
{
    town place;
    const auto alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice);
    QSignalSpy lost(alice.get(), &voiceconnection::lost);
    place.server.reset();
    QTRY_COMPARE(lost.count(), 1);
    QVERIFY(!alice->isEstablished());
}

void tst_voiceserver::idsAreNotGivenTwiceInARow()
{
    const town place;
    auto alice = place.enter(QStringLiteral("Alice"));
    const quint16 before = alice->ownID();
    alice.reset();
    QTRY_COMPARE(place.server->voices().clientIDs().size(), 0);
    alice = place.enter(QStringLiteral("Alice"));
    QVERIFY(alice->ownID() != before);
}

QTEST_GUILESS_MAIN(tst_voiceserver)
#include "tst_voiceserver.moc"
