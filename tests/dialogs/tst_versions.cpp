#include "dialogs/kelvoraboutdialog.h"
#include "protocol/messages.h"

#include <QLabel>
#include <QLibrary>
#include <QtTest>

/// The about box has its versions as plain texts in its form; here they are held to what the library reports and to
/// what the invitations carry.
class tst_versions : public QObject {
    Q_OBJECT

    static QString shownIn(const char* label)
    {
        const kelvoraboutdialog dialog;
        return dialog.findChild<QLabel*>(QLatin1String(label))->text();
    }

private slots:
    void theAboutBoxShowsTheVersionThatTheLibraryReports()
    {
        QLibrary library(QLatin1String(KELVOR_LIBRARY));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        const auto version = reinterpret_cast<const char* (*)()>(library.resolve("ts3plugin_version"));
        QVERIFY(version);
        QCOMPARE(shownIn("label_2"), QString::fromLatin1(version()));
    }

    void theAboutBoxShowsTheProtocolVersionThatInvitationsCarry()
    {
        QCOMPARE(shownIn("label_4"), QString::number(protocolVersion));
    }

    void thePicturesOfTheAboutBoxComeWithTheLibrary()
    {
        QLibrary library(QLatin1String(KELVOR_LIBRARY));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        const kelvoraboutdialog dialog;
        for (const char* name : {"qtlabel", "donatelabel"})
            QVERIFY(!dialog.findChild<QLabel*>(QLatin1String(name))->pixmap(Qt::ReturnByValue).isNull());
    }
};

QTEST_MAIN(tst_versions)
#include "tst_versions.moc"
