#include "hostapi/stubtable.h"
#include "hostapi/ts3functions.h"

#include <QTest>

#include <cstddef>

namespace {

int slotOf(std::size_t offset) { return static_cast<int>(offset / sizeof(void*)); }

// The slots are the published interface, written down here as numbers: a function that was moved, added or left out in
// the header would call another one in the client.
#if KELVOR_HOST_INTERFACE == 26
constexpr std::size_t slotCount = 230;
#define SLOT_ROW(function, slotIn8, slotIn26)                                                                          \
    QTest::newRow(#function) << slotOf(offsetof(TS3Functions, function)) << slotIn26
#else
constexpr std::size_t slotCount = 176;
#define SLOT_ROW(function, slotIn8, slotIn26)                                                                          \
    QTest::newRow(#function) << slotOf(offsetof(TS3Functions, function)) << slotIn8
#endif

#define VALUE_ROW(name, published) QTest::newRow(#name) << static_cast<int>(name) << published

} // namespace

class tst_ts3functions : public QObject {
    Q_OBJECT

private slots:
    void holdsThePointersAndNothingElse();
    void functionStandsInItsSlot_data();
    void functionStandsInItsSlot();
    void fillsEverySlotOfAStub();
    void valueIsThePublishedOne_data();
    void valueIsThePublishedOne();
};

void tst_ts3functions::holdsThePointersAndNothingElse()
{
    QCOMPARE(sizeof(TS3Functions), slotCount * sizeof(void*));
    QCOMPARE(alignof(TS3Functions), alignof(void*));
}

void tst_ts3functions::functionStandsInItsSlot_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("published");

    SLOT_ROW(getErrorMessage, 3, 4);
    SLOT_ROW(freeMemory, 4, 5);
    SLOT_ROW(playWaveFile, 27, 28);
    SLOT_ROW(getClientID, 67, 73);
    SLOT_ROW(getClientSelfVariableAsInt, 68, 74);
    SLOT_ROW(getClientVariableAsString, 75, 81);
    SLOT_ROW(getClientList, 76, 82);
    SLOT_ROW(getChannelOfClient, 77, 83);
    SLOT_ROW(getChannelVariableAsInt, 78, 84);
    SLOT_ROW(getChannelVariableAsUInt64, 79, 85);
    SLOT_ROW(getChannelVariableAsString, 80, 86);
    SLOT_ROW(getChannelList, 87, 93);
    SLOT_ROW(getParentChannelOfChannel, 89, 95);
    SLOT_ROW(getServerVariableAsString, 93, 99);
    SLOT_ROW(getConnectionStatus, 95, 101);
    SLOT_ROW(sendFile, 116, 122);
    SLOT_ROW(requestFile, 117, 123);
    SLOT_ROW(requestFileList, 119, 125);
    SLOT_ROW(getConfigPath, 169, 181);
    SLOT_ROW(getPluginPath, 170, 182);
    SLOT_ROW(getCurrentServerConnectionHandlerID, 171, 183);
    SLOT_ROW(printMessageToCurrentTab, 173, 185);
    SLOT_ROW(sendPluginCommand, 175, 187);
}

void tst_ts3functions::functionStandsInItsSlot()
{
    QFETCH(int, slot);
    QFETCH(int, published);
    QCOMPARE(slot, published);
}

void tst_ts3functions::fillsEverySlotOfAStub()
{
    const TS3Functions table = stubTable();
    std::array<void*, slotCount> pointers;
    std::memcpy(pointers.data(), &table, sizeof(table));
    for (void* pointer : pointers)
        QVERIFY(pointer);
    QCOMPARE(table.getCurrentCaptureMode(1, nullptr), static_cast<unsigned int>(ERROR_not_implemented));
}

void tst_ts3functions::valueIsThePublishedOne_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("published");

    VALUE_ROW(CLIENT_NICKNAME, 1);
    VALUE_ROW(CLIENT_PLATFORM, 3);
    VALUE_ROW(CLIENT_AWAY, 38);
    VALUE_ROW(CHANNEL_NAME, 0);
    VALUE_ROW(CHANNEL_ORDER, 8);
    VALUE_ROW(CHANNEL_FLAG_PASSWORD, 12);
    VALUE_ROW(VIRTUALSERVER_NAME, 1);
    VALUE_ROW(ENTER_VISIBILITY, 0);
    VALUE_ROW(RETAIN_VISIBILITY, 1);
    VALUE_ROW(LEAVE_VISIBILITY, 2);
    VALUE_ROW(STATUS_DISCONNECTED, 0);
    VALUE_ROW(STATUS_CONNECTING, 1);
    VALUE_ROW(STATUS_CONNECTED, 2);
    VALUE_ROW(STATUS_CONNECTION_ESTABLISHING, 3);
    VALUE_ROW(STATUS_CONNECTION_ESTABLISHED, 4);
    VALUE_ROW(PluginCommandTarget_CLIENT, 2);
    VALUE_ROW(PLUGIN_OFFERS_CONFIGURE_QT_THREAD, 2);
    VALUE_ROW(PLUGIN_MESSAGE_TARGET_SERVER, 0);
    VALUE_ROW(PLUGIN_MESSAGE_TARGET_CHANNEL, 1);
    VALUE_ROW(FileListType_Directory, 0);
    VALUE_ROW(FileListType_File, 1);
    VALUE_ROW(ERROR_ok, 0);
    VALUE_ROW(ERROR_undefined, 1);
    VALUE_ROW(ERROR_not_implemented, 2);
    VALUE_ROW(ERROR_client_invalid_id, 0x0200);
    VALUE_ROW(ERROR_client_is_flooding, 0x020c);
    VALUE_ROW(ERROR_channel_invalid_id, 0x0300);
    VALUE_ROW(ERROR_channel_invalid_password, 0x030d);
    VALUE_ROW(ERROR_parameter_invalid, 0x0602);
    VALUE_ROW(ERROR_connection_lost, 0x0701);
    VALUE_ROW(ERROR_not_connected, 0x0702);
    VALUE_ROW(ERROR_file_invalid_name, 0x0800);
    VALUE_ROW(ERROR_file_already_exists, 0x0802);
    VALUE_ROW(ERROR_file_not_found, 0x0803);
    VALUE_ROW(ERROR_file_transfer_complete, 0x0811);
    VALUE_ROW(ERROR_file_transfer_canceled, 0x0812);
    VALUE_ROW(ERROR_file_transfer_interrupted, 0x0813);
}

void tst_ts3functions::valueIsThePublishedOne()
{
    QFETCH(int, value);
    QFETCH(int, published);
    QCOMPARE(value, published);
}

QTEST_APPLESS_MAIN(tst_ts3functions)
#include "tst_ts3functions.moc"
