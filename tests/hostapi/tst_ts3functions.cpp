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

} // namespace

class tst_ts3functions : public QObject {
    Q_OBJECT

private slots:
    void holdsThePointersAndNothingElse();
    void functionStandsInItsSlot_data();
    void functionStandsInItsSlot();
    void fillsEverySlotOfAStub();
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

QTEST_APPLESS_MAIN(tst_ts3functions)
#include "tst_ts3functions.moc"
