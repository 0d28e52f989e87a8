#include "exports.h"
#include "hostapi/stubtable.h"
#include "recordedcontroller.h"

#include <QTest>

using calls = QList<QByteArray>;

/// What each exported function makes of its arguments, without the library around it.
class tst_exports : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { ts3plugin_shutdown(); }

    void saysWhatThePluginIs();
    void theTableReachesTheControllerByValue();
    void eachInitHasOneController();
    void nothingHappensWithoutAController();
    void textsArriveByteByByte();
    void theConfigurationGetsItsParent();
    void theChatCommandTellsWhetherItWasHandled();
    void channelEventsBecomeSignals();
    void movesOfEveryOriginAreTakenAlike();
    void filesAreListed();
    void aTransferNamesItsConnectionLast();
    void thePluginsIdIsHandedOn();
    void commandsOfPeersAreHandedOn();
    void onlyTheNewerInterfaceTakesThePlatformOffThePluginsName();

private:
    static void callEverything();
    static void receive(const char* plugin, const char* command);
    static void registerID(const char* id);
};

void tst_exports::init()
{
    ts3plugin_setFunctionPointers(stubTable());
    ts3plugin_init();
    recordedcontroller::handlesCommands = true;
    recordedcontroller::takeCalls();
}

void tst_exports::receive(const char* plugin, const char* command)
{
#if KELVOR_HOST_INTERFACE == 26
    ts3plugin_onPluginCommandEvent(1, plugin, command, 0, "", "");
#else
    ts3plugin_onPluginCommandEvent(1, plugin, command);
#endif
}

void tst_exports::registerID(const char* id)
{
#if KELVOR_HOST_INTERFACE == 26
    ts3plugin_registerPluginID(id);
#else
    ts3plugin_registerPluginCommandID(id);
#endif
}

void tst_exports::saysWhatThePluginIs()
{
    QCOMPARE(ts3plugin_name(), "kelvor - Whiteboard");
    QCOMPARE(ts3plugin_version(), "1.10");
    QCOMPARE(ts3plugin_apiVersion(), KELVOR_HOST_INTERFACE);
    QCOMPARE(ts3plugin_author(), "The kelvor project");
    QCOMPARE(ts3plugin_description(), "Paint with other users on the TeamSpeak 3 server.");
    QCOMPARE(ts3plugin_commandKeyword(), "kelvor");
    QCOMPARE(ts3plugin_offersConfigure(), int(PLUGIN_OFFERS_CONFIGURE_QT_THREAD));
#if KELVOR_HOST_INTERFACE == 26
    QCOMPARE(ts3plugin_requestAutoload(), 0);
#endif
}

void tst_exports::theTableReachesTheControllerByValue()
{
    TS3Functions table = stubTable();
    table.getCurrentServerConnectionHandlerID = [] { return uint64(77); };
    ts3plugin_setFunctionPointers(table);
    table.getCurrentServerConnectionHandlerID = nullptr;
    QCOMPARE(ts3plugin_init(), 0);
    QCOMPARE(recordedcontroller::table.getCurrentServerConnectionHandlerID(), uint64(77));
}

void tst_exports::eachInitHasOneController()
{
    QCOMPARE(recordedcontroller::living, 1);
    QCOMPARE(ts3plugin_init(), 0);
    QCOMPARE(recordedcontroller::living, 1);
    ts3plugin_shutdown();
    QCOMPARE(recordedcontroller::living, 0);
    ts3plugin_shutdown();
    QCOMPARE(recordedcontroller::living, 0);
    QCOMPARE(ts3plugin_init(), 0);
    QCOMPARE(recordedcontroller::living, 1);
}

void tst_exports::callEverything()
{
    ts3plugin_configure(nullptr, nullptr);
    registerID("id");
    ts3plugin_processCommand(1, "open");
    receive("kelvor", "\x0d 2");
    ts3plugin_onNewChannelEvent(1, 2, 3);
    ts3plugin_onNewChannelCreatedEvent(1, 2, 3, 4, "", "");
    ts3plugin_onDelChannelEvent(1, 2, 3, "", "");
    ts3plugin_onChannelMoveEvent(1, 2, 3, 4, "", "");
    ts3plugin_onClientMoveEvent(1, 2, 3, 4, 0, "");
    ts3plugin_onClientMoveTimeoutEvent(1, 2, 3, 4, 0, "");
    ts3plugin_onClientMoveMovedEvent(1, 2, 3, 4, 0, 5, "", "", "");
    ts3plugin_onFileListEvent(1, 2, "/", "a", 3, 4, 1, 0, "");
    ts3plugin_onFileTransferStatusEvent(1, 0, "", 2, 3);
}

void tst_exports::nothingHappensWithoutAController()
{
    callEverything();
    QCOMPARE(recordedcontroller::takeCalls().size(), 13);
    ts3plugin_shutdown();
    callEverything();
    QCOMPARE(recordedcontroller::takeCalls(), calls());
    QCOMPARE(ts3plugin_processCommand(1, "open"), 1);
}

void tst_exports::textsArriveByteByByte()
{
    ts3plugin_processCommand(1, "caf\xc3\xa9");
    receive("kelv\xf6r", "\x0d 2");
    ts3plugin_onFileListEvent(1, 2, "/\xe4", "\xc3\xb6", 3, 4, 1, 0, "");
    ts3plugin_onFileTransferStatusEvent(1, 0, "\xdf", 2, 3);
    const calls expected{"handleCommand(1, \"caf\xc3\xa9\")", "handlePluginCommand(1, \"kelv\xf6r\", \"\x0d 2\")",
                         "fileList(1, 2, \"/\xe4\", \"\xc3\xb6\", 3, 4, 1)",
                         "fileTransferStatus(1, 0, \"\xdf\", 2, 3)"};
    QCOMPARE(recordedcontroller::takeCalls(), expected);
}

void tst_exports::theConfigurationGetsItsParent()
{
    int handle = 0;
    int parent = 0;
    ts3plugin_configure(&handle, &parent);
    const QByteArray address = QByteArray::number(qulonglong(reinterpret_cast<quintptr>(&parent)));
    QCOMPARE(recordedcontroller::takeCalls(), calls{"showConfigDialog(" + address + ")"});
}

void tst_exports::theChatCommandTellsWhetherItWasHandled()
{
    QCOMPARE(ts3plugin_processCommand(7, "open"), 0);
    recordedcontroller::handlesCommands = false;
    QCOMPARE(ts3plugin_processCommand(8, "close"), 1);
    QCOMPARE(recordedcontroller::takeCalls(), (calls{"handleCommand(7, \"open\")", "handleCommand(8, \"close\")"}));
}

void tst_exports::channelEventsBecomeSignals()
{
    ts3plugin_onNewChannelEvent(1, 2, 3);
    ts3plugin_onNewChannelCreatedEvent(4, 5, 6, 7, nullptr, nullptr);
    ts3plugin_onDelChannelEvent(8, 9, 10, nullptr, nullptr);
    ts3plugin_onChannelMoveEvent(11, 12, 13, 14, nullptr, nullptr);
    const calls expected{"channelCreated(1, 2, 3)", "channelCreated(4, 5, 6)", "channelDeleted(8, 9)",
                         "channelMoved(11, 12, 13)"};
    QCOMPARE(recordedcontroller::takeCalls(), expected);
}

void tst_exports::movesOfEveryOriginAreTakenAlike()
{
    const auto unreadable = reinterpret_cast<const char*>(1);
    for (int visibility : {0, 1, 2, -1, 17}) {
        ts3plugin_onClientMoveEvent(1, 2, 3, 4, visibility, unreadable);
        ts3plugin_onClientMoveTimeoutEvent(1, 2, 3, 4, visibility, unreadable);
        ts3plugin_onClientMoveMovedEvent(1, 2, 3, 4, visibility, 9, unreadable, unreadable, unreadable);
        const QByteArray move = "handleClientMove(1, 2, 3, 4, " + QByteArray::number(visibility) + ')';
        QCOMPARE(recordedcontroller::takeCalls(), (calls{move, move, move}));
    }
}

void tst_exports::filesAreListed()
{
    ts3plugin_onFileListEvent(1, 2, "/pictures", "cat.png", ~uint64(0), 1300000000, 1, 99, "code");
    QCOMPARE(recordedcontroller::takeCalls(),
             calls{"fileList(1, 2, \"/pictures\", \"cat.png\", 18446744073709551615, 1300000000, 1)"});
}

void tst_exports::aTransferNamesItsConnectionLast()
{
    ts3plugin_onFileTransferStatusEvent(100, ERROR_file_transfer_complete, "done", 12, 7);
    QCOMPARE(recordedcontroller::takeCalls(), calls{"fileTransferStatus(100, 2065, \"done\", 12, 7)"});
}

void tst_exports::thePluginsIdIsHandedOn()
{
    registerID("kelvor#1");
    QCOMPARE(recordedcontroller::takeCalls(), calls{"setPluginCommandID(\"kelvor#1\")"});
}

void tst_exports::commandsOfPeersAreHandedOn()
{
    receive("kelvor", "\x0d 2");
    receive("other", "\x0d 2");
    QCOMPARE(
        recordedcontroller::takeCalls(),
        (calls{"handlePluginCommand(1, \"kelvor\", \"\x0d 2\")", "handlePluginCommand(1, \"other\", \"\x0d 2\")"}));
}

void tst_exports::onlyTheNewerInterfaceTakesThePlatformOffThePluginsName()
{
    receive("kelvor_linux_amd64.so", "\x0d 2");
#if KELVOR_HOST_INTERFACE == 26
    QCOMPARE(recordedcontroller::takeCalls(), calls{"handlePluginCommand(1, \"kelvor\", \"\x0d 2\")"});
#else
    QCOMPARE(recordedcontroller::takeCalls(), calls{"handlePluginCommand(1, \"kelvor_linux_amd64.so\", \"\x0d 2\")"});
#endif
}

QTEST_GUILESS_MAIN(tst_exports)
#include "tst_exports.moc"
