#include "lobbyfixture.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QStyle>
#include <QTest>

#include <algorithm>
#include <memory>

/// The window itself on both sides: its form, and its end.
class tst_invitationdialog : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void looksAsFormed();
    void legendNamesTheStates();
    void hostPingsAllClientsOnOpening();
    void guestPingsNobodyOnOpening();
    void guestPingsWhoConnects();
    void guestCanOnlyBeClosed();
    void sizeIsWhatTheEditsHold_data();
    void sizeIsWhatTheEditsHold();
    void endTellsItsResultOnce_data();
    void endTellsItsResultOnce();
    void okWithAnEmptyWidthEndsWithWidthZero();
    void deletionTellsNothing();
    void takeBackEndsTheGuest_data();
    void takeBackEndsTheGuest();
    void logoutOfTheHostEndsTheGuest();
    void hostLeavingTheServerDoesNotEndTheGuest();
    void endedLobbyHearsNothing();
    void endedLobbyInvitesNobody();
    void fileEventsAreRelayed();

private:
    QPushButton* button(QDialogButtonBox::StandardButton which)
    {
        return lobby->widget<QDialogButtonBox>("buttonBox")->button(which);
    }

    std::unique_ptr<lobbyfixture> lobby;
};

void tst_invitationdialog::init() { lobby = std::make_unique<lobbyfixture>(); }

void tst_invitationdialog::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_invitationdialog::looksAsFormed()
{
    lobby->openHost();
    QCOMPARE(lobby->dialog->objectName(), QString("invitationdialog"));
    QCOMPARE(lobby->dialog->windowTitle(), QString("Invite to kelvor"));
    QCOMPARE(lobby->dialog->size(), QSize(384, 425));
    QVERIFY(lobby->dialog->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(!lobby->dialog->isModal());
    for (const char* layout : {"verticalLayout", "horizontalLayout", "horizontalLayout_2", "horizontalLayout_3"})
        QVERIFY2(lobby->dialog->findChild<QLayout*>(layout), layout);
    QCOMPARE(lobby->widget<QLabel>("sizelabel")->text(), QString("Imagesize:"));
    QCOMPARE(lobby->widget<QLabel>("label_2")->text(), QString("x"));
    QCOMPARE(lobby->widget<QLineEdit>("widthedit")->text(), QString("640"));
    QCOMPARE(lobby->widget<QLineEdit>("heightedit")->text(), QString("480"));
    QCOMPARE(lobby->widget<QLineEdit>("heightedit")->maxLength(), 32767);
    const auto* validator = qobject_cast<const QIntValidator*>(lobby->widget<QLineEdit>("widthedit")->validator());
    QVERIFY(validator);
    QCOMPARE(validator, lobby->widget<QLineEdit>("heightedit")->validator());
    QCOMPARE(validator->parent(), lobby->dialog);
    QCOMPARE(validator->bottom(), 200);
    QCOMPARE(validator->top(), 2000);
    QCOMPARE(lobby->widget<QLabel>("urllabel")->text(), QString());
    for (const char* name : {"loadbutton", "clearbutton"}) {
        QCOMPARE(lobby->widget<QPushButton>(name)->text(), QString());
        QVERIFY(!lobby->widget<QPushButton>(name)->icon().isNull());
        QVERIFY(!lobby->widget<QPushButton>(name)->autoDefault());
    }
    const QIcon open = lobby->dialog->style()->standardIcon(QStyle::SP_DialogOpenButton);
    QCOMPARE(lobby->widget<QPushButton>("loadbutton")->icon().pixmap(24).toImage(), open.pixmap(24).toImage());
    const QIcon clear(":/gfx/gfx/clear.png");
    QCOMPARE(lobby->widget<QPushButton>("clearbutton")->icon().pixmap(24).toImage(), clear.pixmap(24).toImage());
    QCOMPARE(lobby->widget<QPushButton>("loadbutton")->toolTip(), QString("Load image"));
    QCOMPARE(lobby->widget<QPushButton>("clearbutton")->toolTip(), QString("Clear image"));
    const auto* background = lobby->widget<QCheckBox>("imagebgcheckbox");
    QCOMPARE(background->text(), QString("Use image as background"));
    QCOMPARE(background->toolTip(),
             QString("The image will stay in background, even if you erase a section or clear the image"));
    QVERIFY(!background->isEnabled());
    const auto* tree = lobby->widget<QTreeWidget>("tree");
    QCOMPARE(tree->columnCount(), 1);
    QCOMPARE(tree->headerItem()->text(0), QString("1"));
    QVERIFY(tree->isHeaderHidden());
    QCOMPARE(tree->contextMenuPolicy(), Qt::CustomContextMenu);
    QCOMPARE(tree->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(tree->toolTip(), QString("Rightclick or doubleclick to invite"));
    QCOMPARE(lobby->widget<QDialogButtonBox>("buttonBox")->standardButtons(),
             QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
}

void tst_invitationdialog::legendNamesTheStates()
{
    lobby->openHost();
    const auto* bar = lobby->dialog->findChild<QStatusBar*>();
    QVERIFY(bar);
    QLayout* rows = lobby->dialog->layout();
    QCOMPARE(rows->itemAt(rows->count() - 1)->widget(), bar);
    lobby->show();
    QList<QLabel*> labels = bar->findChildren<QLabel*>();
    std::sort(labels.begin(), labels.end(), [bar](QLabel* a, QLabel* b) {
        return a->mapTo(const_cast<QStatusBar*>(bar), {}).x() < b->mapTo(const_cast<QStatusBar*>(bar), {}).x();
    });
    const QColor colors[] = {"yellow", "green", "red", "black", QColor(217, 113, 1)};
    const char* texts[] = {"= Invited", "= Accepted", "= Rejected", "= You", "= Host"};
    QCOMPARE(labels.size(), 10);
    for (int i = 0; i < 5; ++i) {
        const QImage mark = labels.at(2 * i)->pixmap()->toImage().convertToFormat(QImage::Format_RGB32);
        QImage expected(8, 8, QImage::Format_RGB32);
        expected.fill(colors[i]);
        QCOMPARE(mark, expected);
        QCOMPARE(labels.at(2 * i + 1)->text(), QString(texts[i]));
    }
    // On one line, and nothing of it cut off.
    for (const QLabel* label : qAsConst(labels)) {
        QVERIFY(label->width() >= label->sizeHint().width());
        QVERIFY(qAbs(label->geometry().center().y() - labels.first()->geometry().center().y()) <= 1);
        QVERIFY(bar->rect().contains(QRect(label->mapTo(const_cast<QStatusBar*>(bar), {}), label->size())));
    }
}

void tst_invitationdialog::hostPingsAllClientsOnOpening()
{
    lobby->openHost();
    QCOMPARE(lobby->sent(), QStringList({"22 1>1 2 3 4 5"}));
}

void tst_invitationdialog::guestPingsNobodyOnOpening()
{
    lobby->openGuest(3);
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_invitationdialog::guestPingsWhoConnects()
{
    lobby->openGuest(3);
    emit lobby->controller.clientConnected(1, 77, 1);
    QCOMPARE(lobby->sent(), QStringList({"22 1>77"}));
    lobby->receive(23, "77");
    QCOMPARE(lookOf(lobby->client(77)), QString("none"));
}

void tst_invitationdialog::guestCanOnlyBeClosed()
{
    lobby->openGuest(3);
    lobby->show();
    for (const char* name : {"loadbutton", "clearbutton", "widthedit", "heightedit", "imagebgcheckbox", "buttonBox"})
        QVERIFY2(!lobby->widget<QWidget>(name)->isEnabled(), name);
    QVERIFY(!button(QDialogButtonBox::Ok)->isEnabled());
    QVERIFY(!button(QDialogButtonBox::Cancel)->isEnabled());
    QVERIFY(lobby->widget<QTreeWidget>("tree")->isEnabled());
    QCOMPARE(lobby->dialog->imageWidth(), 0);
    QCOMPARE(lobby->dialog->imageHeight(), 0);
    QCOMPARE(lobby->dialog->sessionHost(), anyID(3));
    QTest::keyClick(lobby->tree, Qt::Key_Return);
    QVERIFY(lobby->results.isEmpty());
    lobby->dialog->close();
    QCOMPARE(lobby->results, QList<int>{0});
}

void tst_invitationdialog::sizeIsWhatTheEditsHold_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("size");
    QTest::newRow("a number") << "800" << 800;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("below the range") << "5" << 5;
    QTest::newRow("above the range") << "3000" << 3000;
    QTest::newRow("with a group separator") << "1,000" << 0;
    QTest::newRow("no number") << "abc" << 0;
    QTest::newRow("beyond an int") << "99999999999" << 0;
    QTest::newRow("blanks around") << " 300 " << 300;
}

void tst_invitationdialog::sizeIsWhatTheEditsHold()
{
    QFETCH(QString, text);
    lobby->openHost();
    lobby->widget<QLineEdit>("widthedit")->setText(text);
    QTEST(lobby->dialog->imageWidth(), "size");
    QCOMPARE(lobby->dialog->imageHeight(), 480);
    lobby->widget<QLineEdit>("heightedit")->setText(text);
    QTEST(lobby->dialog->imageHeight(), "size");
}

void tst_invitationdialog::endTellsItsResultOnce_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << "OK" << 1;
    QTest::newRow("Cancel") << "Cancel" << 0;
    QTest::newRow("close") << "close" << 0;
    QTest::newRow("accept") << "accept" << 1;
    QTest::newRow("twice") << "twice" << 1;
}

void tst_invitationdialog::endTellsItsResultOnce()
{
    QFETCH(QString, way);
    lobby->openHost();
    lobby->show();
    if (way == "OK")
        button(QDialogButtonBox::Ok)->click();
    else if (way == "Cancel")
        button(QDialogButtonBox::Cancel)->click();
    else if (way == "close")
        lobby->dialog->close();
    else
        lobby->dialog->accept();
    if (way == "twice")
        lobby->dialog->reject();
    QCOMPARE(lobby->results.size(), 1);
    QTEST(lobby->results.first(), "result");
    QTRY_VERIFY(!lobby->dialog);
    QCOMPARE(lobby->results.size(), 1);
}

void tst_invitationdialog::okWithAnEmptyWidthEndsWithWidthZero()
{
    lobby->openHost();
    lobby->show();
    lobby->widget<QLineEdit>("widthedit")->clear();
    button(QDialogButtonBox::Ok)->click();
    QCOMPARE(lobby->results, QList<int>{1});
    QCOMPARE(lobby->dialog->imageWidth(), 0);
    QCOMPARE(lobby->dialog->imageHeight(), 480);
}

void tst_invitationdialog::deletionTellsNothing()
{
    lobby->openHost();
    lobby->show();
    lobby->inviteClient(2);
    lobby->sent();
    delete lobby->dialog.data();
    QCOMPARE(lobby->results, QList<int>());
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_invitationdialog::takeBackEndsTheGuest_data()
{
    QTest::addColumn<QByteArray>("sender");
    QTest::addColumn<bool>("ends");
    QTest::newRow("from the host") << QByteArray("3") << true;
    QTest::newRow("from another guest") << QByteArray("2") << false;
    QTest::newRow("from nobody") << QByteArray("0") << false;
    QTest::newRow("from itself") << QByteArray("1") << false;
}

void tst_invitationdialog::takeBackEndsTheGuest()
{
    QFETCH(QByteArray, sender);
    QFETCH(bool, ends);
    lobby->openGuest(3);
    lobby->show();
    lobby->receive(21, sender);
    QCOMPARE(lobby->results, ends ? QList<int>{0} : QList<int>());
    QCOMPARE(lobby->host.printed, QList<QByteArray>());
}

void tst_invitationdialog::logoutOfTheHostEndsTheGuest()
{
    lobby->openGuest(3);
    lobby->show();
    lobby->receive(10, "3 2");
    lobby->receive(18, "2");
    QCOMPARE(lobby->lists(), QString("A|I|R|C"));
    QCOMPARE(lobby->results, QList<int>());
    lobby->receive(18, "3");
    QCOMPARE(lobby->results, QList<int>{0});
    QCOMPARE(lobby->host.printed, QList<QByteArray>{"The host has left the kelvor session"});
    QCOMPARE(lookOf(lobby->client(3)), QString("none"));
}

void tst_invitationdialog::hostLeavingTheServerDoesNotEndTheGuest()
{
    lobby->openGuest(3);
    lobby->show();
    emit lobby->controller.clientLeft(1, 3, 2);
    QVERIFY(!lobby->client(3));
    QVERIFY(lobby->dialog->isVisible());
    QCOMPARE(lobby->results, QList<int>());
    lobby->receive(18, "3");
    QCOMPARE(lobby->results, QList<int>{0});
}

// While the controller handles the end, a nested event loop may bring in anything.
void tst_invitationdialog::endedLobbyHearsNothing()
{
    lobby->openGuest(3);
    lobby->show();
    lobby->receive(10, "3 2");
    const auto everything = [this] {
        lobby->receive(10, "3 4");
        lobby->receive(4, "3 5");
        lobby->receive(18, "2");
        lobby->receive(21, "3");
        lobby->receive(18, "3");
        emit lobby->controller.clientLeft(1, 2, 1);
        emit lobby->controller.clientConnected(1, 77, 1);
        emit lobby->controller.channelDeleted(1, 1);
        emit lobby->controller.channelCreated(1, 9, 0);
    };
    connect(lobby->dialog, &invitationdialog::inviteFinished, this, everything);
    lobby->dialog->accept();
    everything();
    QCOMPARE(lobby->results, QList<int>{1});
    QCOMPARE(lobby->lists(), QString("A 2|I|R|C"));
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
    QCOMPARE(lobby->sent(), QStringList());
    QCOMPARE(lobby->host.printed, QList<QByteArray>());
    QTRY_VERIFY(!lobby->dialog);
    everything();
    QCOMPARE(lobby->results, QList<int>{1});
}

// The menu may still be open then.
void tst_invitationdialog::endedLobbyInvitesNobody()
{
    lobby->openHost();
    lobby->show();
    lobby->inviteClient(3);
    lobby->sent();
    lobby->dialog->accept();
    lobby->inviteClient(2);
    lobby->takeBackClient(3);
    lobby->receive(13, "3");
    lobby->receive(24, "3");
    QCOMPARE(lobby->lists(), QString("A|I 3|R|C"));
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_invitationdialog::fileEventsAreRelayed()
{
    lobby->openHost();
    QSignalSpy lists(lobby->dialog, &invitationdialog::fileList);
    QSignalSpy transfers(lobby->dialog, &invitationdialog::fileTransferStatus);
    const uint64 huge = ~uint64(0);
    emit lobby->controller.fileList(2, 7, "/d", "a b.png", huge, 5, 1);
    emit lobby->controller.fileTransferStatus(65535, 2065, "done", huge, 2);
    QCOMPARE(lists.count(), 1);
    QCOMPARE(lists.first().at(0).value<uint64>(), uint64(2));
    QCOMPARE(lists.first().at(1).value<uint64>(), uint64(7));
    QCOMPARE(lists.first().at(2).toString(), QString("/d"));
    QCOMPARE(lists.first().at(3).toString(), QString("a b.png"));
    QCOMPARE(lists.first().at(4).value<uint64>(), huge);
    QCOMPARE(lists.first().at(5).value<uint64>(), uint64(5));
    QCOMPARE(lists.first().at(6).toInt(), 1);
    QCOMPARE(transfers.count(), 1);
    QCOMPARE(transfers.first().at(0).value<anyID>(), anyID(65535));
    QCOMPARE(transfers.first().at(1).toUInt(), 2065u);
    QCOMPARE(transfers.first().at(2).toString(), QString("done"));
    QCOMPARE(transfers.first().at(3).value<uint64>(), huge);
    QCOMPARE(transfers.first().at(4).value<uint64>(), uint64(2));
}

QTEST_MAIN(tst_invitationdialog)
#include "tst_invitationdialog.moc"
