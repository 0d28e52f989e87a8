#include "controllerfixture.h"

#include "invitation/invitationdialog.h"
#include "tests/support/whenopen.h"

#include <QPushButton>
#include <QTest>

/// An invitation: how the user learns of it, what is answered, and which ones are turned away unasked.
class tst_question : public QObject {
    Q_OBJECT

private slots:
    void theQuestionStandsAloneAndSuggestsYes();
    void noSoundWithoutTheSettingOrWithoutAFile_data();
    void noSoundWithoutTheSettingOrWithoutAFile();
    void anInvitationIsAskedAndAccepted();
    void anInvitationIsRejectedByNo();
    void anInvitationIsRejectedByClosingTheBox();
    void theQuestionNamesWhatItCannotReadByAWord();
    void percentMarksInNamesChangeTheQuestion();
    void namesAreNeverReadAsMarkup();
    void namesDoNotTurnTheRestOfTheQuestion();
    void filtersAnswerBusyWithoutAQuestion_data();
    void filtersAnswerBusyWithoutAQuestion();
    void anUnknownAwayStatusCountsAsPresent();
    void theInvitationSoundIsPlayed();
    void aSoundThatCannotBePlayedIsToldAndTheQuestionStillComes();
    void aSecondInvitationDuringTheQuestionGetsBusy();
    void anInvitationOnAnotherConnectionAsksOnTopOfTheFirst();
    void theOwnHostInvitingAgainGetsBusy();
};

void tst_question::theQuestionStandsAloneAndSuggestsYes()
{
    controllerfixture fixture;
    fixture.start();
    const whenopen<QMessageBox> user([](QMessageBox& box) {
        QCOMPARE(box.windowTitle(), QString::fromLatin1("Kelvor"));
        QCOMPARE(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.defaultButton(), box.button(QMessageBox::Yes));
        QVERIFY(!box.parentWidget());
        box.reject();
    });
    fixture.receive(controllerfixture::inviteFromAnn);
    QVERIFY(user.ran());
}

void tst_question::noSoundWithoutTheSettingOrWithoutAFile_data()
{
    QTest::addColumn<bool>("playsound");
    QTest::addColumn<QString>("soundpath");
    QTest::newRow("switched off") << false << QString::fromLatin1("/sounds/ding.wav");
    QTest::newRow("no file") << true << QString();
}

void tst_question::noSoundWithoutTheSettingOrWithoutAFile()
{
    QFETCH(bool, playsound);
    QFETCH(QString, soundpath);
    controllerfixture fixture;
    fixture.writeSetting("playsound", playsound);
    fixture.writeSetting("soundpath", soundpath);
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QVERIFY(!fixture.asked().isEmpty());
    QVERIFY(fixture.host.played.isEmpty());
}

void tst_question::anInvitationIsAskedAndAccepted()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    QCOMPARE(
        fixture.asked(),
        QString::fromLatin1("You are invited to a kelvor session on server Server 1 by Ann. Do you want to accept?"));
    QCOMPARE(fixture.controller->stateOf(1), session_joining);
    const QList<sentcommand> sent = fixture.host.takeSent();
    QVERIFY(!sent.isEmpty());
    QCOMPARE(sent.first(), (sentcommand{1, "id", "\x0d 1", PluginCommandTarget_CLIENT, {2}}));
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    QCOMPARE(controllerfixture::lobbies().first()->sessionHost(), anyID(2));
    QCOMPARE(fixture.host.outstanding, 0);
}

void tst_question::anInvitationIsRejectedByNo()
{
    controllerfixture fixture;
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.sent, (QList<sentcommand>{{1, "id", "\x0e 1", PluginCommandTarget_CLIENT, {2}}}));
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QVERIFY(controllerfixture::lobbies().isEmpty());
}

void tst_question::anInvitationIsRejectedByClosingTheBox()
{
    controllerfixture fixture;
    fixture.start();
    fixture.duringNextQuestion([] { controllerfixture::questions().last()->reject(); });
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x0e 1"});
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_question::theQuestionNamesWhatItCannotReadByAWord()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.failing = {"getServerVariableAsString", "getClientVariableAsString"};
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.asked(),
             QString::fromLatin1(
                 "You are invited to a kelvor session on server SERVERNAME by NICKNAME. Do you want to accept?"));
}

void tst_question::percentMarksInNamesChangeTheQuestion()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.servers[1].name = "50%2";
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.asked(),
             QString::fromLatin1("You are invited to a kelvor session on server 50Ann by Ann. Do you want to accept?"));
}

void tst_question::namesDoNotTurnTheRestOfTheQuestion()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.servers[1].clients[2].nickname = "\xe2\x80\xae"
                                                  "Ann";
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(
        fixture.asked(),
        QString::fromLatin1("You are invited to a kelvor session on server Server 1 by Ann. Do you want to accept?"));
}

void tst_question::namesAreNeverReadAsMarkup()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.servers[1].clients[2].nickname = "<img src=/dev/zero>";
    Qt::TextFormat format = Qt::AutoText;
    fixture.duringNextQuestion([&format] {
        format = controllerfixture::questions().last()->textFormat();
        controllerfixture::questions().last()->reject();
    });
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(format, Qt::PlainText);
    QVERIFY(fixture.asked().contains(QLatin1String("<img src=/dev/zero>")));
}

void tst_question::filtersAnswerBusyWithoutAQuestion_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<bool>("value");
    QTest::addColumn<bool>("away");
    QTest::addColumn<uint64>("tab");
    QTest::addColumn<bool>("busy");
    QTest::newRow("present, front tab") << QByteArray("awayreject") << true << false << uint64(1) << false;
    QTest::newRow("away, rejecting") << QByteArray("awayreject") << true << true << uint64(1) << true;
    QTest::newRow("away, not rejecting") << QByteArray("awayreject") << false << true << uint64(1) << false;
    QTest::newRow("other tab, front only") << QByteArray("onlyactivetab") << true << false << uint64(2) << true;
    QTest::newRow("no tab, front only") << QByteArray("onlyactivetab") << true << false << uint64(0) << true;
    QTest::newRow("no tab, any") << QByteArray("onlyactivetab") << false << false << uint64(0) << false;
    QTest::newRow("other tab, any") << QByteArray("onlyactivetab") << false << false << uint64(2) << false;
}

void tst_question::filtersAnswerBusyWithoutAQuestion()
{
    QFETCH(QByteArray, setting);
    QFETCH(bool, value);
    QFETCH(bool, away);
    QFETCH(uint64, tab);
    QFETCH(bool, busy);
    controllerfixture fixture;
    fixture.writeSetting(setting.constData(), value);
    fixture.host.servers[1].away = away;
    fixture.host.currentConnection = tab;
    fixture.start();
    if (!busy)
        fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{busy ? "\x18 1" : "\x0e 1"});
    QCOMPARE(fixture.asked().isEmpty(), busy);
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_question::anUnknownAwayStatusCountsAsPresent()
{
    controllerfixture fixture;
    fixture.writeSetting("awayreject", true);
    fixture.host.failing.insert("getClientSelfVariableAsInt");
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QVERIFY(!fixture.asked().isEmpty());
    QCOMPARE(fixture.host.printed, QList<QByteArray>{"Error querying own away status"});
}

void tst_question::theInvitationSoundIsPlayed()
{
    controllerfixture fixture;
    fixture.writeSetting("playsound", true);
    fixture.writeSetting("soundpath", QString::fromUtf8("/sounds/d\xc3\xafng \xe2\x82\xac.wav"));
    // The path goes as single bytes, whatever that makes of it.
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.played, QList<QByteArray>{"/sounds/d\xefng ?.wav"});
}

void tst_question::aSoundThatCannotBePlayedIsToldAndTheQuestionStillComes()
{
    controllerfixture fixture;
    fixture.writeSetting("playsound", true);
    fixture.writeSetting("soundpath", QString::fromLatin1("/sounds/ding.wav"));
    fixture.host.failing.insert("playWaveFile");
    fixture.host.failure = ERROR_file_not_found;
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.printed, QList<QByteArray>{"Error playing wavefile (error 803)"});
    QVERIFY(!fixture.asked().isEmpty());
    QCOMPARE(fixture.host.outstanding, 0);
}

void tst_question::aSecondInvitationDuringTheQuestionGetsBusy()
{
    controllerfixture fixture;
    fixture.start();
    fixture.duringNextQuestion([&fixture] {
        fixture.receive("\x01 2 3");
        QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x18 1", PluginCommandTarget_CLIENT, {3}}}));
        QCOMPARE(controllerfixture::questions().size(), 1);
        controllerfixture::questions().last()->reject();
    });
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x0e 1"});
}

void tst_question::anInvitationOnAnotherConnectionAsksOnTopOfTheFirst()
{
    controllerfixture fixture;
    fixture.writeSetting("onlyactivetab", false);
    fixture.start();
    fixture.duringNextQuestion([&fixture] {
        QMessageBox* first = controllerfixture::questions().first();
        QTimer::singleShot(0, first, [first] {
            QList<QMessageBox*> open = controllerfixture::questions();
            QCOMPARE(open.size(), 2);
            open.removeAll(first);
            open.first()->button(QMessageBox::Yes)->click();
        });
        fixture.receive(controllerfixture::inviteFromAnn, 2);
        first->reject();
    });
    fixture.receive(controllerfixture::inviteFromAnn, 1);
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QCOMPARE(fixture.controller->stateOf(2), session_joining);
}

void tst_question::theOwnHostInvitingAgainGetsBusy()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.host.takeSent();
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x18 1"});
}

QTEST_MAIN(tst_question)
#include "tst_question.moc"
