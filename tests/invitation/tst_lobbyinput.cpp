#include "lobbyfixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <memory>

/// What the user of a lobby does with mouse and keyboard.
class tst_lobbyinput : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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

private:
    void doubleClick(const QTreeWidgetItem* row);
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    std::unique_ptr<lobbyfixture> lobby;
};

void tst_lobbyinput::init() { lobby = std::make_unique<lobbyfixture>(); }

void tst_lobbyinput::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_lobbyinput::doubleClick(const QTreeWidgetItem* row)
{
    const QPoint onRow = lobby->tree->visualItemRect(row).center();
    QTest::mouseClick(lobby->tree->viewport(), Qt::LeftButton, Qt::NoModifier, onRow);
    QTest::mouseDClick(lobby->tree->viewport(), Qt::LeftButton, Qt::NoModifier, onRow);
}

void tst_lobbyinput::menuOffersWhatTheSelectionAllows_data()
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

void tst_lobbyinput::menuOffersWhatTheSelectionAllows()
{
    QFETCH(QString, rows);
    QFETCH(bool, opens);
    lobby->openHost();
    lobby->show();
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
        const mytreeitem* row =
            clients.contains(name) ? lobby->client(clients.value(name)) : lobby->channel(name == "marked" ? 4 : 1);
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

void tst_lobbyinput::menuDoesWhatItSays()
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

void tst_lobbyinput::menuOpensWhereItIsAskedFor()
{
    lobby->openHost();
    lobby->dialog->move(40, 30);
    lobby->show();
    lobby->selectClient(2);
    emit lobby->tree->customContextMenuRequested({30, 20});
    QVERIFY(QApplication::activePopupWidget());
    QCOMPARE(QApplication::activePopupWidget()->pos(), lobby->tree->mapToGlobal({30, 20}));
    QApplication::activePopupWidget()->close();
}

void tst_lobbyinput::menuOpensByTheKeyboard()
{
    lobby->openHost();
    lobby->show();
    lobby->tree->setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(lobby->tree->selectedItems().size(), 1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {30, 20}, lobby->tree->mapToGlobal({30, 20}));
    QApplication::sendEvent(lobby->tree, &event);
    QVERIFY(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
}

void tst_lobbyinput::doubleClickInvites()
{
    lobby->openHost();
    lobby->show();
    lobby->sent();
    doubleClick(lobby->channel(2));
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>4", "1 2 1>3"}));
    QCOMPARE(lobby->lists(), QString("A|I 4 3|R|C 3 2"));
    QVERIFY(lobby->channel(2)->isExpanded());
}

void tst_lobbyinput::doubleClickInvitesWhatTheMenuDoesNot_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("rejected") << 14;
    QTest::newRow("version") << 15;
    QTest::newRow("busy") << 24;
}

void tst_lobbyinput::doubleClickInvitesWhatTheMenuDoesNot()
{
    QFETCH(int, answer);
    lobby->openHost();
    lobby->show();
    lobby->inviteClient(2);
    lobby->receive(answer, "2");
    lobby->sent();
    emit lobby->tree->customContextMenuRequested({5, 5});
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(!menu->actions().at(0)->isEnabled());
    menu->close();
    doubleClick(lobby->client(2));
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>2"}));
    QCOMPARE(lookOf(lobby->client(2)), QString("invited"));
}

void tst_lobbyinput::enterInTheTreeDoesNothing_data()
{
    QTest::addColumn<bool>("guest");
    QTest::newRow("host") << false;
    QTest::newRow("guest") << true;
}

void tst_lobbyinput::enterInTheTreeDoesNothing()
{
    QFETCH(bool, guest);
    if (guest)
        lobby->openGuest(3);
    else
        lobby->openHost();
    lobby->show();
    lobby->sent();
    lobby->tree->setFocus();
    lobby->selectClient(2);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    lobby->tree->setCurrentItem(nullptr);
    press(Qt::Key_Return);
    QVERIFY(lobby->results.isEmpty());
    QVERIFY(lobby->dialog->isVisible());
    QCOMPARE(lobby->sent(), QStringList());
    press(Qt::Key_Escape);
    QCOMPARE(lobby->results, QList<int>{0});
}

void tst_lobbyinput::enterInAnEditPressesOk_data()
{
    QTest::addColumn<QByteArray>("edit");
    QTest::addColumn<QString>("text");
    QTest::newRow("width") << QByteArray("widthedit") << "800";
    QTest::newRow("height") << QByteArray("heightedit") << "800";
    QTest::newRow("empty width") << QByteArray("widthedit") << "";
    QTest::newRow("height out of range") << QByteArray("heightedit") << "5";
}

void tst_lobbyinput::enterInAnEditPressesOk()
{
    QFETCH(QByteArray, edit);
    QFETCH(QString, text);
    lobby->openHost();
    lobby->show();
    auto* field = lobby->widget<QLineEdit>(edit.constData());
    field->setFocus();
    field->setText(text);
    press(Qt::Key_Return);
    QCOMPARE(lobby->results, QList<int>{1});
}

void tst_lobbyinput::tabGoesFromTopToBottom()
{
    lobby->openHost();
    lobby->show();
    lobby->widget<QCheckBox>("imagebgcheckbox")->setEnabled(true);
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("widthedit"));
    for (const char* next : {"heightedit", "loadbutton", "clearbutton", "imagebgcheckbox", "tree"}) {
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QString(next));
    }
    press(Qt::Key_Tab);
    QVERIFY(lobby->widget<QDialogButtonBox>("buttonBox")->isAncestorOf(QApplication::focusWidget()));
}

void tst_lobbyinput::everyInputHasAName()
{
    lobby->openHost();
    for (const char* name : {"widthedit", "heightedit", "loadbutton", "clearbutton", "tree", "urllabel"})
        QVERIFY2(!lobby->widget<QWidget>(name)->accessibleName().isEmpty(), name);
}

QTEST_MAIN(tst_lobbyinput)
#include "tst_lobbyinput.moc"
