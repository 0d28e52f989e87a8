#include "controllerfixture.h"

#include "tests/support/whenopen.h"

#include <QPushButton>
#include <QSettings>
#include <QTest>

/// How somebody who is invited learns of it.
class tst_question : public QObject {
    Q_OBJECT

private slots:
    void theQuestionStandsAloneAndSuggestsYes();
    void noSoundWithoutTheSettingOrWithoutAFile_data();
    void noSoundWithoutTheSettingOrWithoutAFile();
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
    fixture.receive("\x01 2 2");
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
    {
        QSettings file(fixture.directory.filePath(QString::fromLatin1("kelvor.conf")), QSettings::IniFormat);
        file.setValue(QString::fromLatin1("playsound"), playsound);
        file.setValue(QString::fromLatin1("soundpath"), soundpath);
    }
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive("\x01 2 2");
    QVERIFY(!fixture.asked().isEmpty());
    QVERIFY(fixture.host.played.isEmpty());
}

QTEST_MAIN(tst_question)
#include "tst_question.moc"
