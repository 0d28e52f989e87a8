#include "exports.h"
#include "hostapi/stubtable.h"
#include "recordedcontroller.h"
#include "tests/protocol/examplemessages.h"
#include "tests/protocol/examplesenders.h"

#include <QTest>

/// The command event of interface 26: the server says who spoke, and what was said in another's name goes no further.
class tst_invoker : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { ts3plugin_shutdown(); }

    void everyKindPassesForItsSenderAlone_data();
    void everyKindPassesForItsSenderAlone();
    void aMessageThatStatesNoSenderPassesForNobodyKnown_data();
    void aMessageThatStatesNoSenderPassesForNobodyKnown();
    void aForgeryIsCaught_data();
    void aForgeryIsCaught();
    void theInvokersNameIsNotRead();
    void aCommandWithoutTextIsDropped();

    void thePlatformBehindTheNameIsTakenOff_data();
    void thePlatformBehindTheNameIsTakenOff();

private:
    static bool passes(const QByteArray& message, anyID invoker);
};

void tst_invoker::init()
{
    ts3plugin_setFunctionPointers(stubTable());
    ts3plugin_init();
    recordedcontroller::takeCalls();
}

// Whether the controller got the message, and exactly as it came.
bool tst_invoker::passes(const QByteArray& message, anyID invoker)
{
    ts3plugin_onPluginCommandEvent(5, "kelvor", message, invoker, "Ann", "identity=");
    const QList<QByteArray> calls = recordedcontroller::takeCalls();
    return calls == QList<QByteArray>{"handlePluginCommand(5, \"kelvor\", \"" + message + "\")"};
}

void tst_invoker::everyKindPassesForItsSenderAlone_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<uint>("sender");
    QCOMPARE(exampleSenders().size(), exampleMessages().size());
    for (int i = 0; i < exampleMessages().size(); ++i)
        QTest::addRow("kind %d", i + 1) << exampleMessages().at(i) << uint(exampleSenders().at(i));
}

void tst_invoker::everyKindPassesForItsSenderAlone()
{
    QFETCH(QByteArray, message);
    QFETCH(uint, sender);
    for (uint invoker = 0; invoker <= 0xffff; ++invoker) {
        if (passes(message, static_cast<anyID>(invoker)) != (invoker == 0 || invoker == sender))
            QFAIL(QByteArray::number(invoker).constData());
    }
}

void tst_invoker::aMessageThatStatesNoSenderPassesForNobodyKnown_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("test text") << QByteArray("Hallo");
    QTest::newRow("unknown kind") << QByteArray("\x19 2");
    for (char kind = 1; kind <= 24; ++kind) {
        QTest::addRow("kind %d alone", kind) << QByteArray(1, kind);
        QTest::addRow("kind %d from zero", kind) << QByteArray(1, kind) + " 0 0 0 0 0 0 0";
        QTest::addRow("kind %d in words", kind) << QByteArray(1, kind) + " two two two two two two two";
    }
}

void tst_invoker::aMessageThatStatesNoSenderPassesForNobodyKnown()
{
    QFETCH(QByteArray, message);
    QVERIFY(passes(message, 0));
    QVERIFY(!passes(message, 2));
    QVERIFY(!passes(message, 65535));
}

void tst_invoker::aForgeryIsCaught_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("version for a sender") << QByteArray("\x01 99 12");
    QTest::newRow("sender in front of the blank of a list") << QByteArray("\x02") + "12 99 5";
    QTest::newRow("sender in front of the blank of channels") << QByteArray("\x03") + "12 99 5";
    QTest::newRow("sender in front of the blank of refusals") << QByteArray("\x05") + "12 99 5";
    QTest::newRow("two blanks behind the kind of a list") << QByteArray("\x04  99 12");
    QTest::newRow("client for a sender") << QByteArray("\x06 12 99");
    QTest::newRow("sender without a blank") << QByteArray("\x0d") + "12 99";
    QTest::newRow("number cut to 16 bits") << QByteArray("\x11 65548 \x02 #000000 1 99|99");
    QTest::newRow("scanned number cut to 16 bits") << QByteArray("\x12 65548");
    QTest::newRow("sign") << QByteArray("\x14 +12 true");
}

void tst_invoker::aForgeryIsCaught()
{
    QFETCH(QByteArray, message);
    QVERIFY(!passes(message, 99));
}

void tst_invoker::theInvokersNameIsNotRead()
{
    const auto unreadable = reinterpret_cast<const char*>(1);
    ts3plugin_onPluginCommandEvent(5, "kelvor", "\x0d 12", 12, unreadable, unreadable);
    QCOMPARE(recordedcontroller::takeCalls().size(), 1);
}

void tst_invoker::aCommandWithoutTextIsDropped()
{
    ts3plugin_onPluginCommandEvent(5, "kelvor", nullptr, 0, "", "");
    ts3plugin_onPluginCommandEvent(5, "kelvor", nullptr, 12, "", "");
    QCOMPARE(recordedcontroller::takeCalls(), QList<QByteArray>());
}

void tst_invoker::thePlatformBehindTheNameIsTakenOff_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("handedOn");
    for (const char* name : {"kelvor", "kelvor.so", "kelvor_linux_amd64", "kelvor_linux_amd64.so", "kelvor_linux_x86",
                             "kelvor_win64.dll", "kelvor_win32", "kelvor_mac"})
        QTest::newRow(name) << QByteArray(name) << QByteArray("kelvor");
    QTest::newRow("other plugin") << QByteArray("other_win64.dll") << QByteArray("other");
    QTest::newRow("unknown platform") << QByteArray("kelvor_amiga") << QByteArray("kelvor_amiga");
}

void tst_invoker::thePlatformBehindTheNameIsTakenOff()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, handedOn);
    ts3plugin_onPluginCommandEvent(5, name, "\x0d 12", 12, "", "");
    QCOMPARE(recordedcontroller::takeCalls(),
             QList<QByteArray>{"handlePluginCommand(5, \"" + handedOn + "\", \"\x0d 12\")"});
}

QTEST_GUILESS_MAIN(tst_invoker)
#include "tst_invoker.moc"
