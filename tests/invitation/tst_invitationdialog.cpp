#include "lobbyfixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

#include <memory>

/// The window itself on both sides: its form, its menu, the keyboard, and its end.
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

    void menuOffersWhatTheSelectionAllows_data();
    void menuOffersWhatTheSelectionAllows();
    void menuDoesWhatItSays();
    void menuOpensWhereItIsAskedFor();
    void menuOpensByTheKeyboard();
    void doubleClickInvites();
    void doubleClickInvitesWhatTheMenuDoesNot_data();
    void doubleClickInvitesWhatTheMenuDoesNot();

    void enterInTheTreeDoesNothing_data();
    void enterInTheTreeDoesNothing();
    void enterInAnEditPressesOk_data();
    void enterInAnEditPressesOk();
    void tabGoesFromTopToBottom();
    void everyInputHasAName();

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
    template <typename Widget> Widget* widget(const char* name)
    {
        auto* found = lobby->dialog->findChild<Widget*>(name);
        Q_ASSERT(found);
        return found;
    }
    QPushButton* button(QDialogButtonBox::StandardButton which)
    {
        return widget<QDialogButtonBox>("buttonBox")->button(which);
    }
    void showLobby();
    void doubleClick(const QTreeWidgetItem* row);
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    std::unique_ptr<lobbyfixture> lobby;
    QList<int> results; ///< that the lobby told at its end
};

void tst_invitationdialog::init()
{
    lobby = std::make_unique<lobbyfixture>();
    results.clear();
}

void tst_invitationdialog::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_invitationdialog::showLobby()
{
    connect(lobby->dialog, &invitationdialog::inviteFinished, this, [this](int ret, uint64 schid) {
        QCOMPARE(schid, lobbyfixture::connection);
        results.append(ret);
    });
    lobby->dialog->show();
    QApplication::setActiveWindow(lobby->dialog);
    QVERIFY(QTest::qWaitForWindowActive(lobby->dialog));
}

void tst_invitationdialog::doubleClick(const QTreeWidgetItem* row)
{
    const QPoint onRow = lobby->tree->visualItemRect(row).center();
    QTest::mouseClick(lobby->tree->viewport(), Qt::LeftButton, Qt::NoModifier, onRow);
    QTest::mouseDClick(lobby->tree->viewport(), Qt::LeftButton, Qt::NoModifier, onRow);
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
    QCOMPARE(widget<QLabel>("sizelabel")->text(), QString("Imagesize:"));
    QCOMPARE(widget<QLabel>("label_2")->text(), QString("x"));
    QCOMPARE(widget<QLineEdit>("widthedit")->text(), QString("640"));
    QCOMPARE(widget<QLineEdit>("heightedit")->text(), QString("480"));
    QCOMPARE(widget<QLineEdit>("heightedit")->maxLength(), 32767);
    const auto* validator = qobject_cast<const QIntValidator*>(widget<QLineEdit>("widthedit")->validator());
    QVERIFY(validator);
    QCOMPARE(validator, widget<QLineEdit>("heightedit")->validator());
    QCOMPARE(validator->parent(), lobby->dialog);
    QCOMPARE(validator->bottom(), 200);
    QCOMPARE(validator->top(), 2000);
    QCOMPARE(widget<QLabel>("urllabel")->text(), QString());
    for (const char* name : {"loadbutton", "clearbutton"}) {
        QCOMPARE(widget<QPushButton>(name)->text(), QString());
        QVERIFY(!widget<QPushButton>(name)->icon().isNull());
        QVERIFY(!widget<QPushButton>(name)->autoDefault());
    }
    QCOMPARE(widget<QPushButton>("loadbutton")->toolTip(), QString("Load image"));
    QCOMPARE(widget<QPushButton>("clearbutton")->toolTip(), QString("Clear image"));
    const auto* background = widget<QCheckBox>("imagebgcheckbox");
    QCOMPARE(background->text(), QString("Use image as background"));
    QCOMPARE(background->toolTip(),
             QString("The image will stay in background, even if you erase a section or clear the image"));
    QVERIFY(!background->isEnabled());
    const auto* tree = widget<QTreeWidget>("tree");
    QCOMPARE(tree->columnCount(), 1);
    QCOMPARE(tree->headerItem()->text(0), QString("1"));
    QVERIFY(tree->isHeaderHidden());
    QCOMPARE(tree->contextMenuPolicy(), Qt::CustomContextMenu);
    QCOMPARE(tree->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(tree->toolTip(), QString("Rightclick or doubleclick to invite"));
    QCOMPARE(widget<QDialogButtonBox>("buttonBox")->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
}

void tst_invitationdialog::legendNamesTheStates()
{
    lobby->openHost();
    const auto* bar = lobby->dialog->findChild<QStatusBar*>();
    QVERIFY(bar);
    QLayout* rows = lobby->dialog->layout();
    QCOMPARE(rows->itemAt(rows->count() - 1)->widget(), bar);
    showLobby();
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
    QCOMPARE(lookOf(lobby->dialog->clientRow(77)), QString("none"));
}

void tst_invitationdialog::guestCanOnlyBeClosed()
{
    lobby->openGuest(3);
    showLobby();
    for (const char* name : {"loadbutton", "clearbutton", "widthedit", "heightedit", "imagebgcheckbox", "buttonBox"})
        QVERIFY2(!widget<QWidget>(name)->isEnabled(), name);
    QVERIFY(!button(QDialogButtonBox::Ok)->isEnabled());
    QVERIFY(!button(QDialogButtonBox::Cancel)->isEnabled());
    QVERIFY(widget<QTreeWidget>("tree")->isEnabled());
    QCOMPARE(lobby->dialog->imageWidth(), 0);
    QCOMPARE(lobby->dialog->imageHeight(), 0);
    QCOMPARE(lobby->dialog->sessionHost(), anyID(3));
    press(Qt::Key_Return);
    QVERIFY(results.isEmpty());
    lobby->dialog->close();
    QCOMPARE(results, QList<int>{0});
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
    widget<QLineEdit>("widthedit")->setText(text);
    QTEST(lobby->dialog->imageWidth(), "size");
    QCOMPARE(lobby->dialog->imageHeight(), 480);
    widget<QLineEdit>("heightedit")->setText(text);
    QTEST(lobby->dialog->imageHeight(), "size");
}

void tst_invitationdialog::menuOffersWhatTheSelectionAllows_data()
{
    QTest::addColumn<QString>("rows"); ///< by their looks
    QTest::addColumn<bool>("opens");
    QTest::addColumn<bool>("canInvite");
    QTest::addColumn<bool>("canTakeBack");
    QTest::newRow("nothing") << "" << false << false << false;
    QTest::newRow("own row") << "self" << true << false << false;
    QTest::newRow("none") << "none" << true << true << false;
    QTest::newRow("invited") << "invited" << true << false << true;
    QTest::newRow("accepted") << "accepted" << true << false << true;
    QTest::newRow("rejected") << "rejected" << true << false << false;
    QTest::newRow("version") << "version" << true << false << false;
    QTest::newRow("busy") << "busy" << true << false << false;
    QTest::newRow("channel") << "channel" << true << true << false;
    QTest::newRow("marked channel") << "marked" << true << false << true;
    QTest::newRow("own row and none") << "self none" << true << true << false;
    QTest::newRow("own row and accepted") << "self accepted" << true << false << true;
    QTest::newRow("none and invited") << "none invited" << true << true << true;
    QTest::newRow("rejected and marked") << "rejected marked" << true << false << true;
    QTest::newRow("everything") << "self none invited accepted rejected version busy channel marked" << true << true
                                << true;
}

void tst_invitationdialog::menuOffersWhatTheSelectionAllows()
{
    QFETCH(QString, rows);
    QFETCH(bool, opens);
    lobby->openHost();
    showLobby();
    const QHash<QString, anyID> clients = {{"self", 1},      {"none", 2},     {"invited", 3}, {"accepted", 4},
                                           {"rejected", 10}, {"version", 11}, {"busy", 12}};
    for (const anyID extra : QList<anyID>{10, 11, 12})
        emit lobby->controller.clientConnected(1, extra, 1);
    for (const anyID client : QList<anyID>{3, 4, 10, 11, 12})
        lobby->inviteClient(client);
    lobby->receive(13, "4");
    lobby->receive(14, "10");
    lobby->receive(15, "11");
    lobby->receive(24, "12");
    lobby->inviteChannel(4);
    QList<const QTreeWidgetItem*> selection;
    const QStringList names = rows.isEmpty() ? QStringList() : rows.split(' ');
    for (const QString& name : names) {
        const mytreeitem* row = clients.contains(name) ? lobby->dialog->clientRow(clients.value(name))
                                                       : lobby->dialog->channelRow(name == "marked" ? 4 : 1);
        QCOMPARE(lookOf(row), name);
        selection.append(row);
    }
    lobby->select(selection);
    emit lobby->tree->customContextMenuRequested({5, 5});
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QCOMPARE(menu != nullptr, opens);
    if (!opens)
        return;
    QCOMPARE(menu->actions().size(), 2);
    QCOMPARE(menu->actions().at(0)->text(), QString("Invite"));
    QCOMPARE(menu->actions().at(1)->text(), QString("Take back invitation"));
    QTEST(menu->actions().at(0)->isEnabled(), "canInvite");
    QTEST(menu->actions().at(1)->isEnabled(), "canTakeBack");
    menu->close();
}

void tst_invitationdialog::menuDoesWhatItSays()
{
    lobby->openHost();
    lobby->sent();
    const QList<QAction*> actions = lobby->dialog->findChild<QMenu*>()->actions();
    lobby->selectClient(2);
    actions.at(0)->trigger();
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>2"}));
    actions.at(1)->trigger();
    QCOMPARE(lobby->sent(), QStringList({"21 1>2"}));
}

void tst_invitationdialog::menuOpensWhereItIsAskedFor()
{
    lobby->openHost();
    lobby->dialog->move(40, 30);
    showLobby();
    lobby->selectClient(2);
    emit lobby->tree->customContextMenuRequested({30, 20});
    QVERIFY(QApplication::activePopupWidget());
    QCOMPARE(QApplication::activePopupWidget()->pos(), lobby->tree->mapToGlobal({30, 20}));
    QApplication::activePopupWidget()->close();
}

void tst_invitationdialog::menuOpensByTheKeyboard()
{
    lobby->openHost();
    showLobby();
    lobby->tree->setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(lobby->tree->selectedItems().size(), 1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {30, 20}, lobby->tree->mapToGlobal({30, 20}));
    QApplication::sendEvent(lobby->tree, &event);
    QVERIFY(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
}

void tst_invitationdialog::doubleClickInvites()
{
    lobby->openHost();
    showLobby();
    lobby->sent();
    doubleClick(lobby->dialog->channelRow(2));
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>4", "1 2 1>3"}));
    QCOMPARE(lobby->lists(), QString("A|I 4 3|R|C 3 2"));
    QVERIFY(lobby->dialog->channelRow(2)->isExpanded());
}

void tst_invitationdialog::doubleClickInvitesWhatTheMenuDoesNot_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("rejected") << 14;
    QTest::newRow("version") << 15;
    QTest::newRow("busy") << 24;
}

void tst_invitationdialog::doubleClickInvitesWhatTheMenuDoesNot()
{
    QFETCH(int, answer);
    lobby->openHost();
    showLobby();
    lobby->inviteClient(2);
    lobby->receive(answer, "2");
    lobby->sent();
    emit lobby->tree->customContextMenuRequested({5, 5});
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(!menu->actions().at(0)->isEnabled());
    menu->close();
    doubleClick(lobby->dialog->clientRow(2));
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>2"}));
    QCOMPARE(lookOf(lobby->dialog->clientRow(2)), QString("invited"));
}

void tst_invitationdialog::enterInTheTreeDoesNothing_data()
{
    QTest::addColumn<bool>("guest");
    QTest::newRow("host") << false;
    QTest::newRow("guest") << true;
}

void tst_invitationdialog::enterInTheTreeDoesNothing()
{
    QFETCH(bool, guest);
    if (guest)
        lobby->openGuest(3);
    else
        lobby->openHost();
    showLobby();
    lobby->sent();
    lobby->tree->setFocus();
    lobby->selectClient(2);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    lobby->tree->setCurrentItem(nullptr);
    press(Qt::Key_Return);
    QVERIFY(results.isEmpty());
    QVERIFY(lobby->dialog->isVisible());
    QCOMPARE(lobby->sent(), QStringList());
    press(Qt::Key_Escape);
    QCOMPARE(results, QList<int>{0});
}

void tst_invitationdialog::enterInAnEditPressesOk_data()
{
    QTest::addColumn<QByteArray>("edit");
    QTest::addColumn<QString>("text");
    QTest::newRow("width") << QByteArray("widthedit") << "800";
    QTest::newRow("height") << QByteArray("heightedit") << "800";
    QTest::newRow("empty width") << QByteArray("widthedit") << "";
    QTest::newRow("height out of range") << QByteArray("heightedit") << "5";
}

void tst_invitationdialog::enterInAnEditPressesOk()
{
    QFETCH(QByteArray, edit);
    QFETCH(QString, text);
    lobby->openHost();
    showLobby();
    auto* field = widget<QLineEdit>(edit.constData());
    field->setFocus();
    field->setText(text);
    press(Qt::Key_Return);
    QCOMPARE(results, QList<int>{1});
}

void tst_invitationdialog::tabGoesFromTopToBottom()
{
    lobby->openHost();
    showLobby();
    widget<QCheckBox>("imagebgcheckbox")->setEnabled(true);
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("widthedit"));
    for (const char* next : {"heightedit", "loadbutton", "clearbutton", "imagebgcheckbox", "tree"}) {
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QString(next));
    }
    press(Qt::Key_Tab);
    QVERIFY(widget<QDialogButtonBox>("buttonBox")->isAncestorOf(QApplication::focusWidget()));
}

void tst_invitationdialog::everyInputHasAName()
{
    lobby->openHost();
    for (const char* name : {"widthedit", "heightedit", "loadbutton", "clearbutton", "tree", "urllabel"})
        QVERIFY2(!widget<QWidget>(name)->accessibleName().isEmpty(), name);
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
    showLobby();
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
    QCOMPARE(results.size(), 1);
    QTEST(results.first(), "result");
    QTRY_VERIFY(!lobby->dialog);
    QCOMPARE(results.size(), 1);
}

void tst_invitationdialog::okWithAnEmptyWidthEndsWithWidthZero()
{
    lobby->openHost();
    showLobby();
    widget<QLineEdit>("widthedit")->clear();
    button(QDialogButtonBox::Ok)->click();
    QCOMPARE(results, QList<int>{1});
    QCOMPARE(lobby->dialog->imageWidth(), 0);
    QCOMPARE(lobby->dialog->imageHeight(), 480);
}

void tst_invitationdialog::deletionTellsNothing()
{
    lobby->openHost();
    showLobby();
    lobby->inviteClient(2);
    lobby->sent();
    delete lobby->dialog.data();
    QCOMPARE(results, QList<int>());
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
    showLobby();
    lobby->receive(21, sender);
    QCOMPARE(results, ends ? QList<int>{0} : QList<int>());
    QCOMPARE(lobby->host.printed, QList<QByteArray>());
}

void tst_invitationdialog::logoutOfTheHostEndsTheGuest()
{
    lobby->openGuest(3);
    showLobby();
    lobby->receive(10, "3 2");
    lobby->receive(18, "2");
    QCOMPARE(lobby->lists(), QString("A|I|R|C"));
    QCOMPARE(results, QList<int>());
    lobby->receive(18, "3");
    QCOMPARE(results, QList<int>{0});
    QCOMPARE(lobby->host.printed, QList<QByteArray>{"The host has left the kelvor session"});
    QCOMPARE(lookOf(lobby->dialog->clientRow(3)), QString("none"));
}

void tst_invitationdialog::hostLeavingTheServerDoesNotEndTheGuest()
{
    lobby->openGuest(3);
    showLobby();
    emit lobby->controller.clientLeft(1, 3, 2);
    QVERIFY(!lobby->dialog->clientRow(3));
    QVERIFY(lobby->dialog->isVisible());
    QCOMPARE(results, QList<int>());
    lobby->receive(18, "3");
    QCOMPARE(results, QList<int>{0});
}

// While the controller handles the end, a nested event loop may bring in anything.
void tst_invitationdialog::endedLobbyHearsNothing()
{
    lobby->openGuest(3);
    showLobby();
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
    QCOMPARE(results, QList<int>{1});
    QCOMPARE(lobby->lists(), QString("A 2|I|R|C"));
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
    QCOMPARE(lobby->sent(), QStringList());
    QCOMPARE(lobby->host.printed, QList<QByteArray>());
    QTRY_VERIFY(!lobby->dialog);
    everything();
    QCOMPARE(results, QList<int>{1});
}

// The menu may still be open then.
void tst_invitationdialog::endedLobbyInvitesNobody()
{
    lobby->openHost();
    showLobby();
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
