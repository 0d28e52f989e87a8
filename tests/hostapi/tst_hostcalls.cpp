#include "hostapi/hostcalls.h"
#include "tests/support/fakehost.h"

#include <QTest>

#include <cstring>
#include <memory>

// Makes one call; true when the client gave an answer.
using hostcall = bool (*)(const TS3Functions&);
Q_DECLARE_METATYPE(hostcall)

namespace {

constexpr uint64 connection = 7;
const QByteArray umlauts = "M\xc3\xbcller \xe2\x82\xac";

// The client's answers of a kind that fakehost does not give: success without a result.
template <typename Result> unsigned int nothing(Result** result)
{
    *result = nullptr;
    return ERROR_ok;
}

// A client that fills the whole buffer and forgets to end the text; in newer ones it knows whose directory it is.
template <typename... PluginID> void unendedPath(char* path, std::size_t length, PluginID...)
{
    std::memset(path, 'p', length);
}

} // namespace

class tst_hostcalls : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void textsAreUtf8();
    void listsKeepTheClientsOrder();
    void listMayBeEmpty();
    void failureGivesNothing_data();
    void failureGivesNothing();
    void successWithoutAResultGivesNothing();
    void unknownPasswordFlagIsNone();
    void onlyAFlagOfOneMeansPassword();
    void errorTextIsEmptyWhenTheClientHasNone();
    void pathsAreTaken();
    void pathLongerThanTheBufferIsCut();
    void unendedPathIsEnded();
    void printedLineIsSingleBytes();
    void commandGoesToListedClients();

private:
    std::unique_ptr<fakehost> host;
    fakeserver* server = nullptr;
};

void tst_hostcalls::init()
{
    host = std::make_unique<fakehost>();
    server = &host->addServer(connection);
    server->name = umlauts;
    server->addClient(5, umlauts, 1, "Windows");
    server->addChannel(9, umlauts, 1, true);
}

// Whatever a call did, the client has all its memory back afterwards.
void tst_hostcalls::cleanup()
{
    QCOMPARE(host->outstanding, 0);
    host.reset();
}

void tst_hostcalls::textsAreUtf8()
{
    const TS3Functions table = host->table();
    const QString name = QString::fromUtf8(umlauts);
    QCOMPARE(hostcalls::serverName(table, connection), std::optional<QString>(name));
    QCOMPARE(hostcalls::clientText(table, connection, 5, CLIENT_NICKNAME), std::optional<QString>(name));
    QCOMPARE(hostcalls::clientText(table, connection, 5, CLIENT_PLATFORM), std::optional<QString>("Windows"));
    QCOMPARE(hostcalls::channelName(table, connection, 9), std::optional<QString>(name));
    QCOMPARE(hostcalls::errorText(table, ERROR_not_connected), QString("error 702"));
}

void tst_hostcalls::listsKeepTheClientsOrder()
{
    server->addClient(3, "Early");
    server->addChannel(2, "Below");
    QCOMPARE(hostcalls::clients(host->table(), connection), std::optional<QList<anyID>>(QList<anyID>{1, 5, 3}));
    QCOMPARE(hostcalls::channels(host->table(), connection), std::optional<QList<uint64>>(QList<uint64>{1, 9, 2}));
    QCOMPARE(hostcalls::ownClientID(host->table(), connection), std::optional<anyID>(1));
}

void tst_hostcalls::listMayBeEmpty()
{
    server->clientOrder.clear();
    server->channelOrder.clear();
    QCOMPARE(hostcalls::clients(host->table(), connection), std::optional<QList<anyID>>(QList<anyID>()));
    QCOMPARE(hostcalls::channels(host->table(), connection), std::optional<QList<uint64>>(QList<uint64>()));
}

void tst_hostcalls::failureGivesNothing_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<hostcall>("answered");

    QTest::newRow("server name") << QByteArray("getServerVariableAsString") << hostcall([](const TS3Functions& table) {
        return hostcalls::serverName(table, connection).has_value();
    });
    QTest::newRow("nickname") << QByteArray("getClientVariableAsString") << hostcall([](const TS3Functions& table) {
        return hostcalls::clientText(table, connection, 5, CLIENT_NICKNAME).has_value();
    });
    QTest::newRow("channel name") << QByteArray("getChannelVariableAsString")
                                  << hostcall([](const TS3Functions& table) {
                                         return hostcalls::channelName(table, connection, 9).has_value();
                                     });
    QTest::newRow("own id") << QByteArray("getClientID") << hostcall([](const TS3Functions& table) {
        return hostcalls::ownClientID(table, connection).has_value();
    });
    QTest::newRow("clients") << QByteArray("getClientList") << hostcall([](const TS3Functions& table) {
        return hostcalls::clients(table, connection).has_value();
    });
    QTest::newRow("channels") << QByteArray("getChannelList") << hostcall([](const TS3Functions& table) {
        return hostcalls::channels(table, connection).has_value();
    });
    QTest::newRow("password flag") << QByteArray("getChannelVariableAsInt") << hostcall([](const TS3Functions& table) {
        return hostcalls::channelHasPassword(table, connection, 9);
    });
    QTest::newRow("error text") << QByteArray("getErrorMessage") << hostcall([](const TS3Functions& table) {
        return !hostcalls::errorText(table, ERROR_undefined).isEmpty();
    });
}

void tst_hostcalls::failureGivesNothing()
{
    QFETCH(QByteArray, function);
    QFETCH(hostcall, answered);
    QVERIFY(answered(host->table()));
    host->failing.insert(function);
    QVERIFY(!answered(host->table()));
    QCOMPARE(host->calls.value(function), 2);
}

void tst_hostcalls::successWithoutAResultGivesNothing()
{
    TS3Functions table = host->table();
    table.getServerVariableAsString = [](uint64, std::size_t, char** text) { return nothing(text); };
    table.getClientVariableAsString = [](uint64, anyID, std::size_t, char** text) { return nothing(text); };
    table.getChannelVariableAsString = [](uint64, uint64, std::size_t, char** text) { return nothing(text); };
    table.getErrorMessage = [](unsigned int, char** text) { return nothing(text); };
    table.getClientList = [](uint64, anyID** list) { return nothing(list); };
    table.getChannelList = [](uint64, uint64** list) { return nothing(list); };

    QVERIFY(!hostcalls::serverName(table, connection));
    QVERIFY(!hostcalls::clientText(table, connection, 5, CLIENT_NICKNAME));
    QVERIFY(!hostcalls::channelName(table, connection, 9));
    QVERIFY(hostcalls::errorText(table, ERROR_undefined).isEmpty());
    QVERIFY(!hostcalls::clients(table, connection));
    QVERIFY(!hostcalls::channels(table, connection));
    // cleanup() sees that nothing was given back either.
}

void tst_hostcalls::unknownPasswordFlagIsNone()
{
    QVERIFY(hostcalls::channelHasPassword(host->table(), connection, 9));
    QVERIFY(!hostcalls::channelHasPassword(host->table(), connection, 1));
    QVERIFY(!hostcalls::channelHasPassword(host->table(), connection, 1000));
}

void tst_hostcalls::onlyAFlagOfOneMeansPassword()
{
    TS3Functions table = host->table();
    table.getChannelVariableAsInt = [](uint64, uint64, std::size_t, int* flag) {
        *flag = 2;
        return static_cast<unsigned int>(ERROR_ok);
    };
    QVERIFY(!hostcalls::channelHasPassword(table, connection, 9));
}

void tst_hostcalls::errorTextIsEmptyWhenTheClientHasNone()
{
    host->failing.insert("getErrorMessage");
    QVERIFY(hostcalls::errorText(host->table(), ERROR_not_connected).isEmpty());
}

void tst_hostcalls::pathsAreTaken()
{
    host->configPath = "/home/user/.client/";
    host->pluginPath = "/opt/client/plugins/";
    QCOMPARE(hostcalls::configPath(host->table()), QString("/home/user/.client/"));
    QCOMPARE(hostcalls::pluginPath(host->table()), QString("/opt/client/plugins/"));
}

void tst_hostcalls::pathLongerThanTheBufferIsCut()
{
    host->configPath = '/' + QByteArray(1000, 'c');
    host->pluginPath = '/' + QByteArray(1000, 'p');
    const auto longest = static_cast<int>(hostcalls::pathLength) - 1;
    QCOMPARE(hostcalls::configPath(host->table()), QString(host->configPath.left(longest)));
    QCOMPARE(hostcalls::pluginPath(host->table()), QString(host->pluginPath.left(longest)));
}

void tst_hostcalls::unendedPathIsEnded()
{
    TS3Functions table = host->table();
    table.getConfigPath = unendedPath;
    table.getPluginPath = unendedPath;
    const QString ended(static_cast<int>(hostcalls::pathLength) - 1, 'p');
    QCOMPARE(hostcalls::configPath(table), ended);
    QCOMPARE(hostcalls::pluginPath(table), ended);
}

void tst_hostcalls::printedLineIsSingleBytes()
{
    hostcalls::printToCurrentTab(host->table(), QString::fromUtf8("M\xc3\xbcller"));
    QCOMPARE(host->printed, QList<QByteArray>{"M\xfcller"});
}

void tst_hostcalls::commandGoesToListedClients()
{
    const anyID targets[] = {5, 3, 0};
    hostcalls::sendToClients(host->table(), connection, "plugin 1", "ping", targets);
    const QList<sentcommand> expected{{connection, "plugin 1", "ping", PluginCommandTarget_CLIENT, {5, 3}}};
    QCOMPARE(host->takeSent(), expected);
}

QTEST_APPLESS_MAIN(tst_hostcalls)
#include "tst_hostcalls.moc"
